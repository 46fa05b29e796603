// SPDX-License-Identifier: Apache-2.0
/// @file
/// The language hook of a module.
#pragma once

#include "component/objects/izelunknown.h"
#include "zelbasictypes/data/zelguid.h"

/// The class of the hook, the same in every module.
inline constexpr ZelGuid zelLangInitializerClassId{
    0xA6C62276, 0x0A76, 0x4531, {0x98, 0x55, 0xA1, 0x96, 0xDF, 0xBE, 0xFF, 0xFC}};

/// The host calls this once it has a translator to offer.
class IZelCompLangInitializer : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IZelCompLangInitializer";

    /// Makes the host's translator the module's own. Always true.
    virtual bool initialize() = 0;
};
