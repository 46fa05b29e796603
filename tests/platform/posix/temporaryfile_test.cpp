// SPDX-License-Identifier: Apache-2.0
// Names of temporary files, which are taken away by us here and not by the system.
#include "platform/file.h"

#include "tests/support/scratch.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

namespace platform::test {
namespace {

constexpr std::int32_t flags = open_flag::readWrite | open_flag::create | open_flag::temporary;

TEST(TemporaryFile, DoesNotTakeAnotherFileOfItsNameAway) {
    const Scratch scratch;
    const Descriptor file = open(scratch.path(u"file").c_str(), flags);
    ASSERT_GE(file, 0);
    ASSERT_EQ(rename(scratch.path(u"file").c_str(), scratch.path(u"moved").c_str()), 0);
    scratch.write("file", "somebody else's");
    EXPECT_TRUE(close(file));
    EXPECT_EQ(scratch.read("file"), "somebody else's");
}

TEST(TemporaryFile, ClosedBehindOurBackLeavesItsSuccessorAlone) {
    const Scratch scratch;
    const Descriptor file = open(scratch.path(u"first").c_str(), flags);
    ASSERT_GE(file, 0);
    ::close(file);
    const Descriptor next =
        open(scratch.path(u"second").c_str(), open_flag::writeOnly | open_flag::create);
    EXPECT_EQ(next, file) << "the system gives the lowest number again";
    EXPECT_TRUE(close(next));
    EXPECT_TRUE(scratch.has("second"));
}

TEST(TemporaryFile, GoesAlsoWhenTheDirectoryChanged) {
    const Scratch scratch;
    const std::u16string before = currentDirectory();
    ASSERT_EQ(changeDirectory(scratch.path().c_str()), 0);
    const Descriptor file = open(u"file", flags);
    ASSERT_EQ(changeDirectory(before.c_str()), 0);
    ASSERT_GE(file, 0);
    EXPECT_TRUE(scratch.has("file"));
    close(file);
    EXPECT_FALSE(scratch.has("file"));
}

TEST(TemporaryFile, IsTheUsersOwn) {
    const Scratch scratch;
    const mode_t mask = ::umask(022);
    const Descriptor own = open(scratch.path(u"own").c_str(), flags);
    const Descriptor plain =
        open(scratch.path(u"plain").c_str(), open_flag::writeOnly | open_flag::create);
    ::umask(mask);
    struct ::stat status {};
    ASSERT_EQ(::fstat(own, &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0600u);
    ASSERT_EQ(::fstat(plain, &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0644u);
    close(own);
    close(plain);
}

} // namespace
} // namespace platform::test
