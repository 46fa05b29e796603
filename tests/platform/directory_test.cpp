// SPDX-License-Identifier: Apache-2.0
// Searches over one directory.
#include "platform/directory.h"

#include "platform/file.h"
#include "tests/platform/foundnames.h"
#include "tests/support/scratch.h"

#include <gtest/gtest.h>

#include <string>

namespace platform::test {
namespace {

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
    EXPECT_FALSE(foundNames(u"").empty());
    EXPECT_EQ(foundNames(u""), foundNames(u"\\"));
}

} // namespace
} // namespace platform::test
