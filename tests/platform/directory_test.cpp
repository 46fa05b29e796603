// SPDX-License-Identifier: Apache-2.0
// Searches over one directory.
#include "platform/directory.h"

#include "platform/file.h"
#include "tests/support/scratch.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace platform::test {
namespace {

using Names = std::set<std::u16string>;

Names entries(const std::u16string& directory) {
    Names result;
    std::u16string name;
    DirectorySearch* search = findFirst(directory.c_str(), name);
    if (!search) return result;
    do {
        EXPECT_TRUE(result.insert(name).second) << "found twice";
    } while (findNext(search, name));
    findClose(search);
    return result;
}

TEST(Directory, ListsEveryEntryOnceWithTheDots) {
    const Scratch scratch;
    EXPECT_EQ(entries(scratch.path()), (Names{u".", u".."}));
    scratch.write("file", "");
    scratch.write(".hidden", "");
    std::filesystem::create_directory(scratch.root / "below");
    scratch.write("below/deeper", "");
    const Names expected{u".", u"..", u"file", u".hidden", u"below"};
    EXPECT_EQ(entries(scratch.path()), expected);
    EXPECT_EQ(entries(scratch.path() + u"\\"), expected);
}

TEST(Directory, ThatIsNoneCannotBeSearched) {
    const Scratch scratch;
    scratch.write("file", "");
    std::u16string name = u"kept";
    EXPECT_EQ(findFirst(scratch.path(u"missing").c_str(), name), nullptr);
    EXPECT_EQ(lastError(), Error::notFound);
    EXPECT_EQ(findFirst(scratch.path(u"file").c_str(), name), nullptr);
    EXPECT_EQ(name, u"kept");
    findClose(nullptr);
}

TEST(Directory, TellsTheStateOfWhatItFound) {
    const Scratch scratch;
    scratch.write("file", "12345");
    std::filesystem::create_directory(scratch.root / "below");
    std::u16string name;
    DirectorySearch* search = findFirst(scratch.path().c_str(), name);
    ASSERT_NE(search, nullptr);
    do {
        FileStatus found, named;
        EXPECT_EQ(statFound(search, &found), 0);
        EXPECT_EQ(stat(scratch.path(name).c_str(), &named), 0);
        EXPECT_EQ(found.mode, named.mode);
        EXPECT_EQ(found.size, named.size);
        EXPECT_EQ(found.modifiedTime, named.modifiedTime);
        if (name == u"file") {
            EXPECT_EQ(found.size, 5);
            unlink(scratch.path(name).c_str());
            EXPECT_EQ(statFound(search, &found), -1);
            EXPECT_EQ(found.size, 5) << "left alone";
        }
    } while (findNext(search, name));
    findClose(search);
}

TEST(Directory, WithoutANameIsTheRoot) {
    EXPECT_FALSE(entries(u"").empty());
    EXPECT_EQ(entries(u""), entries(u"\\"));
}

} // namespace
} // namespace platform::test
