// SPDX-License-Identifier: Apache-2.0
// Drives where there are none.
#include "platform/directory.h"
#include "platform/environment.h"
#include "platform/file.h"
#include "tests/support/scratch.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

namespace platform::test {
namespace {

class Drive : public testing::Test {
protected:
    Drive() { setEnvironment(u"ZEL_DRIVE_Q", scratch.root.u16string().c_str()); }
    ~Drive() override { setEnvironment(u"ZEL_DRIVE_Q", nullptr); }

    Scratch scratch;
};

TEST_F(Drive, IsTheDirectoryThatItsVariableNames) {
    scratch.write("file", "here");
    for (const char16_t* path : {u"Q:\\file", u"q:\\file", u"Q:/file", u"Q:file"}) {
        EXPECT_EQ(access(path, 4), 0) << testing::PrintToString(std::u16string(path));
    }
    EXPECT_EQ(access("q:\\file", 4), 0);
    EXPECT_EQ(makeDirectory(u"Q:\\below"), 0);
    EXPECT_TRUE(scratch.has("below"));
    std::u16string name;
    DirectorySearch* search = findFirst(u"Q:", name);
    EXPECT_NE(search, nullptr);
    findClose(search);
    EXPECT_EQ(nativePath(u"Q:\\a\\b"), scratch.root.u16string() + u"/a/b");
}

TEST_F(Drive, WithoutAVariableIsTheRoot) {
    setEnvironment(u"ZEL_DRIVE_Q", nullptr);
    scratch.write("file", "here");
    EXPECT_EQ(access((u"Q:" + scratch.path(u"file")).c_str(), 4), 0);
    FileStatus status;
    EXPECT_EQ(stat(u"Q:", &status), 0);
    EXPECT_EQ(nativePath(u"Q:"), u"/");
}

TEST_F(Drive, StandsOnlyAtTheStartOfAPath) {
    EXPECT_EQ(nativePath(u"dir\\Q:\\x"), u"dir/Q:/x");
    EXPECT_EQ(nativePath(u"QQ:\\x"), u"QQ:/x");
    EXPECT_EQ(nativePath(u"1:\\x"), u"1:/x");
}

} // namespace
} // namespace platform::test
