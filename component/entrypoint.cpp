// SPDX-License-Identifier: Apache-2.0
// The way into the module.
#include "component/entrypoint.h"

#include "component/zelbasecomponent.h"
#include "platform/unload.h"

#include <utility>

IZelComponentFactory* zelComponentFactory = new ZelBaseComponentFact;
IZelComponent* zelModuleComponent = nullptr;

namespace {

const platform::AtUnload freeing([] { delete std::exchange(zelComponentFactory, nullptr); });

} // namespace

extern "C" std::int32_t EntryPoint(std::int32_t* version, IZelComponent** component) {
    if (!component || !zelComponentFactory) return 0;
    std::int32_t unwanted = 0;
    std::int32_t& toldVersion = version ? *version : unwanted;
    try {
        zelModuleComponent = zelComponentFactory->create();
        *component = zelModuleComponent;
        toldVersion = zelContractVersion;
        return 1;
    } catch (...) {
        toldVersion = 0;
        *component = nullptr;
        return 0;
    }
}
