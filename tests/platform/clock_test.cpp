// SPDX-License-Identifier: Apache-2.0
// Time.
#include "platform/clock.h"

#include <gtest/gtest.h>

#include <cstdint>

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

} // namespace
} // namespace platform::test
