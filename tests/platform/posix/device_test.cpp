// SPDX-License-Identifier: Apache-2.0
// Files that are none: they can be opened and written, but not cut or copied by the system, or they
// give what they have in pieces.
#include "platform/file.h"

#include "tests/support/scratch.h"
#include "zelbasictypes/files/fileoperations.h"
#include "zelbasictypes/text/korstring.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <sys/stat.h>
#include <thread>

namespace platform::test {
namespace {

TEST(Device, MayBeOpenedForCutting) {
    const Descriptor null = open(u"\\dev\\null", open_flag::writeOnly | open_flag::truncate);
    ASSERT_GE(null, 0);
    EXPECT_EQ(write(null, "gone", 4), 4);
    EXPECT_TRUE(close(null));
}

TEST(Device, TellsOfAFullDisk) {
    const Descriptor full = open("/dev/full", open_flag::writeOnly);
    if (full < 0) GTEST_SKIP() << "no full device on this system";
    EXPECT_EQ(write(full, "x", 1), -1);
    EXPECT_EQ(lastError(), Error::noSpace);
    close(full);
}

/// Such files are empty by their status and yet have something to read.
TEST(Device, ThatTheSystemMakesUpIsLeftForReading) {
    const Scratch scratch;
    const Descriptor from = open("/proc/self/status", open_flag::readOnly);
    if (from < 0) GTEST_SKIP() << "no process files on this system";
    const Descriptor to =
        open(scratch.path(u"copy").c_str(), open_flag::writeOnly | open_flag::create);
    const std::int64_t moved = moveRange(from, to);
    char block[16];
    EXPECT_TRUE(moved > 0 || read(from, block, sizeof block) > 0);
    close(from);
    close(to);
}

/// A pipe whose writer pauses: the copy by wide names is over at the first short read, the one by
/// narrow names when the writer is done.
TEST(Device, ThatGivesPiecesIsCopiedToItsPauseOrItsEnd) {
    const Scratch scratch;
    const std::string pipe = scratch.narrow("pipe"), first(2048, 'a'), rest = "before the pause";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    std::signal(SIGPIPE, SIG_IGN);
    const auto copied = [&](auto copy) {
        std::thread writer([&] {
            std::FILE* to = std::fopen(pipe.c_str(), "wb");
            std::setvbuf(to, nullptr, _IONBF, 0);
            std::fwrite((first + rest).data(), 1, first.size() + rest.size(), to);
            std::this_thread::sleep_for(std::chrono::milliseconds(100));
            std::fwrite("behind it", 1, 9, to);
            std::fclose(to);
        });
        EXPECT_TRUE(copy());
        writer.join();
        return scratch.read("copy");
    };
    EXPECT_EQ(copied([&] {
                  return copyFile(KorString(scratch.path(u"pipe").c_str()),
                                  KorString(scratch.path(u"copy").c_str()));
              }),
              first + rest);
    EXPECT_EQ(copied([&] { return copyFile(pipe.c_str(), scratch.narrow("copy").c_str()); }),
              first + rest + "behind it");
}

} // namespace
} // namespace platform::test
