// SPDX-License-Identifier: Apache-2.0
/// @file
/// The host service that gives each component its translator.
#pragma once

#include "component/objects/izelunknown.h"

class IZelTranslator;
class ZelGuid;

/// The host's translators by component.
class IZelTranslatorService : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IZelTranslatorService";

    /// Reserved. The library doesn't call it.
    virtual void reserved1() {}
    /// The translator of the component whose identifier `componentId` points to. Borrowed, or null.
    virtual IZelTranslator* translatorFor(const ZelGuid* componentId) = 0;
};
