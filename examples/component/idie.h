// SPDX-License-Identifier: Apache-2.0
// The interfaces of the example component, as its users include them.
#pragma once

#include "component/objects/izelunknown.h"
#include "zelbasictypes/data/zelguid.h"

/// The class of dice, for IZelComponent::createInstance.
inline constexpr ZelGuid dieClassId{
    0x9F41BD5B, 0xCBB0, 0x41D7, {0xBD, 0xA6, 0xEC, 0x87, 0x07, 0xD7, 0x77, 0xC6}};

class IDie : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IDie";

    /// A number from 1 to 6; 0 where the host has no service IZelRandom.
    virtual std::int32_t roll() = 0;
};

/// The class of the one counter.
inline constexpr ZelGuid rollCounterClassId{
    0xF13FA60D, 0xE628, 0x4C5F, {0xB8, 0xDE, 0x3F, 0x61, 0x8B, 0x1A, 0x92, 0x3F}};

/// Counts what all dice of the module have rolled. The host offers it as a service to others.
class IRollCounter : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IRollCounter";

    virtual std::int32_t rolls() = 0;
};
