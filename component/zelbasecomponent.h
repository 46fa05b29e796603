// SPDX-License-Identifier: Apache-2.0
// The component object that the host talks to. It has no data: all that it serves is the module's.
#pragma once

#include "component/izelcompinternal.h"
#include "component/izelcomponent.h"
#include "component/izelcomponentfactory.h"

class IZelClassFactory;

class ZelBaseComponent : public IZelComponent, public IZelCompInternal {
public:
    /// Reports no classes when asked with a null name.
    void qi(const char* name, void** result, std::int32_t reserved = 0) override;
    const char* className() override;

    void initialize(IZelComponentManager* manager) override;
    void terminate() override {}
    /// Without a class factory also clears `*out`.
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

class ZelBaseComponentFact : public IZelComponentFactory {
public:
    IZelComponent* create() override { return new ZelBaseComponent; }
};

/// What the component forwards its questions for classes to: the module's class table, from static
/// initialisation on. Null makes a component that offers none.
extern IZelClassFactory* zelModuleClasses;
