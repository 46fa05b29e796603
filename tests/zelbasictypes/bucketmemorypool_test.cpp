// SPDX-License-Identifier: Apache-2.0
// The size classes of the pool, and the process's change to the shared pool.
#include "zelbasictypes/memory/bucketmemorypool.h"

#include "component/objects/iptr.h"
#include "tests/zelbasictypes/fakehost.h"
#include "tests/zelbasictypes/standardpool.h"

#include <gtest/gtest.h>

#include <cstring>
#include <thread>
#include <utility>

namespace {

constexpr std::int32_t firstLookUps = 601;

class Pool : public testing::Test {
protected:
    ~Pool() override {
        destroyBucketPool();
        fakehost::withdrawAll();
    }

    void* take(std::int32_t size) { return pool->allocate(size, got); }
    /// Gives a block of the size asked for last back.
    void give(void* block) { EXPECT_TRUE(pool->free(static_cast<std::int32_t>(got), block)); }

    IPtr<BucketMemoryPool> pool{standardPool()};
    unsigned got = 0;
};

class ProcessPool : public testing::Test {
protected:
    ProcessPool() { destroyBucketPool(); }
    ~ProcessPool() override {
        destroyBucketPool();
        fakehost::withdrawAll();
    }

    /// Allocates and frees `times` blocks.
    static void churn(std::int32_t times) {
        for (std::int32_t i = 0; i < times; ++i) {
            unsigned got = 0;
            void* block = bucketAlloc(16, got);
            bucketFree(static_cast<std::int32_t>(got), block);
        }
    }
    /// A pool made elsewhere: it doesn't stay the current one of this process.
    static IPtr<BucketMemoryPool> foreignPool() {
        const IPtr<BucketMemoryPool> own(currentBucketPool()), foreign(standardPool());
        destroyBucketPool();
        return foreign;
    }
};

} // namespace

TEST_F(Pool, AnswersWithTheSizeOfTheClass) {
    const std::pair<std::int32_t, unsigned> cases[] = {
        {-3, 4},          {0, 4},
        {1, 4},           {4, 4},
        {5, 8},           {8191, 8192},
        {8192, 8192},     {8193, 16384},
        {16384, 16384},   {16385, 32768},
        {131073, 262144}, {262144, 262144},
        {262145, 262145}, {1000001, 1000001},
    };
    for (const auto& [size, expected] : cases) {
        void* block = take(size);
        EXPECT_EQ(got, expected) << size;
        std::memset(block, 0xA5, got);
        give(block);
    }
}

TEST_F(Pool, RefusesNoBlockAndNoSize) {
    void* none = nullptr;
    EXPECT_FALSE(pool->free(4, none));
    void* block = take(4);
    EXPECT_FALSE(pool->free(0, block));
    EXPECT_NE(block, nullptr);
    EXPECT_TRUE(pool->free(4, block));
    EXPECT_EQ(block, nullptr);
}

TEST_F(Pool, WithoutCachingGivesBlocksStraightBack) {
    void* cachedClass = take(5);
    EXPECT_TRUE(pool->setCaching(false));
    EXPECT_TRUE(pool->setCaching(false));
    pool->free(8, cachedClass);
    void* exact = take(5);
    EXPECT_EQ(got, 5U);
    EXPECT_TRUE(pool->setCaching(true));
    EXPECT_TRUE(pool->setCaching(true));
    // A block of that time fits its class when it is reused.
    void* same = exact;
    give(exact);
    void* reused = take(8);
    EXPECT_EQ(reused, same);
    std::memset(reused, 0x5A, 8);
    give(reused);
}

TEST_F(Pool, DoublesItsClassesWithinItsNumbers) {
    const IPtr<BucketMemoryPool> greedy(new BucketMemoryPool(4, 8192, 0x7FFFFFFF));
    void* block = greedy->allocate(0x40000001, got);
    EXPECT_EQ(got, 0x40000001U) << "too great for a class";
    greedy->free(0x40000001, block);
}

TEST_F(ProcessPool, LooksForTheSharedPoolAtTheFirstAllocationAndEvery601) {
    churn(firstLookUps);
    EXPECT_EQ(fakehost::lookUps("IBucketMemoryPool"), 1);
    churn(1);
    EXPECT_EQ(fakehost::lookUps("IBucketMemoryPool"), 2);
    churn(firstLookUps - 1);
    EXPECT_EQ(fakehost::lookUps("IBucketMemoryPool"), 2);
    churn(1);
    EXPECT_EQ(fakehost::lookUps("IBucketMemoryPool"), 3);
}

TEST_F(ProcessPool, HandsItsBlocksToTheSharedPoolOnceThatIsThere) {
    const IPtr<BucketMemoryPool> shared = foreignPool();
    unsigned got = 0;
    void* block = bucketAlloc(3000, got);
    void* kept = block;
    bucketFree(static_cast<std::int32_t>(got), block);
    churn(firstLookUps - 1);
    fakehost::offer<IBucketMemoryPool>(shared.iface);
    EXPECT_NE(currentBucketPool(), shared.iface);

    churn(1);
    EXPECT_EQ(currentBucketPool(), shared.iface);
    EXPECT_EQ(shared->refCount(), 2);
    EXPECT_EQ(shared->allocate(3000, got), kept);
    EXPECT_TRUE(shared->free(3000, kept));
    const int before = fakehost::lookUps("IBucketMemoryPool");
    churn(2 * firstLookUps);
    EXPECT_EQ(fakehost::lookUps("IBucketMemoryPool"), before);
}

TEST_F(ProcessPool, ConnectsToTheSharedPoolOnRequest) {
    const IPtr<BucketMemoryPool> shared = foreignPool();
    EXPECT_FALSE(connectSharedPool());
    churn(1);
    EXPECT_FALSE(connectSharedPool());
    fakehost::offer<IBucketMemoryPool>(shared.iface);
    EXPECT_TRUE(connectSharedPool());
    EXPECT_EQ(currentBucketPool(), shared.iface);
    EXPECT_TRUE(connectSharedPool());
}

TEST_F(ProcessPool, ServesSeveralThreadsWhileTheSharedPoolTurnsUp) {
    const IPtr<BucketMemoryPool> shared = foreignPool();
    std::thread one([&] {
        takeAndGive(1, 1000, 300);
        fakehost::offer<IBucketMemoryPool>(shared.iface);
        takeAndGive(1, 3000, 300);
    });
    std::thread two([] { takeAndGive(2, 4000, 300); });
    one.join();
    two.join();
    EXPECT_EQ(currentBucketPool(), shared.iface);
}
