// SPDX-License-Identifier: Apache-2.0
// What the host asks a component about itself, and the settings that the two share.
#pragma once

#include "component/objects/izelunknown.h"

class IZelSelfTestService;
class KorCString;
class ZelGuid;

/// Texts and pointers that come back are static or live as long as the module. Classes are listed
/// by firstClass and nextClass, from one thread at a time: there is one position for the module.
class IZelCompInternal : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IZelCompInternal";
    using IZelUnknown::className;

    virtual void internalReserved1() = 0;
    virtual void internalReserved2() = 0;
    virtual const ZelGuid* componentId() = 0;
    virtual const char* moduleName() = 0;
    /// Returns 0.
    virtual std::int32_t internalReserved3() = 0;
    virtual std::int32_t classCount() = 0;
    /// False on an empty table.
    virtual bool firstClass(ZelGuid* out) = 0;
    /// False when the classes are used up.
    virtual bool nextClass(ZelGuid* out) = 0;
    /// Null for an identifier that the component does not offer.
    virtual const char* className(const ZelGuid& id) = 0;
    /// Returns true.
    virtual bool internalReserved4() = 0;
    /// Hands the module's self-tests to `service`; without one tells the user.
    virtual void runSelfTests(IZelSelfTestService* service) = 0;
    /// The name is copied.
    virtual void setScopeName(const KorCString& name) = 0;
    virtual const KorCString* scopeName() = 0;
    virtual void setBreakEnabled(bool enabled) = 0;
    virtual bool breakEnabled() = 0;
};
