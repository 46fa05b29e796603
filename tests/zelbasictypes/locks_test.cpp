// SPDX-License-Identifier: Apache-2.0
// Mutexes and the condition, with threads on both sides.
#include "platform/process.h"
#include "tests/support/variables.h"
#include "zelbasictypes/diagnostics/zelcondition.h"
#include "zelbasictypes/diagnostics/zelmutex.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <deque>
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

TEST(ZelMutex, KeepsOthersOutForAsLongAsItsOwnerHoldsIt) {
    ZelMutex mutex;
    mutex.lock();
    EXPECT_TRUE(mutex.tryLock());
    mutex.unlock();
    EXPECT_FALSE(elsewhere([&] { return mutex.tryLock(); }));
    mutex.unlock();
    EXPECT_TRUE(elsewhere([&] {
        const bool got = mutex.tryLock();
        mutex.unlock();
        return got;
    }));
}

TEST(ZelMutex, WaitsAtLeastOneMillisecond) {
    ZelMutex mutex;
    mutex.lock();
    for (const double seconds : {0.0, 0.0004, -3.0}) {
        const auto start = std::chrono::steady_clock::now();
        EXPECT_FALSE(elsewhere([&] { return mutex.lockFor(seconds); }));
        EXPECT_GE(std::chrono::steady_clock::now() - start, 1ms) << seconds;
    }
    mutex.unlock();
    EXPECT_TRUE(mutex.lockFor(1e30));
    mutex.unlock();
}

TEST(ZelMutex, MakesOthersWaitUntilItsOwnerLetsItGo) {
    ZelMutex mutex;
    std::atomic<bool> got{false};
    mutex.lock();
    std::thread other([&] {
        const std::lock_guard hold(mutex);
        got = true;
    });
    std::this_thread::sleep_for(20ms);
    EXPECT_FALSE(got);
    mutex.unlock();
    other.join();
    EXPECT_TRUE(got);
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

TEST(ZelNamedMutex, PassesOnWhenTheProcessThatHoldsItIsGone) {
    const std::string name = uniqueName();
    ZelNamedMutex mutex;
    ASSERT_TRUE(mutex.create(name.c_str()));
    EXPECT_EXIT(
        {
            ZelNamedMutex other;
            if (other.open(name.c_str()) && other.lock()) platform::exitNow(7);
        },
        testing::ExitedWithCode(7), "");
    EXPECT_TRUE(mutex.lockFor(5));
    EXPECT_TRUE(mutex.unlock());
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

TEST(ZelCondition, PassesItemsFromProducersToConsumers) {
    ZelMutex mutex;
    ZelCondition filled;
    std::deque<int> queue;
    constexpr int items = 500;
    int sum = 0;
    const auto consume = [&] {
        for (int i = 0; i < items; ++i) {
            const std::lock_guard hold(mutex);
            while (queue.empty()) filled.wait(mutex);
            sum += queue.front();
            queue.pop_front();
        }
    };
    const auto produce = [&] {
        for (int i = 1; i <= items; ++i) {
            const std::lock_guard hold(mutex);
            queue.push_back(i);
            i % 3 ? filled.signal() : filled.broadcast();
        }
    };
    std::vector<std::thread> threads;
    for (int i = 0; i < 2; ++i) {
        threads.emplace_back(consume);
        threads.emplace_back(produce);
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(sum, items * (items + 1));
    EXPECT_TRUE(queue.empty());
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
