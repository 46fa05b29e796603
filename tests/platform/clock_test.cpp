// SPDX-License-Identifier: Apache-2.0
// Time, process numbers and identifiers.
#include "platform/clock.h"
#include "platform/guid.h"

#include <gtest/gtest.h>

#include <cstring>
#include <set>
#include <string>

namespace platform::test {
namespace {

TEST(Clock, RunsAtTheRateItNames) {
    const std::int64_t before = performanceCounter();
    sleep(50);
    const std::int64_t after = performanceCounter();
    const double seconds =
        static_cast<double>(after - before) / static_cast<double>(performanceFrequency());
    EXPECT_GE(seconds, 0.049);
    EXPECT_LT(seconds, 10.0);
}

TEST(Clock, TellsMomentsApart) {
    const std::int64_t first = performanceCounter();
    std::int64_t next = first;
    for (int turn = 0; turn < 1'000'000 && next == first; ++turn) next = performanceCounter();
    EXPECT_GT(next, first);
}

TEST(Guid, IsRandomOfVersionFourAndNeverTheSame) {
    std::set<std::string> seen;
    for (int i = 0; i < 1000; ++i) {
        Guid guid{};
        ASSERT_TRUE(createGuid(&guid));
        EXPECT_EQ(guid.data3 >> 12, 4);
        EXPECT_EQ(guid.data4[0] >> 6, 2);
        std::string bytes(sizeof guid, '\0');
        std::memcpy(bytes.data(), &guid, sizeof guid);
        EXPECT_TRUE(seen.insert(bytes).second);
    }
}

} // namespace
} // namespace platform::test
