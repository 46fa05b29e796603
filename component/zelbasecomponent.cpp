// SPDX-License-Identifier: Apache-2.0
// The component's answers, from the module's own settings and tables.
#include "component/zelbasecomponent.h"

#include "component/manageraccess.h"
#include "component/moduleidentity.h"
#include "component/objects/queryinterface.h"
#include "component/selftests.h"
#include "component/zeldefaultclassfactory.h"
#include "zelbasictypes/diagnostics/zelassert.h"

IZelClassFactory* zelModuleClasses = zelClassFactory();

void ZelBaseComponent::qi(const char* name, void** result, std::int32_t) {
    if (name) zelAnswerQuery<IZelComponent, IZelCompInternal>(this, className(), name, result);
}

const char* ZelBaseComponent::className() { return "ZelBaseComponent"; }

void ZelBaseComponent::initialize(IZelComponentManager* manager) { zelSetManager(manager); }

std::int32_t ZelBaseComponent::createInstance(const ZelGuid& id, IZelUnknown** out) {
    if (zelModuleClasses) return zelModuleClasses->createInstance(id, out);
    *out = nullptr;
    return 0;
}

const ZelGuid* ZelBaseComponent::componentId() { return zelComponentId(); }

const char* ZelBaseComponent::moduleName() { return zelModuleName(); }

std::int32_t ZelBaseComponent::classCount() {
    return zelModuleClasses ? zelModuleClasses->classCount() : 0;
}

bool ZelBaseComponent::firstClass(ZelGuid* out) {
    return zelModuleClasses && zelModuleClasses->firstClass(out);
}

bool ZelBaseComponent::nextClass(ZelGuid* out) {
    return zelModuleClasses && zelModuleClasses->nextClass(out);
}

const char* ZelBaseComponent::className(const ZelGuid& id) {
    return zelModuleClasses ? zelModuleClasses->className(id) : nullptr;
}

void ZelBaseComponent::runSelfTests(IZelSelfTestService* service) { zelRunSelfTests(service); }

void ZelBaseComponent::setScopeName(const KorCString& name) { zelSetScopeName(name); }

const KorCString* ZelBaseComponent::scopeName() { return &zelScopeName(); }

void ZelBaseComponent::setBreakEnabled(bool enabled) { zelSetBreakEnabled(enabled); }

bool ZelBaseComponent::breakEnabled() { return zelBreakEnabled(); }
