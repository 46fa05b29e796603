// SPDX-License-Identifier: Apache-2.0
// Modules with copies of the library of their own, and the pool of their host.
#include "component/objects/iptr.h"
#include "platform/module.h"
#include "tests/support/fakemanager.h"
#include "tests/zelbasictypes/standardpool.h"

#include <gtest/gtest.h>

#include <atomic>
#include <set>
#include <thread>
#include <vector>

namespace {

/// One module's doors, for as long as it is loaded.
struct Module {
    explicit Module(const char* path) : library(platform::loadModule(path)) {}
    Module(const Module&) = delete;
    Module& operator=(const Module&) = delete;
    ~Module() { platform::unloadModule(library); }

    template <class Function> Function door(const char* name) const {
        return reinterpret_cast<Function>(platform::findEntry(library, name));
    }

    platform::Module library;
    void (*setManager)(IZelComponentManager*) = door<void (*)(IZelComponentManager*)>("setManager");
    void* (*allocate)(std::int32_t,
                      unsigned*) = door<void* (*)(std::int32_t, unsigned*)>("allocateBlock");
    void (*free)(std::int32_t, void*) = door<void (*)(std::int32_t, void*)>("freeBlock");
    bool (*connect)() = door<bool (*)()>("connectPool");
};

/// Reference counts from several threads.
class Manager : public testsupport::FakeManager {
    void incrementCount(std::int32_t* count) override { ++std::atomic_ref(*count); }
    bool decrementCount(std::int32_t* count) override { return --std::atomic_ref(*count) == 0; }
};

void work(const Module& module, unsigned seed) {
    const auto take = [&](std::int32_t size, unsigned& got) { return module.allocate(size, &got); };
    takeAndGive(seed, 20000, 12, take, module.free);
}

} // namespace

TEST(PoolModules, HandTheirBlocksToTheHostsPoolAndWorkOnIt) {
    constexpr std::int32_t size = 120;
    const Module one(POOL_MODULE_ONE);
    const Module two(POOL_MODULE_TWO);
    ASSERT_TRUE(one.connect && two.connect);
    ASSERT_NE(one.allocate, two.allocate) << "each has its own copy";
    Manager manager;
    std::set<void*> early;
    for (const Module* module : {&one, &two}) {
        module->setManager(&manager);
        EXPECT_FALSE(module->connect());
        std::vector<void*> blocks(300);
        unsigned got = 0;
        for (void*& block : blocks) early.insert(block = module->allocate(size, &got));
        for (void* block : blocks) module->free(size, block);
    }

    const IPtr<BucketMemoryPool> pool(standardPool());
    manager.offer(IBucketMemoryPool::interfaceName, pool.iface);
    EXPECT_TRUE(one.connect());
    EXPECT_TRUE(two.connect());
    std::set<void*> late;
    unsigned got = 0;
    for (std::size_t i = 0; i < early.size(); ++i) late.insert(pool->allocate(size, got));
    EXPECT_EQ(late, early) << "what both had kept";
    for (void* block : late) pool->free(size, block);

    std::thread first([&] { work(one, 1); });
    std::thread second([&] { work(two, 2); });
    for (int i = 0; i < 200; ++i) pool->clear();
    first.join();
    second.join();
    void* block = one.allocate(size, &got);
    two.free(size, block);
    EXPECT_EQ(pool->allocate(size, got), block) << "freed by another than its maker";
    pool->free(size, block);
    pool->clear();
    destroyBucketPool();
    for (const Module* module : {&one, &two}) module->setManager(nullptr);
}

/// The host's pool couldn't free them any more.
TEST(PoolModules, TakeTheirBlocksAlongWhenTheyAreUnloaded) {
    Manager manager;
    const IPtr<BucketMemoryPool> pool(standardPool());
    const std::int32_t references = pool->refCount();
    {
        const Module module(POOL_MODULE_ONE);
        module.setManager(&manager);
        unsigned got = 0;
        void* early = module.allocate(120, &got);
        module.free(120, early);
        manager.offer(IBucketMemoryPool::interfaceName, pool.iface);
        ASSERT_TRUE(module.connect());
        EXPECT_EQ(pool->allocate(120, got), early);
        module.free(120, early);
    }
    EXPECT_EQ(pool->refCount(), references + 1) << "the manager's";
    unsigned got = 0;
    void* block = pool->allocate(120, got);
    pool->free(120, block);
    pool->clear();
    destroyBucketPool();
}
