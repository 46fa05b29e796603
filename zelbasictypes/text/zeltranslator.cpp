// SPDX-License-Identifier: Apache-2.0
// Which translator is in use.
#include "zelbasictypes/text/zeltranslator.h"

#include "component/objects/moduleidentity.h"
#include "component/objects/services/izeltranslatorservice.h"
#include "component/objects/sptr.h"
#include "zelbasictypes/memory/zelnew.h"
#include "zelbasictypes/text/zeltrivialtranslator.h"

namespace {

constinit IPtr<IZelTranslator> currentTranslator;
/// False once the translator service gave this component a translator: that one stays.
constinit bool allowReplace = true;
/// True once the translator service has been asked.
constinit bool connected = false;

IZelTranslator* findTranslator() {
    void* found = nullptr;
    zelFindService(IZelTranslator::interfaceName, &found);
    return static_cast<IZelTranslator*>(found);
}

/// Changes nothing when the host has no translator service (yet).
void connect() {
    const SPtr<IZelTranslatorService> service;
    if (!service) return;
    currentTranslator = service->translatorFor(zelComponentId());
    if (currentTranslator) {
        allowReplace = false;
    } else {
        currentTranslator = findTranslator();
    }
    connected = true;
}

} // namespace

IZelTranslator* getTranslator() {
    if (!currentTranslator || !connected) connect();
    if (!currentTranslator) currentTranslator = zelNew<ZelTrivialTranslator>();
    return currentTranslator.iface;
}

void setTranslator(IZelTranslator* translator) {
    if (allowReplace) currentTranslator = translator;
}
