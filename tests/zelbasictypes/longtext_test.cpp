// SPDX-License-Identifier: Apache-2.0
// Searching texts of many registers and of more than one stretch of the search.
#include "tests/zelbasictypes/textmodel.h"
#include "zelbasictypes/text/korcstring.h"
#include "zelbasictypes/text/korstring.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

class LongText : public testing::TestWithParam<int> {};

TEST_P(LongText, FindsAPartWhereverItStands) {
    const auto at = static_cast<std::size_t>(GetParam());
    for (const std::size_t tail : {0, 1, 40}) {
        std::string narrow(at, 'a');
        narrow += "needle" + std::string(tail, 'a');
        const std::u16string wide(narrow.begin(), narrow.end());
        const std::vector<char16_t> exact = textmodel::exactCopy(wide);
        const auto expected = static_cast<std::int32_t>(at);
        const KorString text = KorString::borrow(exact.data());
        EXPECT_EQ(KorCString(narrow.c_str()).find("needle"), expected);
        EXPECT_EQ(text.find("needle"), expected);
        EXPECT_EQ(text.find("needle", expected), expected);
        EXPECT_EQ(text.find("needle", expected + 1), -1);
        EXPECT_EQ(text.find(u'n'), expected);
        EXPECT_EQ(text.length(), static_cast<std::int32_t>(wide.size()));
    }
}

INSTANTIATE_TEST_SUITE_P(Places, LongText,
                         testing::Values(0, 1, 15, 16, 31, 33, 63, 64, 65, 127, 4090, 4096, 8186,
                                         8187, 8188, 8191, 8192, 8193, 20000));

TEST(LongText, SearchesAPartLongerThanAStretch) {
    const std::string part(10000, 'a');
    const KorCString text((std::string(3, 'a') + "b" + part + "c").c_str());
    EXPECT_EQ(text.find((part + "c").c_str()), 4);
    EXPECT_EQ(text.find((part + "d").c_str()), -1);
    EXPECT_EQ(KorString(text).find(KorString((part + "c").c_str())), 4);
}

} // namespace
