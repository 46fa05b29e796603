// SPDX-License-Identifier: Apache-2.0
// What is said of a run that stands still.
#include "server/watcher.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <sstream>

namespace server {
namespace {

void wait(double seconds) { std::this_thread::sleep_for(std::chrono::duration<double>(seconds)); }

TEST(Watcher, SaysSoWhenNothingHasMovedForAWhile) {
    std::ostringstream lines;
    Progress progress(&lines);
    progress.enter("writing faces", 40, 90);
    {
        const Watcher watcher(progress, {0, {}, 1});
        wait(1.3);
        progress.reach(0.5);
    }
    progress.enter("measuring", 90, 100);
    progress.reach(0.1);
    EXPECT_EQ(lines.str(), "progress 40 % writing faces\n"
                           "progress 40 % writing faces, nothing has moved for 1 s\n"
                           "progress 65 % writing faces\n"
                           "progress 90 % measuring\n"
                           "progress 91 % measuring\n");
}

TEST(Watcher, TellsOnceThatTheProcessorTimeIsUsedUp) {
    Progress silent(nullptr);
    std::atomic<int> told{0};
    const Watcher watcher(silent, {1e-9, [&] { ++told; }, 10});
    wait(0.5);
    EXPECT_EQ(told, 1);
}

} // namespace
} // namespace server
