// SPDX-License-Identifier: Apache-2.0
// Gives each component its translator.
#pragma once

#include "component/objects/izelunknown.h"

class IZelTranslator;
class ZelGuid;

class IZelTranslatorService : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IZelTranslatorService";

    virtual void reserved1() {}
    /// Borrowed, or null. `componentId` is the address of the asking module's identifier.
    virtual IZelTranslator* translatorFor(const ZelGuid* componentId) = 0;
};
