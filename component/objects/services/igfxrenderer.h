// SPDX-License-Identifier: Apache-2.0
// The host's renderer, held while a modal message is up.
#pragma once

#include "component/objects/izelunknown.h"

class IGfxRenderer : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IGfxRenderer";

    virtual void suspend() = 0;
    virtual void resume() = 0;
};
