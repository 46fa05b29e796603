// SPDX-License-Identifier: Apache-2.0
// The module comes and goes with the object that holds it.
#include "host/run/loadedmodule.h"

#include "host/componentmanager.h"

#include <gtest/gtest.h>

#ifdef _WIN32
#include <windows.h>
#else
#include <dlfcn.h>
#endif

namespace host {
namespace {

bool isLoaded() {
#ifdef _WIN32
    return ::GetModuleHandleA(BRIX_MODULE) != nullptr;
#else
    void* module = ::dlopen(BRIX_MODULE, RTLD_LAZY | RTLD_NOLOAD);
    return module && ::dlclose(module) == 0;
#endif
}

TEST(LoadedModule, UnloadsTheFileAtItsEndAndCanLoadItAgain) {
    for (int i = 0; i < 3; ++i) {
        LoadedModule module;
        ASSERT_EQ(module.load(QStringLiteral(BRIX_MODULE), rootManager()), "");
        EXPECT_TRUE(module.makeClient());
        EXPECT_TRUE(isLoaded());
    }
    EXPECT_FALSE(isLoaded());
}

} // namespace
} // namespace host
