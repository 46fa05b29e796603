// SPDX-License-Identifier: Apache-2.0
// Names that are any bytes: each has a wide form that leads back to it.
#include "platform/file.h"
#include "tests/platform/foundnames.h"
#include "tests/support/scratch.h"

#include <gtest/gtest.h>

#include <random>
#include <set>
#include <string>

namespace platform::test {
namespace {

NameSet entries(const std::u16string& directory) {
    NameSet result = foundNames(directory);
    result.erase(u"."), result.erase(u"..");
    return result;
}

class Names : public testing::Test {
protected:
    Scratch scratch; ///< passes bytes on as they are
};

TEST_F(Names, HaveTheWideFormThatIsTold) {
    const struct {
        std::string bytes;
        std::u16string units;
    } table[] = {
        {"\xe9t\xe9", units({0xDCE9, 't', 0xDCE9})},
        {"a\\b", units({'a', 0xDC5C, 'b'})},
        {"\xed\xa0\x80", units({0xD800})},
        {"\xed\xb0\x80", units({0xDC00})},
        {"\xed\xa0\x80\xed\xb0\x80", units({0xDCED, 0xDCA0, 0xDC80, 0xDC00})},
        {"\xed\xa0\x80\\", units({0xDCED, 0xDCA0, 0xDC80, 0xDC5C})},
        {"\xed\xb2\x80", units({0xDCED, 0xDCB2, 0xDC80})},
        {"\xc0\xaf", units({0xDCC0, 0xDCAF})},
        {"\xf0\x9f\x98\x80", units({0xD83D, 0xDE00})},
        {"\xf4\x90\x80\x80", units({0xDCF4, 0xDC90, 0xDC80, 0xDC80})},
        {"\xe6\xbc", units({0xDCE6, 0xDCBC})},
    };
    for (const auto& row : table) {
        scratch.write(row.bytes, "");
        EXPECT_EQ(entries(scratch.path()), std::set{row.units})
            << testing::PrintToString(row.bytes);
        // A backslash in a narrow path is no part of a name.
        if (row.bytes.find('\\') == row.bytes.npos) {
            EXPECT_EQ(widePath(row.bytes.c_str()), row.units);
        }
        EXPECT_EQ(unlink(scratch.path(row.units).c_str()), 0) << testing::PrintToString(row.bytes);
        EXPECT_FALSE(scratch.has(row.bytes));
    }
}

/// Pieces of sequences in any order, which is where the forms could be taken for each other.
TEST_F(Names, OfRandomPiecesLeadBackToTheirFiles) {
    const std::string pieces[] = {"\xed\xa0\x80", "\xed\xb0\x80",
                                  "\xed\xb2\x80", "\xf0\x9f\x98\x80",
                                  "\xc3\xa9",     "\xed",
                                  "\xa0",         "\x80",
                                  "\\",           "a",
                                  "\xf0\x9f",     "\xff",
                                  "\xed\xb1\x9c", "\xe6\xbc\xa2"};
    std::mt19937 random(7);
    std::set<std::string> made;
    for (int i = 0; i < 500; ++i) {
        std::string name;
        for (std::size_t n = 1 + random() % 6; n > 0; --n) {
            name += pieces[random() % std::size(pieces)];
        }
        scratch.write(name, "");
        made.insert(name);
    }
    const auto listed = entries(scratch.path());
    EXPECT_EQ(listed.size(), made.size()) << "no two names share a form";
    for (const std::u16string& name : listed) {
        EXPECT_EQ(unlink(scratch.path(name).c_str()), 0) << testing::PrintToString(name);
    }
    EXPECT_TRUE(entries(scratch.path()).empty());
}

TEST_F(Names, OfTheCurrentDirectoryMayBeLongAndStrange) {
    const std::u16string before = currentDirectory();
    std::u16string path = scratch.path();
    for (int depth = 0; depth < 4; ++depth) {
        path += u'\\' + std::u16string(100, u'd') + static_cast<char16_t>(0xDC5C) + u'\u00e9';
        ASSERT_EQ(makeDirectory(path.c_str()), 0);
    }
    ASSERT_EQ(changeDirectory(path.c_str()), 0);
    const std::u16string current = currentDirectory();
    EXPECT_EQ(changeDirectory(before.c_str()), 0);
    EXPECT_EQ(current, path);
}

} // namespace
} // namespace platform::test
