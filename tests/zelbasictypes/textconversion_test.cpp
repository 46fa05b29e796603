// SPDX-License-Identifier: Apache-2.0
// UTF-8 and numbers.
#include "tests/zelbasictypes/plainutf8.h"
#include "tests/zelbasictypes/textmodel.h"
#include "zelbasictypes/text/korcstring.h"
#include "zelbasictypes/text/korstring.h"

#include <cfloat>
#include <climits>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

TEST(Utf8, ComesBackForEveryUnit) {
    std::u16string all;
    for (unsigned unit = 1; unit <= 0xFFFF; ++unit) all += static_cast<char16_t>(unit);
    const KorString text(all.c_str());
    EXPECT_EQ(std::string(text.toUtf8()).size(), 0x7Fu + 2 * 0x780 + 3 * 0xF800);
    EXPECT_EQ(KorString::fromUtf8(text.toUtf8()), text);
}

TEST(Utf8, GivesAnEmptyTextForNone) { EXPECT_FALSE(KorString::fromUtf8(nullptr).isNull()); }

/// A random text of runs, one in two a short one, each of units below a limit of its own, from
/// ASCII to all.
std::u16string randomRuns(std::mt19937& random) {
    static const unsigned limits[] = {0x80, 0x80, 0x800, 0x10000};
    std::u16string text;
    for (auto run = random() % 6; run > 0; --run) {
        const unsigned limit = limits[random() % 4];
        for (auto i = random() % (random() % 2 ? 100 : 3); i > 0; --i)
            text += static_cast<char16_t>(1 + random() % (limit - 1));
    }
    return text;
}

TEST(Utf8, AgreesWithPlainConversionsOfRandomText) {
    std::mt19937 random(3);
    for (int i = 0; i < 6000; ++i) {
        const std::u16string units = randomRuns(random);
        const std::vector<char16_t> exact = textmodel::exactCopy(units);
        const KorString text = KorString::borrow(exact.data());
        std::string bytes = plain::toUtf8(units);
        ASSERT_EQ(std::string(text.toUtf8()), bytes);
        const std::vector<char> exactBytes = textmodel::exactCopy(bytes);
        ASSERT_EQ(KorString::fromUtf8(exactBytes.data()).view(), units);
        std::erase_if(bytes, [](char c) { return (c & 0x80) != 0; });
        ASSERT_EQ(std::string(text.toNarrow()), bytes) << "the narrow form is ASCII";
    }
}

TEST(Utf8, AgreesWithPlainDecodingOfDamagedText) {
    std::mt19937 random(4);
    int refused = 0;
    for (int i = 0; i < 20000; ++i) {
        std::string bytes = plain::toUtf8(randomRuns(random)).substr(0, random() % 80);
        for (auto damage = random() % 3; damage > 0 && !bytes.empty(); --damage)
            bytes[random() % bytes.size()] = static_cast<char>(random());
        const std::vector<char> exact = textmodel::exactCopy(bytes);
        const std::u16string expected = plain::fromUtf8(bytes);
        const KorString text = KorString::fromUtf8(exact.data());
        ASSERT_EQ(text.view(), expected) << i;
        ASSERT_FALSE(text.isNull()) << i;
        refused += expected.empty() && !bytes.empty();
    }
    EXPECT_GT(refused, 1000);
}

TEST(Utf8, EncodesLongTextsToTheLastUnit) {
    for (const std::size_t size : {1023, 1024, 1025, 5000, 70000}) {
        const std::u16string most(size - 1, u'x'), other(size, u'\u20ac');
        for (const std::u16string& units : {most + u'x', most + u'\u20ac', other})
            EXPECT_EQ(KorString(units.c_str()).toUtf8(), plain::toUtf8(units)) << size;
    }
}

TEST(TextNumbers, ReadIntegersWithPrefixes) {
    const struct {
        const char16_t* text;
        bool ok;
        std::int32_t value;
    } cases[] = {
        {u"12", true, 12},      {u" -7 mm", true, -7}, {u"0x1F", true, 31},
        {u"010", true, 8},      {u"", false, 0},       {u"mm", false, 0},
        {u"5\u00e95", true, 5}, {u"\uff11", false, 0}, {u"-2147483648", true, INT_MIN},
    };
    for (const auto& row : cases) {
        bool ok = !row.ok;
        EXPECT_EQ(KorString(row.text).toInt(&ok), row.value);
        EXPECT_EQ(ok, row.ok) << row.value;
    }
    EXPECT_EQ(KorString().toInt(), 0);
}

