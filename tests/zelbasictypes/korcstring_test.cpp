// SPDX-License-Identifier: Apache-2.0
// The narrow string, case by case; narrowmodel_test.cpp has the random walk.
#include "zelbasictypes/text/korcstring.h"

#include "tests/zelbasictypes/assertioncounter.h"
#include "zelbasictypes/text/korstring.h"

#include <gtest/gtest.h>
#include <sstream>

namespace {

TEST(KorCString, TellsNullFromEmpty) {
    const KorCString null, empty("");
    EXPECT_TRUE(null.isEmpty() && empty.isEmpty());
    EXPECT_EQ(null.c_str(), nullptr);
    EXPECT_FALSE(null == empty);
    EXPECT_FALSE(null == "");
    EXPECT_TRUE(null == KorCString(static_cast<const char*>(nullptr)));
    EXPECT_TRUE(null < empty);
    EXPECT_FALSE(empty < null);
    EXPECT_EQ(null.compare(KorCString()), 0);
    EXPECT_EQ(null.hash(), 0u);
    EXPECT_EQ(empty.hash(), 5381u);
    EXPECT_EQ(KorCString::concat(nullptr), KorCString());
}

TEST(KorCString, HashesBytesAsSignedValues) {
    EXPECT_EQ(KorCString("ab").hash(), (5381u * 33 + 'a') * 33 + 'b');
    EXPECT_EQ(KorCString("\xE9").hash(), 5381u * 33 - 23);
}

TEST(KorCString, OrdersBytesAsUnsignedValues) { EXPECT_EQ(KorCString("\x80").compare("\x7F"), 1); }

TEST(KorCString, SharesABorrowedTextAndCopiesAnOwnedOne) {
    static const char literal[] = "IDataStore";
    const KorCString borrowed = KorCString::borrow(literal);
    const KorCString shared = borrowed;
    KorCString assigned("before");
    assigned = borrowed;
    EXPECT_EQ(shared.c_str(), literal);
    EXPECT_EQ(assigned.c_str(), literal);
    const KorCString owned(literal);
    const KorCString copy = owned;
    EXPECT_NE(copy.c_str(), owned.c_str());
    EXPECT_EQ(copy, owned);
}

TEST(KorCString, KeepsItsBlockWhenAReplacementHasTheSameLength) {
    KorCString text("one two");
    const char* block = text.c_str();
    text.replaceRange(4, 3, "six");
    EXPECT_EQ(text, "one six");
    EXPECT_EQ(text.c_str(), block);
}

TEST(KorCString, TakesTheLowEightBitsOfWideUnits) { EXPECT_EQ(KorCString(u"a\u0142b"), "aBb"); }

TEST(KorCString, ReportsANegativeStart) {
    AssertionCounter assertions;
    const KorCString text("abc");
    EXPECT_EQ(text.find("a", -1), -1);
    EXPECT_EQ(text.find('a', -1), -1);
    EXPECT_EQ(text.find("", -1), -1);
    EXPECT_EQ(assertions.count, 3);
    EXPECT_EQ(assertions.last, "start >= 0");
}

TEST(KorCString, DoesNotFindItsTerminator) {
    EXPECT_EQ(KorCString("abc").find('\0'), -1);
    EXPECT_EQ(KorCString("abc").rfind('\0'), -1);
}

TEST(KorCString, LeavesTheTextWhenAReplacementIsNull) {
    KorCString text = KorCString::borrow("a%1");
    text.replaceAll("%1", KorCString());
    text.replaceAll(KorCString(), "x");
    text.replaceAll("%2", "x");
    EXPECT_EQ(text, "a%1");
    EXPECT_FALSE(text.isOwned());
}

TEST(KorCString, SimplifiesWhiteSpace) {
    const struct {
        const char* text;
        const char* trimmed;
        const char* simplified;
    } cases[] = {
        {"", "", ""},          {" \t\r\n ", "", ""},        {"  a  b\tc ", "a  b\tc", "a_b_c"},
        {"abc", "abc", "abc"}, {"\xA0x", "\xA0x", "\xA0x"},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(KorCString(row.text).trim(), row.trimmed) << row.text;
        EXPECT_EQ(KorCString(row.text).simplify('_'), row.simplified) << row.text;
    }
    EXPECT_EQ(KorCString().trim(), KorCString());
    EXPECT_EQ(KorCString().simplify(), "");
}

TEST(KorCString, ReadsLinesUpToTheirLimit) {
    std::istringstream stream("first\n\n" + std::string(5000, 'x'));
    KorCString line;
    EXPECT_TRUE(line.readLine(stream));
    EXPECT_EQ(line, "first");
    EXPECT_TRUE(line.readLine(stream));
    EXPECT_EQ(line, "");
    EXPECT_FALSE(line.readLine(stream));
    EXPECT_EQ(line.length(), 4096);
    EXPECT_FALSE(line.readLine(stream));
}

TEST(KorCString, TakesTheUtf8FormAndItsBlock) {
    const KorString wide(u"\u00e9t\u00e9");
    const char* block = wide.toUtf8();
    KorCString text("old");
    text.takeUtf8(wide);
    EXPECT_EQ(text, "\xC3\xA9t\xC3\xA9");
    EXPECT_EQ(text.c_str(), block);
    text.takeUtf8(KorString());
    EXPECT_EQ(text, "");
    EXPECT_STREQ(wide.toUtf8(), "\xC3\xA9t\xC3\xA9");
}

TEST(KorCString, WritesNothingForNull) {
    std::ostringstream stream;
    stream << KorCString() << KorCString("a") << KorString(u"b\u0142c");
    EXPECT_EQ(stream.str(), "abc");
}

} // namespace
