// SPDX-License-Identifier: Apache-2.0
// Mutexes and the condition, with threads on both sides.
#include "tests/support/variables.h"
#include "zelbasictypes/diagnostics/zelcondition.h"
#include "zelbasictypes/diagnostics/zelmutex.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace {

using namespace std::chrono_literals;

/// The answer of `ask` on a thread of its own.
bool elsewhere(const std::function<bool()>& ask) {
    bool answer = false;
    std::thread([&] { answer = ask(); }).join();
    return answer;
}

std::string uniqueName() {
    const auto now = std::chrono::steady_clock::now().time_since_epoch().count();
    return testsupport::sharedWithDeathTests("BRIX_TEST_MUTEX", "brix-test-" + std::to_string(now));
}

/// Threads that wait until they are let go.
class Waiters {
public:
    ~Waiters() {
        open(&ZelCondition::broadcast);
        for (std::thread& thread : threads) thread.join();
    }

    void start(int count) {
        for (int i = 0; i < count; ++i) threads.emplace_back([this] { run(); });
        while (waiting < count) std::this_thread::yield();
        // From here on each of them has given the mutex up in its wait.
        const std::lock_guard hold(mutex);
    }
    void open(void (ZelCondition::*wake)()) {
        const std::lock_guard hold(mutex);
        isOpen = true;
        (condition.*wake)();
    }
    /// Whether there come so many wakes, and no more.
    bool wereWoken(int times) const {
        for (int i = 0; i < 2000 && wakes < times; ++i) std::this_thread::sleep_for(1ms);
        std::this_thread::sleep_for(10ms);
        return wakes == times;
    }

    ZelMutex mutex;
    ZelCondition condition;

private:
    void run() {
        const std::lock_guard hold(mutex);
        ++waiting;
        while (!isOpen) {
            condition.wait(mutex);
            ++wakes;
        }
    }

    std::atomic<int> waiting{0};
    std::atomic<int> wakes{0};
    bool isOpen = false;
    std::vector<std::thread> threads;
};

} // namespace

TEST(ZelMutex, WaitsAtLeastOneMillisecond) {
    ZelMutex mutex;
    mutex.lock();
    for (const double seconds : {0.0, 0.0004, -3.0}) {
        const auto start = std::chrono::steady_clock::now();
        EXPECT_FALSE(elsewhere([&] { return mutex.lockFor(seconds); }));
        EXPECT_GE(std::chrono::steady_clock::now() - start, 1ms) << seconds;
    }
    EXPECT_FALSE(elsewhere([&] { return mutex.tryLock(); }));
    mutex.unlock();
    EXPECT_TRUE(mutex.lockFor(1e30) && mutex.tryLock());
    mutex.unlock();
    mutex.unlock();
    EXPECT_TRUE(elsewhere([&] { return mutex.tryLock() && (mutex.unlock(), true); }));
}

TEST(ZelNamedMutex, DoesNothingUntilItIsOpen) {
    ZelNamedMutex mutex;
    EXPECT_TRUE(mutex.isNull());
    EXPECT_FALSE(mutex.lock());
    EXPECT_FALSE(mutex.unlock());
    EXPECT_FALSE(mutex.tryLock());
    EXPECT_FALSE(mutex.lockFor(0.001));
    EXPECT_FALSE(mutex.close());
    EXPECT_FALSE(mutex.open("brix-test-no-such-mutex"));
    EXPECT_FALSE(mutex.open(nullptr));
    EXPECT_FALSE(mutex.create(nullptr));
    EXPECT_TRUE(mutex.isNull());
}

TEST(ZelNamedMutex, IsOneMutexForAllThatOpenItsName) {
    const std::string name = uniqueName();
    ZelNamedMutex maker;
    ASSERT_TRUE(maker.create(name.c_str()));
    EXPECT_FALSE(maker.create("brix-test-another"));
    EXPECT_FALSE(maker.open(name.c_str()));
    ZelNamedMutex second;
    ASSERT_TRUE(second.open(name.c_str()));
    EXPECT_TRUE(maker.lock());
    EXPECT_FALSE(elsewhere([&] { return second.tryLock(); }));
    EXPECT_TRUE(maker.unlock());
    EXPECT_TRUE(elsewhere([&] { return second.lockFor(1) && second.unlock(); }));
    EXPECT_TRUE(second.close());
    EXPECT_TRUE(maker.close());
    EXPECT_TRUE(maker.isNull());
}

TEST(ZelCondition, WaitsWithoutItsMutexWhereThatCouldNotBeMade) {
    ZelMutex mutex;
    const ZelMutex handle(std::move(mutex));
    ZelCondition condition;
    std::atomic<bool> woken = false;
    std::thread waiter([&] {
        condition.wait(mutex);
        woken = true;
    });
    while (!woken) condition.signal();
    waiter.join();
}

TEST(ZelCondition, KeepsNoWakeForThoseWhoWaitLater) {
    Waiters three;
    three.condition.signal();
    three.condition.broadcast();
    three.start(3);
    EXPECT_TRUE(three.wereWoken(0));
}

TEST(ZelCondition, SignalWakesOneAndBroadcastTheOthers) {
    Waiters three;
    three.start(3);
    three.open(&ZelCondition::signal);
    EXPECT_TRUE(three.wereWoken(1));
    three.open(&ZelCondition::broadcast);
    EXPECT_TRUE(three.wereWoken(3));
}

/// Were a waiter still to go when the broadcast comes back, the signal behind it would stay for the
/// one who comes next: the first that waits again.
TEST(ZelCondition, BroadcastComesBackWhenAllHaveGone) {
    for (int turn = 0; turn < 50; ++turn) {
        Waiters three;
        three.start(3);
        {
            const std::lock_guard hold(three.mutex);
            three.condition.broadcast();
            three.condition.signal();
        }
        EXPECT_TRUE(three.wereWoken(3));
    }
}

TEST(ZelSpinCount, IsReadFromTheEnvironmentOnce) {
    GTEST_FLAG_SET(death_test_style, "threadsafe"); // a new process reads the variable anew
    const std::pair<const char*, int> cases[] = {{"-5", -5}, {"40", 40}, {"none", 0}};
    for (const auto& [value, expected] : cases) {
        ASSERT_TRUE(testsupport::setVariable("ZEL_SPIN_COUNT", value));
        EXPECT_EXIT(
            {
                const int first = zelSpinCount();
                testsupport::setVariable("ZEL_SPIN_COUNT", "77");
                std::exit(first + 10 + (zelSpinCount() - first));
            },
            testing::ExitedWithCode(expected + 10), "")
            << value;
    }
    testsupport::clearVariable("ZEL_SPIN_COUNT");
    EXPECT_EXIT(std::exit(zelSpinCount() + 10), testing::ExitedWithCode(9), "");
}