/// The message of the exception that reading `text` throws.
template <class Exception> std::string whatOf(const char* text) {
    try {
        return "read " + std::to_string(KorCString(text).toFloat());
    } catch (const Exception& e) {
        return e.what();
    }
}

TEST(TextNumbers, ReadDoubles) {
    bool ok = false;
    EXPECT_EQ(KorString("2.5e3x").toDouble(&ok), 2500);
    EXPECT_TRUE(ok);
    EXPECT_EQ(KorString("x").toDouble(&ok), 0);
    EXPECT_FALSE(ok);
    EXPECT_EQ(KorCString("0.25").toFloat(), 0.25f);
    EXPECT_EQ(whatOf<std::invalid_argument>("x"), "invalid stof argument");
    EXPECT_EQ(whatOf<std::out_of_range>("1e99"), "stof argument out of range");
    EXPECT_THROW(KorCString().toFloat(), std::invalid_argument);
}

TEST(TextNumbers, PrintIntegers) {
    KorFloatFormat wide;
    wide.spec = "6";
    EXPECT_EQ(KorString(INT_MIN), "-2147483648");
    EXPECT_EQ(KorString(UINT_MAX), "4294967295");
    EXPECT_EQ(KorString(ULLONG_MAX), "18446744073709551615");
    EXPECT_EQ(KorString(-42, wide), "   -42");
    EXPECT_EQ(KorString(LLONG_MIN, wide), "-9223372036854775808");
    EXPECT_EQ(KorCString(7), "7");
    wide.spec = "-100";
    EXPECT_EQ(KorString(42L, wide).length(), 100);
}

TEST(TextNumbers, PrintDoubles) {
    EXPECT_EQ(KorString(0.5), "0.500000");
    EXPECT_EQ(KorString(1e10), "10000000000.000000");
    EXPECT_EQ(KorString(-2e10), "-2.000000e+10");
    EXPECT_EQ(KorString(0.5f), "0.500000");
    EXPECT_EQ(KorString(0.5, {false, true, ".1"}), "0.5");
    EXPECT_EQ(KorString(1e-7, {true, false, ".3"}), "1e-07");
    EXPECT_EQ(KorString(0.5, {true, true, ".2"}), "5.00e-01");
    EXPECT_EQ(KorString(0.5, {true, false, nullptr}), "0.5");
    EXPECT_EQ(KorString(DBL_MAX, {false, false, ".3"}).length(), 313);
    EXPECT_EQ(KorString(1.0, {false, false, "39.3"}).length(), 39);
    EXPECT_EQ(KorString(1.0, {false, false, "40.3"}).length(), 40);
    EXPECT_EQ(KorCString(DBL_MAX).length(), 316);
    EXPECT_EQ(KorCString(1.5f), "1.500000");
}

TEST(TextNumbers, PrintTheShortestTextThatLosesNothing) {
    const struct {
        double value;
        const char* text;
    } cases[] = {
        {0.5, "0.5"},
        {2.0, "2"},
        {-0.0, "0"},
        {0.1, "0.1"},
        {1.0 / 3, "0.3333333333333333"},
        {-2147483648.0, "-2147483648"},
        {2147483648.0, "2147483648"},
        {1e300, "1e+300"},
        {123456.75, "123456.75"},
        {1e-7, "1e-07"},
    };
    for (const auto& row : cases) EXPECT_EQ(KorCString(row.value, true), row.text);
    EXPECT_EQ(KorCString(0.5f, true), "0.5");
    EXPECT_EQ(KorCString(2.0f, true), "2");
    EXPECT_EQ(KorCString(0.1f, true), "0.1");
    EXPECT_EQ(KorCString(std::numeric_limits<double>::infinity(), true), "inf");
    EXPECT_EQ(KorCString(std::numeric_limits<float>::quiet_NaN(), true), "nan");
    EXPECT_THROW(KorCString(DBL_MAX, true), std::out_of_range);
}

} // namespace
