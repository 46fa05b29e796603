// SPDX-License-Identifier: Apache-2.0
// Numbers as text in a process whose locale writes a comma.
#include "zelbasictypes/text/korcstring.h"
#include "zelbasictypes/text/korstring.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstdio>
#include <string>
#ifndef _WIN32
#include "tests/support/commalocale.h"
#endif

namespace {

class CommaProcess : public testing::Test {
protected:
    void SetUp() override {
        if (!std::setlocale(LC_ALL, name().c_str())) GTEST_SKIP() << "no locale with a comma";
        char text[8];
        std::snprintf(text, sizeof text, "%.1f", 0.5);
        ASSERT_STREQ(text, "0,5");
    }
    void TearDown() override { std::setlocale(LC_ALL, "C"); }

private:
#ifdef _WIN32
    static std::string name() { return "de-DE"; }
#else
    std::string name() const { return comma_.name().empty() ? "none" : comma_.name(); }
    testsupport::CommaLocale comma_;
#endif
};

TEST_F(CommaProcess, WritesAndReadsNumbersWithAPoint) {
    EXPECT_EQ(KorCString(0.1, true), "0.1");
    EXPECT_EQ(KorCString(-1.5e-300, true), "-1.5e-300");
    EXPECT_EQ(KorCString(0.5f, true), "0.5");
    EXPECT_EQ(KorCString(2.5), "2.500000");
    EXPECT_EQ(KorString(2.5), "2.500000");
    EXPECT_EQ(KorString(2.5e10), "2.500000e+10");
    EXPECT_EQ(KorString(2.5, KorFloatFormat{true, true, "12.3"}), "   2.500e+00");
    EXPECT_EQ(KorCString("2.5").toFloat(), 2.5f);
    EXPECT_EQ(KorString("2.5").toDouble(), 2.5);
    char text[8];
    std::snprintf(text, sizeof text, "%.1f", 0.5);
    EXPECT_STREQ(text, "0,5") << "the process keeps its locale";
}

} // namespace
