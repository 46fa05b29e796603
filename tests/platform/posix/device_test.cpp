// SPDX-License-Identifier: Apache-2.0
// Files that are none: they can be opened and written, but not cut or copied by the system.
#include "platform/file.h"

#include "tests/support/scratch.h"

#include <gtest/gtest.h>

#include <cstdio>

namespace platform::test {
namespace {

TEST(Device, MayBeOpenedForCutting) {
    const Descriptor null = open(u"\\dev\\null", open_flag::writeOnly | open_flag::truncate);
    ASSERT_GE(null, 0);
    EXPECT_EQ(write(null, "gone", 4), 4);
    EXPECT_TRUE(close(null));
    std::FILE* stream = openStream("/dev/null", "wb");
    ASSERT_NE(stream, nullptr);
    std::fclose(stream);
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

} // namespace
} // namespace platform::test
