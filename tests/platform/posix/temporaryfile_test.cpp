// SPDX-License-Identifier: Apache-2.0
// Names of temporary files, which are taken away by us here and not by the system.
#include "platform/file.h"

#include "tests/support/scratch.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace platform::test {
namespace {

class TemporaryFile : public testing::Test {
protected:
    Descriptor make(const char16_t* name, std::int32_t flags = open_flag::temporary) {
        return open(scratch.path(name).c_str(), open_flag::readWrite | open_flag::create | flags);
    }

    Scratch scratch;
};

TEST_F(TemporaryFile, DoesNotTakeAnotherFileOfItsNameAway) {
    const Descriptor file = make(u"file");
    ASSERT_GE(file, 0);
    ASSERT_EQ(rename(scratch.path(u"file").c_str(), scratch.path(u"moved").c_str()), 0);
    scratch.write("file", "somebody else's");
    EXPECT_TRUE(close(file));
    EXPECT_EQ(scratch.read("file"), "somebody else's");
}

TEST_F(TemporaryFile, ClosedBehindOurBackLeavesItsSuccessorAlone) {
    const Descriptor file = make(u"first");
    ASSERT_GE(file, 0);
    ::close(file);
    const Descriptor next = make(u"second", 0);
    EXPECT_EQ(next, file) << "the system gives the lowest number again";
    EXPECT_TRUE(close(next));
    EXPECT_TRUE(scratch.has("second"));
}

TEST_F(TemporaryFile, GoesAlsoWhenTheDirectoryChanged) {
    const std::u16string before = currentDirectory();
    ASSERT_EQ(changeDirectory(scratch.path().c_str()), 0);
    const Descriptor file =
        open(u"file", open_flag::readWrite | open_flag::create | open_flag::temporary);
    ASSERT_EQ(changeDirectory(before.c_str()), 0);
    ASSERT_GE(file, 0);
    EXPECT_TRUE(scratch.has("file"));
    close(file);
    EXPECT_FALSE(scratch.has("file"));
}

TEST_F(TemporaryFile, IsTheUsersOwn) {
    const mode_t mask = ::umask(022);
    const std::pair<Descriptor, mode_t> files[] = {{make(u"own"), 0600}, {make(u"plain", 0), 0644}};
    ::umask(mask);
    for (const auto& [file, permission] : files) {
        struct ::stat status {};
        ASSERT_EQ(::fstat(file, &status), 0);
        EXPECT_EQ(status.st_mode & 0777, permission);
        close(file);
    }
}

} // namespace
} // namespace platform::test
