// SPDX-License-Identifier: Apache-2.0
// The wide string without a host, case by case; widemodel_test.cpp has the random walk.
#include "zelbasictypes/text/korstring.h"

#include "zelbasictypes/text/korcstring.h"

#include <gtest/gtest.h>

namespace {

TEST(KorString, ComparesNullEqualToEmpty) {
    const KorString null, empty(u"");
    EXPECT_TRUE(null.isNull());
    EXPECT_FALSE(empty.isNull());
    EXPECT_TRUE(null == empty);
    EXPECT_TRUE(null == "");
    EXPECT_EQ(null.compare(empty), 0);
    EXPECT_FALSE(null < empty || empty < null);
    EXPECT_NE(null.c_str(), nullptr);
    EXPECT_STREQ(null.toNarrow(), "");
    EXPECT_STREQ(null.toUtf8(), "");
    EXPECT_EQ(null.length(), 0);
}

TEST(KorString, OrdersByUnitWithoutAHost) {
    EXPECT_EQ(KorString().compare("a"), -1);
    EXPECT_EQ(KorString(u"\u8000").compare(u"\u7fff"), 1);
}

TEST(KorString, WidensBytesAsSignedValues) {
    const KorString text("a\xE9");
    EXPECT_EQ(text.at(1), 0xFFE9);
    EXPECT_TRUE(text == "a\xE9");
    EXPECT_STREQ(text.toNarrow(), "a");
    EXPECT_EQ(KorString("0123456789\x80"
                        "bcdef\xFFg")
                  .at(16),
              0xFFFF);
    EXPECT_EQ(KorString(KorCString("ab")), "ab");
    EXPECT_TRUE(KorString(static_cast<const char*>(nullptr)).isNull());
    EXPECT_TRUE(KorString(KorCString()).isNull());
    EXPECT_EQ(KorString('x'), "x");
}

TEST(KorString, SharesABorrowedTextWithItsNarrowForm) {
    static const char16_t wide[] = u"Gr\u00f6\u00dfe";
    static const char narrow[] = "Groesse";
    const KorString borrowed = KorString::borrow(wide, narrow);
    const KorString copy = borrowed;
    KorString assigned("something longer than that");
    assigned.toNarrow();
    assigned = borrowed;
    for (const KorString* text : {&borrowed, &copy, &std::as_const(assigned)}) {
        EXPECT_EQ(text->c_str(), wide);
        EXPECT_EQ(text->toNarrow(), narrow);
    }
    const KorString moved = std::move(assigned);
    EXPECT_EQ(moved.toNarrow(), narrow);
    EXPECT_TRUE(assigned.isNull());
    EXPECT_STREQ(assigned.toNarrow(), "");
}

TEST(KorString, KeepsABorrowedNarrowFormAsLongAsTheTextStays) {
    KorString text = KorString::borrow(u"wide", "narrow");
    text.replaceAll("x", "o"), text.append("");
    EXPECT_STREQ(text.toNarrow(), "narrow");
    text.setAt(0, u's');
    EXPECT_STREQ(text.toNarrow(), "side");
}

TEST(KorString, FillsOnlyATextOfItsOwnAndForgetsItsNarrowForm) {
    char16_t storage[] = u"a%1b";
    KorString text = KorString::borrow(storage, "narrow");
    const KorString arg("x");
    const KorString* const args[] = {&arg};
    text.substitute(args);
    EXPECT_EQ(text.c_str(), storage);
    EXPECT_EQ(text, "a%1b");
    text.append(""), text.substitute(args);
    EXPECT_STREQ(text.toNarrow(), "axb");
}

TEST(KorString, ReusesALargeEnoughBlock) {
    KorString text("0123456789");
    const char16_t* const block = text.c_str();
    const KorString shorter("abc");
    text = shorter;
    EXPECT_EQ(text.c_str(), block);
    text.assign(u"wxyz", 2);
    EXPECT_EQ(text.c_str(), block);
    EXPECT_EQ(text, "wx");
    text.assign("narrow");
    EXPECT_EQ(text.c_str(), block);
    EXPECT_EQ(text, "narrow");
}

TEST(KorString, BorrowsOnAssignmentOfNoUnits) {
    static const char16_t wide[] = u"kept";
    KorString text("before");
    text.assign(wide, 0);
    EXPECT_EQ(text.c_str(), wide);
    EXPECT_FALSE(text.isOwned());
    text.assign("abc", 0);
    EXPECT_TRUE(text.isEmpty());
    text.assign(static_cast<const char16_t*>(nullptr));
    EXPECT_TRUE(text.isNull());
}

TEST(KorString, FoldsOnlyAsciiWhenItAsksForParts) {
    const KorString text(u"One \u00c4pfel");
    EXPECT_TRUE(text.contains(u"oNE \u00c4P", false));
    EXPECT_FALSE(text.contains(u"\u00e4pfel", false));
}

TEST(KorString, SumsItsUnitsAsHash) {
    EXPECT_EQ(KorString().hash(), 0u);
    EXPECT_EQ(KorString(u"a\uffff").hash(), 'a' + 0xFFFFu);
}

TEST(KorString, SharesValuesThatAreMadeAnew) {
    EXPECT_EQ(&KorString::sharedBlank(), &KorString::sharedBlank());
    EXPECT_NE(&KorString::sharedBlank(), &KorString::sharedTitle());
    KorString::freeShared();
    EXPECT_EQ(KorString::sharedBlank(), " ");
    EXPECT_EQ(KorString::sharedTitle(), " ");
    EXPECT_EQ(KorString::sharedEmpty(), "");
    EXPECT_FALSE(KorString::sharedEmpty().isNull());
    KorString::freeShared();
    KorString::freeShared();
}

} // namespace
