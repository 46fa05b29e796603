// SPDX-License-Identifier: Apache-2.0
// A module of one entry, loaded and let go.
#include "platform/module.h"

#include <gtest/gtest.h>

#include <string>

namespace platform::test {
namespace {

TEST(Module, GivesItsEntriesByName) {
    Module module = loadModule(SAMPLE_MODULE);
    ASSERT_NE(module, nullptr) << moduleError();
    auto* answer = reinterpret_cast<int (*)()>(findEntry(module, "sampleAnswer"));
    ASSERT_NE(answer, nullptr);
    EXPECT_EQ(answer(), 42);
    EXPECT_EQ(findEntry(module, "noSuchEntry"), nullptr);
    EXPECT_NE(moduleError(), "");

    const std::string path(SAMPLE_MODULE);
    Module again = loadModule(std::u16string(path.begin(), path.end()).c_str());
    EXPECT_EQ(again, module);
    unloadModule(again);
    EXPECT_EQ(answer(), 42) << "still loaded once";
    unloadModule(module);
}

TEST(Module, ThatIsNotThereSaysSo) {
    EXPECT_EQ(loadModule(u"\\no\\such\\module"), nullptr);
    const std::string reason = moduleError();
    EXPECT_NE(reason, "");
    EXPECT_EQ(reason.find('\n'), reason.npos);
    EXPECT_EQ(findEntry(nullptr, "sampleAnswer"), nullptr);
    unloadModule(nullptr);
}

} // namespace
} // namespace platform::test
