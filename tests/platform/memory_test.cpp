// SPDX-License-Identifier: Apache-2.0
// The figures of machine and process.
#include "platform/memory.h"

#include <gtest/gtest.h>

#include <memory>

namespace platform::test {
namespace {

TEST(Memory, OfTheMachineAddsUp) {
    MemoryStatus status;
    ASSERT_TRUE(memoryStatus(status));
    EXPECT_GT(status.physicalTotal, std::uint64_t{1} << 26);
    EXPECT_LE(status.physicalFree, status.physicalTotal);
    EXPECT_LE(status.pageFileFree, status.pageFileTotal);
    EXPECT_GE(status.pageFileTotal, status.physicalTotal);
    EXPECT_LT(status.virtualFree, status.virtualTotal);
    EXPECT_GT(status.virtualFree, 0u);
    EXPECT_EQ(status.virtualExtendedFree, 0u);
}

TEST(Memory, OfTheProcessFollowsItsUse) {
    constexpr std::size_t size = std::size_t{64} << 20;
    WorkingSet before, during;
    ASSERT_TRUE(workingSet(before));
    {
        const auto block = std::make_unique<volatile char[]>(size);
        for (std::size_t i = 0; i < size; i += 1024) block[i] = 1;
        ASSERT_TRUE(workingSet(during));
    }
    EXPECT_GT(during.current, before.current + size / 2);
    WorkingSet after;
    ASSERT_TRUE(workingSet(after));
    EXPECT_GE(after.peak, during.current - size / 8);
    EXPECT_GE(after.peak, after.current);
}

} // namespace
} // namespace platform::test
