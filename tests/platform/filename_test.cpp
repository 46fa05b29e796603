// SPDX-License-Identifier: Apache-2.0
// Names of files that are long, foreign or no Unicode at all: what was made is found again.
#include "platform/directory.h"
#include "platform/file.h"

#include "tests/support/scratch.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <set>
#include <string>

namespace platform::test {
namespace {

std::u16string units(std::initializer_list<unsigned> values) {
    std::u16string result;
    for (const unsigned value : values) result += static_cast<char16_t>(value);
    return result;
}

using Names = std::set<std::u16string>;

const Names unicode = {
    u"plain.txt",       u" blank and.dot",         u"\u00e4\u00f6\u00df-\u6f22\u5b57-\u0416",
    u"\U0001F600 pair", std::u16string(200, u'n'), std::u16string(80, u'\u6f22'),
};
const Names withLoneSurrogates = {
    units({0xD800}),
    units({'a', 0xDC00, 'b'}),
    units({0xDC00, 0xD800}),
    units({0xD83D, 0xD83D, 0xDE00, 0xDE00}),
    units({0xD800, 'x', 0xDBFF, 0x20AC}),
    units({'e', 0xDCE9, 't', 0xDCFF}),
    units({0xDC7F, 0xDD00, 0xDFFF}),
};

/// Whether the target's system itself, asked without us, has no such names: the file systems that
/// another system lends to it may be like that.
bool systemRefuses(const std::filesystem::path& directory, const Names& names) {
    if (sizeof(std::filesystem::path::value_type) != sizeof(char16_t)) return false;
    for (const std::u16string& name : names) {
        std::ofstream file(directory / std::wstring(name.begin(), name.end()));
        file.close();
        std::error_code failed;
        if (!std::filesystem::remove(directory / std::wstring(name.begin(), name.end()), failed)) {
            return true;
        }
    }
    return false;
}

class FileNames : public testing::TestWithParam<Names> {};

TEST_P(FileNames, ComeBackFromTheDirectoryAsTheyWereMade) {
    const Names& names = GetParam();
    const Scratch scratch;
    if (systemRefuses(scratch.root, names)) GTEST_SKIP() << "the file system has no such names";
    for (const std::u16string& name : names) {
        const Descriptor file =
            open(scratch.path(name).c_str(),
                 open_flag::writeOnly | open_flag::create | open_flag::exclusive);
        ASSERT_GE(file, 0) << testing::PrintToString(name);
        close(file);
    }
    Names listed;
    std::u16string name;
    DirectorySearch* search = findFirst(scratch.path().c_str(), name);
    ASSERT_NE(search, nullptr);
    do {
        listed.insert(name);
    } while (findNext(search, name));
    findClose(search);
    for (const std::u16string& made : names) {
        EXPECT_TRUE(listed.contains(made)) << testing::PrintToString(made);
        EXPECT_EQ(unlink(scratch.path(made).c_str()), 0) << testing::PrintToString(made);
    }
    EXPECT_EQ(listed.size(), names.size() + 2) << "and the two dots";
}

INSTANTIATE_TEST_SUITE_P(OfUnicode, FileNames, testing::Values(unicode));
INSTANTIATE_TEST_SUITE_P(WithLoneSurrogates, FileNames, testing::Values(withLoneSurrogates));

} // namespace
} // namespace platform::test
