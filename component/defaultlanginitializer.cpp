// SPDX-License-Identifier: Apache-2.0
// Hands the host's translator to the module's texts.
#include "component/defaultlanginitializer.h"

#include "component/itemfactory.h"
#include "component/objects/queryinterface.h"
#include "component/objects/sptr.h"
#include "zelbasictypes/text/zeltranslator.h"

namespace {

ZelSingletonTClassItemFactory<DefaultLangInitializer> itemFactory{"DefaultLangInitializer", nullptr,
                                                                  zelLangInitializerClassId};

} // namespace

void DefaultLangInitializer::qi(const char* name, void** result, std::int32_t) {
    zelAnswerQuery<IZelCompLangInitializer>(this, className(), name, result);
}

const char* DefaultLangInitializer::className() { return "DefaultLangInitializer"; }

bool DefaultLangInitializer::initialize() {
    const SPtr<IZelTranslator> translator;
    setTranslator(translator.iface);
    return true;
}
