// SPDX-License-Identifier: Apache-2.0
// Variables of the process.
#include "platform/environment.h"

#include <gtest/gtest.h>

#include <string>

namespace platform::test {
namespace {

constexpr const char16_t* variable = u"ZEL_PLATFORM_TEST";
constexpr const char* narrowName = "ZEL_PLATFORM_TEST";

class Environment : public testing::Test {
protected:
    void TearDown() override { setEnvironment(variable, nullptr); }
};

TEST_F(Environment, GivesBackValuesOfAnyLengthAndScript) {
    for (const std::u16string& value :
         {std::u16string(u"short"), std::u16string(79, u'a'), std::u16string(80, u'b'),
          std::u16string(5000, u'c'), std::u16string(u"\u6f22 \U0001F600 C:\\dir;x=y")}) {
        ASSERT_TRUE(setEnvironment(variable, value.c_str()));
        std::u16string found = u"old";
        EXPECT_TRUE(readEnvironment(variable, found));
        EXPECT_EQ(found, value);
    }
}

TEST_F(Environment, TellsTheEmptyValueFromNone) {
    std::u16string found = u"old";
    EXPECT_FALSE(readEnvironment(variable, found));
    EXPECT_EQ(found, u"");
    EXPECT_EQ(getenv(narrowName), std::nullopt);

    EXPECT_TRUE(setEnvironment(variable, u""));
    found = u"old";
    EXPECT_TRUE(readEnvironment(variable, found));
    EXPECT_EQ(found, u"");
    EXPECT_EQ(getenv(narrowName), "");

    EXPECT_TRUE(setEnvironment(variable, u"value"));
    EXPECT_EQ(getenv(narrowName), "value");
    EXPECT_TRUE(setEnvironment(variable, nullptr));
    EXPECT_FALSE(readEnvironment(variable, found));
}

TEST_F(Environment, RefusesNamesThatAreNone) {
    EXPECT_FALSE(setEnvironment(u"", u"value"));
    EXPECT_FALSE(setEnvironment(u"ZEL_A=B", u"value"));
}

} // namespace
} // namespace platform::test
