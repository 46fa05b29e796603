// SPDX-License-Identifier: Apache-2.0
/// @file
/// The host service that draws the model.
#pragma once

#include "component/objects/izelunknown.h"

/// The host's renderer. It is suspended while a modal message is shown.
class IGfxRenderer : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IGfxRenderer";

    /// Each suspend is followed by one resume, on the same thread.
    /// @{
    virtual void suspend() = 0;
    virtual void resume() = 0;
    /// @}
};
