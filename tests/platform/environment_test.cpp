// SPDX-License-Identifier: Apache-2.0
// Variables of the process.
#include "platform/environment.h"

#include <gtest/gtest.h>

#include <string>

namespace platform::test {
namespace {

constexpr const char16_t* name = u"ZEL_PLATFORM_TEST";
constexpr const char* narrowName = "ZEL_PLATFORM_TEST";

class Environment : public testing::Test {
protected:
    void TearDown() override { setEnvironment(name, nullptr); }
};

TEST_F(Environment, GivesBackValuesOfAnyLengthAndScript) {
    for (const std::u16string& value :
         {std::u16string(u"short"), std::u16string(79, u'a'), std::u16string(80, u'b'),
          std::u16string(5000, u'c'), std::u16string(u"\u6f22 \U0001F600 C:\\dir;x=y")}) {
        ASSERT_TRUE(setEnvironment(name, value.c_str()));
        std::u16string found = u"old";
        EXPECT_TRUE(readEnvironment(name, found));
        EXPECT_EQ(found, value);
    }
}

TEST_F(Environment, TellsTheEmptyValueFromNone) {
    std::u16string found = u"old";
    EXPECT_FALSE(readEnvironment(name, found));
    EXPECT_EQ(found, u"");
    EXPECT_EQ(getenv(narrowName), nullptr);

    EXPECT_TRUE(setEnvironment(name, u""));
    found = u"old";
    EXPECT_TRUE(readEnvironment(name, found));
    EXPECT_EQ(found, u"");
    EXPECT_STREQ(getenv(narrowName), "");

    EXPECT_TRUE(setEnvironment(name, u"value"));
    EXPECT_STREQ(getenv(narrowName), "value");
    EXPECT_TRUE(setEnvironment(name, nullptr));
    EXPECT_FALSE(readEnvironment(name, found));
}

TEST_F(Environment, RefusesNamesThatAreNone) {
    EXPECT_FALSE(setEnvironment(u"", u"value"));
    EXPECT_FALSE(setEnvironment(u"ZEL_A=B", u"value"));
}

} // namespace
} // namespace platform::test
