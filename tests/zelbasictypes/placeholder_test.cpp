// SPDX-License-Identifier: Apache-2.0
// Placeholders, shortening and packed lists.
#include "tests/zelbasictypes/assertioncounter.h"
#include "tests/zelbasictypes/textmodel.h"
#include "zelbasictypes/text/packedlist.h"
#include "zelbasictypes/text/zelformat.h"

#include <climits>
#include <gtest/gtest.h>
#include <string>

namespace {

TEST(ZelFormat, FillsTheHighestPlaceholderFirst) {
    EXPECT_EQ(zelFormat("%1 %2", "%2", "x"), "%2 x");
    EXPECT_EQ(zelFormat("%1 %2", "a", "%1"), "a a");
    EXPECT_EQ(zelFormat("%6%5%4%3%2%1", "a", "b", "c", "d", "e", "f"), "fedcba");
    EXPECT_EQ(zelFormat("%1 and %1, not %2", "x"), "x and x, not %2");
    EXPECT_EQ(zelFormat("%1%2", KorCString(), "x"), "%1x");
    EXPECT_TRUE(zelFormat(nullptr, "x").isNull());
}

TEST(ZelFormat, CountsUpInItsCountedForm) {
    const KorCString args[] = {"%2", "b", "c", "d", "e", "f", "g", "h", "i", "j"};
    EXPECT_EQ(zelFormat("%1 %2", 2, args), "b b");
    EXPECT_EQ(zelFormat("%10", 10, args), "b0");
    EXPECT_EQ(zelFormat("%9", 10, args), "i");
    EXPECT_EQ(zelFormat("%1", 0, args), "%1");
}

TEST(Substitute, FillsInOnePass) {
    const KorString a("one"), b("%1"), ten("ten");
    const KorString* const args[] = {&a, &b, nullptr, &a, &a, &a, &a, &a, &a, &ten};
    const struct {
        const char* text;
        const char* filled;
    } cases[] = {
        {"", ""},
        {"plain", "plain"},
        {"%1", "one"},
        {"<%2%1>", "<%1one>"},
        {"%1 %1", "one one"},
        {"no%3thing", "nothing"},
        {"%:", "ten"},
        {"%10", "one0"},
        {"%%1", "%%1"},
        {"%%%1", "%%one"},
        {"%0 %; %a", "%0 %; %a"},
        {"100%", "100%"},
        {"%", "%"},
    };
    for (const auto& row : cases) {
        KorString text(row.text);
        text.substitute(args);
        EXPECT_EQ(text, row.filled) << row.text;
    }
}

TEST(Fit, AnswersAnUnknownModeWithACopy) {
    AssertionCounter assertions;
    EXPECT_EQ(KorCString("abc").fit(2, 7, 3), "..");
    EXPECT_EQ(KorCString("abc").fit(INT_MAX, 9, -1), "abc");
    EXPECT_EQ(assertions.count, 0) << "the mode counts only for what is cut";
    EXPECT_EQ(KorCString("abcdef").fit(4, 3, 1), "abcdef");
    EXPECT_EQ(assertions.count, 1);
    EXPECT_EQ(assertions.last, "0");
    EXPECT_EQ(KorString("abcdef").fit(4, -1, 1), "abcdef");
    EXPECT_EQ(assertions.count, 1);
}

std::vector<std::string> unpacked(const KorString& text) {
    std::vector<KorString> list;
    zelUnpackStrings(text, list);
    std::vector<std::string> result;
    for (const KorString& entry : list) result.emplace_back(entry.toNarrow());
    return result;
}

TEST(PackedList, ComesBackAsItWas) {
    const std::vector<KorString> list = {"a", "two words", "3 ", " ", "x"};
    KorString text;
    zelPackStrings(text, list);
    EXPECT_EQ(text, "1 a9 two words2 3 1  1 x");
    std::vector<KorString> back;
    zelUnpackStrings(text, back);
    EXPECT_EQ(back, list);
}

TEST(PackedList, ReadsWhatIsThere) {
    using List = std::vector<std::string>;
    const struct {
        const char* text;
        List entries;
    } cases[] = {
        {"", {}},
        {"unpacked", {}},
        {"not packed", {"not packed"}},
        {" x", {" x"}},
        {"1 a0 1 b", {"a", "1 a0 1 b"}},
        {"-1 abc", {"-1 abc"}},
        {"9 abc", {"abc"}},
        {"3 abc", {"abc"}},
        {"4 abc", {"abc"}},
        {"2147483647 abc", {"abc"}},
        {"4294967297 abc", {"abc"}},
        {"99999999999999999999 abc", {"abc"}},
        {"1 a2147483647 b", {"a", "b"}},
        {"-2147483648 abc", {"-2147483648 abc"}},
        {"2 ab3", {"ab"}},
        {"0x2 ab", {"ab"}},
        {"3 ", {""}},
    };
    for (const auto& row : cases) {
        const std::string narrow(row.text);
        const auto exact = textmodel::exactCopy(std::u16string(narrow.begin(), narrow.end()));
        EXPECT_EQ(unpacked(KorString::borrow(exact.data())), row.entries) << row.text;
    }
    EXPECT_EQ(unpacked(KorString()), List());
}

} // namespace
