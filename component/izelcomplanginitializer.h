// SPDX-License-Identifier: Apache-2.0
// The language hook of a module, which the host calls when it has a translator to offer.
#pragma once

#include "component/objects/izelunknown.h"

class IZelCompLangInitializer : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IZelCompLangInitializer";

    /// Makes the host's translator the module's own; true.
    virtual bool initialize() = 0;
};
