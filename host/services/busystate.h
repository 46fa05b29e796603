// SPDX-License-Identifier: Apache-2.0
// Whether the user asked the running work to stop.
#pragma once

#include "component/objects/services/iguibusystate.h"

#include <atomic>

namespace host {

/// Safe on any thread. A wish to stop isn't taken back.
class BusyState : public IGuiBusyState {
public:
    void cancel() { cancelled_ = true; }

    void qi(const char* name, void** result, std::int32_t reserved = 0) override;
    const char* className() override { return "BusyState"; }
    bool isCancelled() override { return cancelled_; }

private:
    std::atomic<bool> cancelled_ = false;
};

} // namespace host
