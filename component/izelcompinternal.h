// SPDX-License-Identifier: Apache-2.0
/// @file
/// What the host asks a component about itself, and the settings that they share.
#pragma once

#include "component/objects/izelunknown.h"

class IZelSelfTestService;
class KorCString;
class ZelGuid;

/// Describes a component. Returned texts and pointers live as long as the module. Classes are
/// enumerated by one thread at a time, since the module keeps a single position. Reserved
/// operations do nothing.
class IZelCompInternal : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IZelCompInternal";
    using IZelUnknown::className;

    /// Reserved; does nothing.
    virtual void internalReserved1() = 0;
    /// Reserved; does nothing.
    virtual void internalReserved2() = 0;
    /// The component's identifier.
    virtual const ZelGuid* componentId() = 0;
    /// The module's short name.
    virtual const char* moduleName() = 0;
    /// Reserved; returns 0.
    virtual std::int32_t internalReserved3() = 0;
    /// The number of classes that the component offers.
    virtual std::int32_t classCount() = 0;
    /// Restarts the enumeration and stores the first identifier; false when there is no class.
    virtual bool firstClass(ZelGuid* out) = 0;
    /// Stores the next identifier; false after the last one.
    virtual bool nextClass(ZelGuid* out) = 0;
    /// The name of a class; null when the component doesn't offer it.
    virtual const char* className(const ZelGuid& id) = 0;
    /// Reserved; returns true.
    virtual bool internalReserved4() = 0;
    /// Hands the module's self-tests to `service`. Without a service the user is told by an error
    /// message.
    virtual void runSelfTests(IZelSelfTestService* service) = 0;
    /// The scope whose services the module uses first; see manageraccess.h. The name is copied.
    /// @{
    virtual void setScopeName(const KorCString& name) = 0;
    virtual const KorCString* scopeName() = 0;
    /// @}
    /// Whether the host may break into a debugger; see zelBreakEnabled().
    /// @{
    virtual void setBreakEnabled(bool enabled) = 0;
    virtual bool breakEnabled() = 0;
    /// @}
};
