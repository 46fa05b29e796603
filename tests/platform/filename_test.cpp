// SPDX-License-Identifier: Apache-2.0
// Names of files that are long, foreign or no Unicode at all: what was made is found again.
#include "platform/file.h"

#include "tests/platform/foundnames.h"
#include "tests/support/scratch.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace platform::test {
namespace {

const NameSet unicode = {
    u"plain.txt",       u" blank and.dot",         u"\u00e4\u00f6\u00df-\u6f22\u5b57-\u0416",
    u"\U0001F600 pair", std::u16string(200, u'n'), std::u16string(80, u'\u6f22'),
};
const NameSet withLoneSurrogates = {
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
bool systemRefuses(const std::filesystem::path& directory, const NameSet& names) {
    if (sizeof(std::filesystem::path::value_type) != sizeof(char16_t)) return false;
    for (const std::u16string& name : names) {
        const std::filesystem::path path = directory / std::wstring(name.begin(), name.end());
        std::ofstream(path).close();
        std::error_code failed;
        if (!std::filesystem::remove(path, failed)) return true;
    }
    return false;
}

class FileNames : public testing::TestWithParam<NameSet> {};

TEST_P(FileNames, ComeBackFromTheDirectoryAsTheyWereMade) {
    const NameSet& names = GetParam();
    const Scratch scratch;
    if (systemRefuses(scratch.root, names)) GTEST_SKIP() << "the file system has no such names";
    for (const std::u16string& name : names) {
        const Descriptor file =
            open(scratch.path(name).c_str(),
                 open_flag::writeOnly | open_flag::create | open_flag::exclusive);
        ASSERT_GE(file, 0) << testing::PrintToString(name);
        close(file);
    }
    const NameSet listed = foundNames(scratch.path());
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
