// SPDX-License-Identifier: Apache-2.0
/// @file
/// The host service that runs macros.
#pragma once

#include "component/objects/izelunknown.h"

/// The host's macro manager.
class IMacroMgr : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IMacroMgr";

    /// True while a macro runs, so that nothing may be asked of the user. `running` is always true.
    virtual bool query(bool running) = 0;
};
