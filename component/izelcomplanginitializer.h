// SPDX-License-Identifier: Apache-2.0
/// @file
/// The language hook of a module.
#pragma once

#include "component/objects/izelunknown.h"

/// The host calls this once it has a translator to offer.
class IZelCompLangInitializer : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IZelCompLangInitializer";

    /// Makes the host's translator the module's own. Always true.
    virtual bool initialize() = 0;
};
