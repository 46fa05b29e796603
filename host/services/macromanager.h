// SPDX-License-Identifier: Apache-2.0
// The macro manager of a host that has no macros of its own: whether one runs is set from outside.
#pragma once

#include "component/objects/services/imacromgr.h"

namespace host {

class MacroManager : public IMacroMgr {
public:
    explicit MacroManager(bool running = false) : running_(running) {}
    void setRunning(bool running) { running_ = running; }

    void qi(const char* name, void** result, std::int32_t reserved = 0) override;
    const char* className() override { return "MacroManager"; }
    bool query(bool running) override { return running && running_; }

private:
    bool running_;
};

} // namespace host
