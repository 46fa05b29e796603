// SPDX-License-Identifier: Apache-2.0
/// @file
/// The component object that the host talks to.
#pragma once

#include "component/izelcompinternal.h"
#include "component/izelcomponent.h"
#include "component/izelcomponentfactory.h"

class IZelClassFactory;

/// The component of a module. It has no data: everything it serves belongs to the module, so that
/// any number of components may exist. See IZelComponent and IZelCompInternal.
class ZelBaseComponent : public IZelComponent, public IZelCompInternal {
public:
    /// As IZelUnknown::qi(), but reports no classes when called with a null name.
    void qi(const char* name, void** result, std::int32_t reserved = 0) override;
    const char* className() override;

    void initialize(IZelComponentManager* manager) override;
    void terminate() override {}
    /// As IZelComponent::createInstance(). Without a class table it also sets `*out` to null.
    std::int32_t createInstance(const ZelGuid& id, IZelUnknown** out) override;
    std::int32_t componentReserved() override { return 0; }

    void internalReserved1() override {}
    void internalReserved2() override {}
    const ZelGuid* componentId() override;
    const char* moduleName() override;
    std::int32_t internalReserved3() override { return 0; }
    std::int32_t classCount() override;
    bool firstClass(ZelGuid* out) override;
    bool nextClass(ZelGuid* out) override;
    const char* className(const ZelGuid& id) override;
    bool internalReserved4() override { return true; }
    void runSelfTests(IZelSelfTestService* service) override;
    void setScopeName(const KorCString& name) override;
    const KorCString* scopeName() override;
    void setBreakEnabled(bool enabled) override;
    bool breakEnabled() override;
};

/// Makes components of the class ZelBaseComponent.
class ZelBaseComponentFact : public IZelComponentFactory {
public:
    IZelComponent* create() override { return new ZelBaseComponent; }
};

/// The class table that components use: the module's, from static initialisation on. With null they
/// offer no classes.
extern IZelClassFactory* zelModuleClasses;
