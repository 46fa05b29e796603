// SPDX-License-Identifier: Apache-2.0
// Kernel objects among the threads of one process.
#include "platform/sync.h"

#include "tests/support/wine.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <cstdint>
#include <functional>
#include <thread>
#include <vector>

namespace platform::test {
namespace {

using Clock = std::chrono::steady_clock;

bool onAnotherThread(const std::function<bool()>& question) {
    bool answer = false;
    std::thread([&] { answer = question(); }).join();
    return answer;
}

/// Four threads count together, each step of theirs through `inTurn`.
template <class InTurn> void expectKeptApart(InTurn inTurn) {
    int count = 0;
    const auto step = [&count] {
        const int seen = count;
        std::this_thread::yield();
        count = seen + 1;
    };
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t) {
        threads.emplace_back([&] {
            for (int i = 0; i < 200; ++i) inTurn(step);
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(count, 800);
}

TEST(Mutex, IsItsOwnersUntilGivenBackAsOftenAsTaken) {
    const auto mutex = makeMutex();
    const auto canOthersTake = [&] {
        return onAnotherThread([&] { return mutex->wait(0) && mutex->signal(); });
    };
    EXPECT_TRUE(mutex->wait(infinite));
    EXPECT_TRUE(mutex->wait(0));
    EXPECT_FALSE(canOthersTake());
    EXPECT_FALSE(onAnotherThread([&] { return mutex->signal(); })) << "only the owner lets go";
    EXPECT_TRUE(mutex->signal());
    EXPECT_FALSE(canOthersTake());
    EXPECT_TRUE(mutex->signal());
    EXPECT_TRUE(canOthersTake());
    EXPECT_FALSE(mutex->signal()) << "nobody owns it";
}

TEST(Waiting, LastsAsLongAsAsked) {
    const auto event = makeEvent(false, false);
    const auto before = Clock::now();
    EXPECT_FALSE(event->wait(40));
    const auto waited = Clock::now() - before;
    EXPECT_GE(waited, std::chrono::milliseconds(39));
    EXPECT_LT(waited, std::chrono::seconds(10));
}

TEST(Semaphore, LetsThroughAsManyAsItCounts) {
    const auto semaphore = makeSemaphore(1, 3);
    EXPECT_TRUE(semaphore->wait(0));
    EXPECT_FALSE(semaphore->wait(0));
    EXPECT_TRUE(semaphore->raise(2));
    EXPECT_FALSE(semaphore->raise(2)) << "past the maximum";
    EXPECT_FALSE(semaphore->raise(0));
    EXPECT_TRUE(semaphore->signal());
    EXPECT_FALSE(semaphore->signal());
    EXPECT_TRUE(semaphore->wait(0) && semaphore->wait(0) && semaphore->wait(0));
    EXPECT_FALSE(semaphore->wait(0)) << "a refused raise must add nothing";
    EXPECT_EQ(makeSemaphore(2, 1), nullptr);
    EXPECT_EQ(makeSemaphore(-1, 1), nullptr);
    EXPECT_EQ(makeSemaphore(0, 0), nullptr);
}

TEST(Event, OfTheAutomaticKindLetsOneThrough) {
    const auto event = makeEvent(false, true);
    EXPECT_TRUE(event->wait(0));
    EXPECT_FALSE(event->wait(0));
    event->signal();
    event->signal();
    EXPECT_TRUE(event->wait(0));
    EXPECT_FALSE(event->wait(0)) << "it doesn't count";
}

TEST(Event, OfTheManualKindStaysUntilReset) {
    const auto event = makeEvent(true, false);
    EXPECT_FALSE(event->wait(0));
    std::atomic<int> through = 0;
    std::vector<std::thread> waiters;
    for (int t = 0; t < 3; ++t) {
        waiters.emplace_back([&] { through += event->wait(infinite) ? 1 : 0; });
    }
    event->signal();
    for (std::thread& waiter : waiters) waiter.join();
    EXPECT_EQ(through, 3);
    EXPECT_TRUE(event->wait(0));
    event->reset();
    EXPECT_FALSE(event->wait(0));
}

TEST(SignalAndWait, HandsOverWithoutLosingATurn) {
    const auto ping = makeEvent(false, false);
    const auto pong = makeEvent(false, false);
    int turns = 0;
    std::thread other([&] {
        ping->wait(infinite);
        for (int i = 0; i < 1000; ++i) {
            ++turns;
            if (i < 999) signalAndWait(*pong, *ping);
        }
        pong->signal();
    });
    for (int i = 0; i < 1000; ++i) EXPECT_TRUE(signalAndWait(*ping, *pong));
    other.join();
    EXPECT_EQ(turns, 1000);
}

TEST(SignalAndWait, ReleasesAMutexAndDoesNotWaitWhenItCannot) {
    const auto mutex = makeMutex();
    const auto semaphore = makeSemaphore(0, 1);
    EXPECT_FALSE(signalAndWait(*mutex, *semaphore)) << "the mutex isn't ours";
    mutex->wait(infinite);
    std::thread other([&] {
        mutex->wait(infinite);
        semaphore->signal();
        mutex->signal();
    });
    EXPECT_TRUE(signalAndWait(*mutex, *semaphore));
    EXPECT_TRUE(mutex->wait(infinite));
    mutex->signal();
    other.join();
}

TEST(CriticalSection, KeepsThreadsApartWithAnySpinCount) {
    for (const std::int32_t spins : {-1, 0, 4000}) {
        CriticalSection section(spins);
        EXPECT_EQ(section.spinCount(), spins);
        expectKeptApart([&](auto step) {
            const CriticalSectionLock once(section);
            const CriticalSectionLock again(section);
            step();
        });
    }
}

/// Two threads count, each says how far it is and then looks how far the other one is. Of any two
/// steps, one on either side, at least one sees the other, although only one side has a barrier.
TEST(BarrierOnAllThreads, OrdersWhatAnotherThreadDoesWithoutOne) {
    constexpr std::size_t steps = 1'000'000;
    alignas(64) std::atomic<std::size_t> mine{0};
    alignas(64) std::atomic<std::size_t> theirs{0};
    std::vector<std::size_t> seenByOther(steps + 2, SIZE_MAX);
    std::vector<std::size_t> seenHere{0};
    std::thread other([&] {
        for (std::size_t k = 1; k <= steps; ++k) {
            theirs.store(k, std::memory_order_relaxed);
            std::atomic_signal_fence(std::memory_order_seq_cst);
            seenByOther[k] = mine.load(std::memory_order_relaxed);
        }
    });
    while (seenHere.back() < steps) {
        mine.store(seenHere.size(), std::memory_order_relaxed);
        ASSERT_TRUE(barrierOnAllThreads());
        seenHere.push_back(theirs.load(std::memory_order_relaxed));
    }
    other.join();
    std::size_t missed = 0;
    for (std::size_t i = 1; i < seenHere.size(); ++i) missed += seenByOther[seenHere[i] + 1] < i;
    if (missed > 0 && testsupport::runsByWine()) {
        GTEST_SKIP() << "this Wine's flush of all processors' writes orders nothing";
    }
    EXPECT_EQ(missed, 0u);
}

} // namespace
} // namespace platform::test
