// SPDX-License-Identifier: Apache-2.0
// What threads keep in front of the pool: one stack with the buckets for one thread, nothing hidden
// from the pool for several.
#include "zelbasictypes/memory/threadstore.h"

#include "component/objects/iptr.h"
#include "tests/support/worker.h"
#include "tests/zelbasictypes/fakehost.h"
#include "tests/zelbasictypes/standardpool.h"
#include "zelbasictypes/memory/bucketmemorypool.h"
#include "zelbasictypes/memory/heapseam.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <map>
#include <mutex>
#include <random>
#include <set>
#include <thread>
#include <utility>
#include <vector>

namespace {

constexpr std::int32_t watched = 200; ///< the class whose blocks on the heap are counted
constexpr std::size_t watchedBytes = watched + 8;

std::mutex heapMutex;
std::set<void*> blocksOnHeap;

void* countingAllocate(std::size_t bytes) {
    void* block = std::malloc(bytes);
    const std::lock_guard hold(heapMutex);
    if (bytes == watchedBytes) blocksOnHeap.insert(block);
    return block;
}

void countingRelease(void* block) {
    {
        const std::lock_guard hold(heapMutex);
        blocksOnHeap.erase(block);
    }
    std::free(block);
}

std::size_t onHeap() {
    const std::lock_guard hold(heapMutex);
    return blocksOnHeap.size();
}

class ThreadStores : public testing::Test {
protected:
    ThreadStores() {
        destroyBucketPool();
        zelSetHeap({countingAllocate, nullptr, countingRelease, nullptr});
        pool = standardPool();
    }
    ~ThreadStores() override {
        pool = nullptr;
        destroyBucketPool();
        EXPECT_EQ(onHeap(), 0u);
        zelSetHeap({});
        fakehost::withdrawAll();
    }

    std::vector<void*> take(std::size_t count) {
        std::vector<void*> blocks(count);
        unsigned got = 0;
        for (void*& block : blocks) block = pool->allocate(watched, got);
        return blocks;
    }
    void give(std::vector<void*> blocks) {
        for (void*& block : blocks) EXPECT_TRUE(pool->free(watched, block));
    }
    /// Has another thread keep so many blocks.
    void letKeep(testsupport::Worker& worker, std::size_t count) {
        worker([&] { give(take(count)); });
        EXPECT_EQ(onHeap(), count);
    }

    IPtr<BucketMemoryPool> pool;
};

constexpr std::size_t few = ThreadStore::smallRoom / 2;      ///< one thread keeps them all
constexpr std::size_t many = 3 * ThreadStore::smallRoom + 1; ///< most of them go to the bucket

} // namespace

/// For one thread the exchange between store and bucket can't be seen: each class is one stack.
TEST_F(ThreadStores, AreOneStackWithTheBucketsForASingleThread) {
    std::mt19937 random(3);
    std::map<unsigned, std::vector<void*>> model;
    std::vector<std::pair<unsigned, void*>> held;
    std::size_t limit = 0;
    for (int turn = 0; turn < 20000; ++turn) {
        if (turn % 500 == 0) limit = random() % 1500;
        if (held.size() < limit) {
            const std::int32_t sizes[] = {4, 30, 256, 257, 4096, 4097};
            unsigned got = 0;
            void* block = pool->allocate(sizes[random() % 6], got);
            std::vector<void*>& stack = model[got];
            if (!stack.empty()) {
                ASSERT_EQ(block, stack.back()) << got << " in turn " << turn;
                stack.pop_back();
            }
            held.emplace_back(got, block);
        } else if (!held.empty()) {
            std::swap(held[random() % held.size()], held.back());
            auto [size, block] = held.back();
            held.pop_back();
            model[size].push_back(block);
            pool->free(static_cast<std::int32_t>(size), block);
        }
    }
    for (auto& [size, block] : held) pool->free(static_cast<std::int32_t>(size), block);
}

TEST_F(ThreadStores, AreClearedWithTheirPool) {
    for (const std::size_t count : {few, many}) {
        testsupport::Worker worker;
        letKeep(worker, count);
        give(take(1));
        pool->clear();
        EXPECT_EQ(onHeap(), 0u);
        letKeep(worker, count);
        destroyBucketPool();
        EXPECT_EQ(onHeap(), 0u);
        pool = standardPool();
    }
}

TEST_F(ThreadStores, GoBackToThePoolWhenTheirThreadEnds) {
    std::set<void*> kept;
    std::thread([&] {
        const std::vector<void*> blocks = take(many);
        kept.insert(blocks.begin(), blocks.end());
        give(blocks);
    }).join();
    const std::vector<void*> again = take(many);
    EXPECT_EQ(std::set<void*>(again.begin(), again.end()), kept);
    give(again);
}

TEST_F(ThreadStores, FollowTheCachingSwitchOfAnotherThread) {
    testsupport::Worker worker;
    letKeep(worker, few);
    pool->setCaching(false);
    worker([&] {
        unsigned got = 0;
        void* block = pool->allocate(watched - 1, got);
        EXPECT_EQ(got, unsigned{watched - 1});
        EXPECT_EQ(onHeap(), few + 1) << "a block of its own";
        pool->free(watched - 1, block);
    });
    EXPECT_EQ(onHeap(), few) << "what was kept stays, and nothing is added";
    pool->setCaching(true);
    const std::vector<void*> again = take(few);
    EXPECT_EQ(onHeap(), few) << "found again, by any thread";
    give(again);
}

TEST_F(ThreadStores, MoveToTheNewPoolOfTheSameClasses) {
    testsupport::Worker worker;
    letKeep(worker, few);
    const IPtr<BucketMemoryPool> old(pool.iface);
    pool = standardPool();
    old->clear();
    EXPECT_EQ(onHeap(), few);
    give(take(few));
    EXPECT_EQ(onHeap(), few) << "all of them are reused";
    worker([&] { give(take(1)); });
    const IPtr<BucketMemoryPool> coarse(new BucketMemoryPool(16, 1024, 4096));
    pool = nullptr;
    EXPECT_EQ(onHeap(), 0u) << "blocks of other classes end with their pool";
    pool = standardPool();
}

/// Every block is somebody's alone, however often the pool takes everything back meanwhile.
TEST_F(ThreadStores, AreTakenBackWhileTheirThreadsWork) {
    std::atomic<int> working{2};
    const auto work = [&](unsigned seed) {
        takeAndGive(seed, 20000, 40);
        --working;
    };
    std::thread one(work, 1);
    std::thread two(work, 2);
    for (int turn = 0; working > 0; ++turn) {
        BucketMemoryPool* current = currentBucketPool();
        if (turn % 3 == 0) current->clear();
        if (turn % 3 == 1) current->setCaching(turn % 2 == 0);
        if (turn % 50 == 2) std::thread([&] { give(take(1)); }).join();
        std::this_thread::yield();
    }
    one.join();
    two.join();
    pool->setCaching(true);
}

TEST_F(ThreadStores, AreDoneWithoutWhereThereIsNoMemoryForThem) {
    zelSetHeap({[](std::size_t bytes) -> void* {
                    return bytes == sizeof(ThreadStore) ? nullptr : std::malloc(bytes);
                },
                nullptr, nullptr, nullptr});
    std::thread([&] {
        const std::vector<void*> blocks = take(few);
        give(blocks);
        EXPECT_EQ(ThreadStore::own(), nullptr);
        const std::vector<void*> again = take(1);
        EXPECT_EQ(again.front(), blocks.back());
        give(again);
    }).join();
}
