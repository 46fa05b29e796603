// SPDX-License-Identifier: Apache-2.0
// Identifiers: order, making, and both texts.
#include "zelbasictypes/data/zelguid.h"

#include "tests/zelbasictypes/bytes.h"
#include "tests/zelbasictypes/sampleguid.h"
#include "zelbasictypes/data/binmemory.h"
#include "zelbasictypes/text/korcstring.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace {

const char* const sampleText = "{01ab2345-6789-00cd-ef01-00456789abcd}";
const char* const sampleList =
    "0x1ab2345, 0x6789, 0xcd, 0xef, 0x1, 0x0, 0x45, 0x67, 0x89, 0xab, 0xcd";

std::string textOf(const ZelGuid& id) {
    KorCString text;
    id.toText(text);
    return text.c_str();
}

std::string listOf(const ZelGuid& id) {
    KorCString text;
    id.toList(text);
    return text.c_str();
}

ZelGuid fromText(const KorCString& text) {
    ZelGuid id = sampleGuid;
    id.fromText(text);
    return id;
}

ZelGuid fromList(const KorCString& text) {
    ZelGuid id = sampleGuid;
    id.fromList(text);
    return id;
}

TEST(ZelGuid, TakesItsStoredFormWholeOrNotAtAll) {
    BinOutputMemory output;
    EXPECT_TRUE(sampleGuid.write(output));
    output.flushBuffer();
    EXPECT_EQ(output.bytes(), bytes("01 AB 23 45 67 89 00 CD EF 01 00 45 67 89 AB CD"));
    for (std::size_t length = 0; length <= 16; ++length) {
        BinInputMemory input(output.bytes().data(), length);
        ZelGuid read{1, 2, 3, {4}};
        EXPECT_EQ(read.read(input), length == 16) << length;
        EXPECT_TRUE(ZelGuid::equals(read, length == 16 ? sampleGuid : ZelGuid{1, 2, 3, {4}}))
            << length;
    }
    ASSERT_TRUE(output.close());
    EXPECT_FALSE(sampleGuid.write(output));
}

TEST(ZelGuid, ComparesFieldsInTurnAsUnsignedNumbers) {
    const ZelGuid rising[] = {
        {},
        {0, 0, 0, {0, 0, 0, 0, 0, 0, 0, 0x7F}},
        {0, 0, 0, {0, 0, 0, 0, 0, 0, 0, 0x80}},
        {0, 0, 0, {1, 0, 0, 0, 0, 0, 0, 0}},
        {0, 0, 1, {}},
        {0, 0, 0x8000, {}},
        {0, 1, 0, {}},
        {1, 0, 0, {}},
        {0x80000000, 0, 0, {}},
    };
    for (const ZelGuid& a : rising) {
        for (const ZelGuid& b : rising) {
            EXPECT_EQ(ZelGuid::less(a, b), &a < &b) << textOf(a) << textOf(b);
            EXPECT_EQ(ZelGuid::equals(a, b), &a == &b) << textOf(a) << textOf(b);
        }
    }
}

TEST(ZelGuid, OnlyNilIsInvalid) {
    EXPECT_FALSE(ZelGuid().isValid());
    EXPECT_TRUE((ZelGuid{0, 0, 0, {0, 0, 0, 0, 0, 0, 0, 1}}).isValid());
}

TEST(ZelGuid, GeneratesDifferentRandomValues) {
    std::set<ZelGuid, ZelGuidLess> seen;
    for (int i = 0; i < 1000; ++i) {
        ZelGuid id;
        ASSERT_TRUE(id.generate());
        EXPECT_TRUE(seen.insert(id).second);
        EXPECT_EQ(id.data3 >> 12, 4) << textOf(id);
        EXPECT_EQ(id.data4[0] >> 6, 2) << textOf(id);
    }
}

TEST(ZelGuid, WritesAndReadsBothTexts) {
    EXPECT_EQ(textOf(sampleGuid), sampleText);
    EXPECT_EQ(fromText(sampleText), sampleGuid);
    EXPECT_EQ(listOf(sampleGuid), sampleList);
    EXPECT_EQ(fromList(sampleList), sampleGuid);
    EXPECT_EQ(textOf(ZelGuid()), "{00000000-0000-0000-0000-000000000000}");
    EXPECT_EQ(fromText("{00000000-0000-0000-0000-000000000000}"), ZelGuid());

    ZelGuid full{0xFFFFFFFF, 0xFFFF, 0xFFFF, {255, 255, 255, 255, 255, 255, 255, 255}};
    EXPECT_EQ(fromText(textOf(full).c_str()), full);
    EXPECT_EQ(fromList(listOf(full).c_str()), full);
}

TEST(ZelGuid, BraceTextLooksAtDigitsOnly) {
    EXPECT_EQ(fromText("(01AB2345/6789/00CD/EF01/00456789ABCD)"), sampleGuid);
    const ZelGuid cut = fromText("{01a-2345-6---00cd-ef01-00456789abcz}");
    EXPECT_EQ(cut, ZelGuid()); // 37 characters
    const ZelGuid upToTheFirstOther = fromText("{01ag2345-6----00cd-e.01-00456789abcz}");
    EXPECT_EQ(upToTheFirstOther.data1, 0x01Au);
    EXPECT_EQ(upToTheFirstOther.data2, 0x6u);
    EXPECT_EQ(upToTheFirstOther.data4[0], 0xE);
}

TEST(ZelGuid, BadBraceTextGivesNil) {
    for (const char* text :
         {"", "{01ab2345-6789-00cd-ef01-00456789abcd", //
          "{01ab2345-6789-00cd-ef01-00456789abcd} ", "{g1ab2345-6789-00cd-ef01-00456789abcd}",
          "{01ab2345-6789- 0cd-ef01-00456789abcd}", "{01ab2345--789-00cd-ef01-00456789abcd}",
          "{01ab2345-6789-00cd-ef01-00456789ab+d}"}) {
        EXPECT_EQ(fromText(text), ZelGuid()) << text;
    }
    EXPECT_EQ(fromText(KorCString()), ZelGuid());
}

TEST(ZelGuid, ListKeepsTheFieldsInFrontOfTheFirstBadOne) {
    struct {
        const char* text;
        ZelGuid id;
    } const cases[] = {
        {"", {}},
        {"0x12, 0x34", {0x12, 0x34, 0, {}}},
        {"12,34,  ab", {0x12, 0x34, 0xAB, {}}},
        {"0x12, what, 0x34", {0x12, 0, 0, {}}},
        {"0x12, , 0x34", {0x12, 0, 0, {}}},
        {"1,2,3,4,5,6,7,8,9,a,b,c,d", {1, 2, 3, {4, 5, 6, 7, 8, 9, 10, 11}}},
        {"1,2,3,fe,what", {1, 2, 3, {0xFE}}},
    };
    for (const auto& c : cases) EXPECT_EQ(fromList(c.text), c.id) << c.text;
    const std::string longer = "7," + std::string(200, ' ') + "8";
    EXPECT_EQ(fromList(longer.c_str()), (ZelGuid{7, 0, 0, {}}));
    EXPECT_EQ(fromList(KorCString()), ZelGuid());
}

} // namespace
