// SPDX-License-Identifier: Apache-2.0
// The host's macro manager.
#pragma once

#include "component/objects/izelunknown.h"

class IMacroMgr : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IMacroMgr";

    /// True while a macro runs, when no question may be asked. Called with true.
    virtual bool query(bool running) = 0;
};
