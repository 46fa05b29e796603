// SPDX-License-Identifier: Apache-2.0
// The renderer of a host without a window: it only keeps count of how often it is held.
#pragma once

#include "component/objects/services/igfxrenderer.h"

namespace host {

class Renderer : public IGfxRenderer {
public:
    void qi(const char* name, void** result, std::int32_t reserved = 0) override;
    const char* className() override { return "Renderer"; }
    void suspend() override { ++depth_; }
    /// Without a suspend before it, nothing.
    void resume() override { depth_ -= depth_ > 0; }
    bool isSuspended() const { return depth_ > 0; }

private:
    int depth_ = 0;
};

} // namespace host
