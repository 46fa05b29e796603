// SPDX-License-Identifier: Apache-2.0
// Small blocks that come and go: one pair after the other, and batches that are given back in the
// order of their coming, the other way around, and in random order. The batches of one size are
// greater than what a thread keeps to itself, so that these races show the exchange with the pool
// as well. The first byte of each block is written. With two threads each works on blocks of its
// own. The pool is also raced through its interface, as a module uses the pool of its host.
#include "benchmarks/memory/peers.h"
#include "benchmarks/memory/races.h"
#include "benchmarks/support/race.h"
#include "zelbasictypes/memory/bucketmemorypool.h"

#include <algorithm>
#include <numeric>
#include <random>
#include <string>
#include <vector>

namespace {

/// What is done in one step: blocks of these sizes come, and go in this order.
struct Work {
    std::vector<std::int32_t> sizes;
    std::vector<std::size_t> order;
};

struct Held {
    void* block;
    unsigned size;
};

struct Bucket {
    Held allocate(std::int32_t size) const {
        Held held{};
        held.block = bucketAlloc(size, held.size);
        return held;
    }
    void release(const Held& held) const {
        bucketFree(static_cast<std::int32_t>(held.size), held.block);
    }
};

struct Interface {
    Held allocate(std::int32_t size) const {
        Held held{};
        held.block = pool->allocate(size, held.size);
        return held;
    }
    void release(const Held& held) const {
        void* block = held.block;
        pool->free(static_cast<std::int32_t>(held.size), block);
    }

    IBucketMemoryPool* pool;
};

struct Calls {
    Held allocate(std::int32_t size) const {
        return {calls.allocate(static_cast<std::size_t>(size)), 0};
    }
    void release(const Held& held) const { calls.release(held.block); }

    AllocatorCalls calls;
};

template <class Allocator>
void run(benchmark::State& state, const Work& work, const Allocator& allocator) {
    std::vector<Held> held(work.sizes.size());
    for (auto _ : state) {
        for (std::size_t i = 0; i < held.size(); ++i) {
            held[i] = allocator.allocate(work.sizes[i]);
            *static_cast<volatile char*>(held[i].block) = 1;
        }
        for (const std::size_t i : work.order) allocator.release(held[i]);
    }
}

template <class Allocator>
void addPeer(const std::string& job, const std::string& name, const Work& work, int threads,
             const Allocator& allocator) {
    const auto race = [=](benchmark::State& state) { run(state, work, allocator); };
    race::add(job, name, race, threads);
}

void addJob(std::string job, const Work& work, int threads) {
    job += threads == 1 ? ", 1 thread" : ", 2 threads";
    addPeer(job, "bucketAlloc", work, threads, Bucket{});
    addPeer(job, "IBucketMemoryPool", work, threads, Interface{currentBucketPool()});
    for (const AllocatorPeer& peer : allocatorPeers()) {
        addPeer(job, peer.name, work, threads, Calls{peer.calls});
    }
}

std::vector<std::int32_t> randomSizes(std::size_t count) {
    std::mt19937 random(5);
    std::vector<std::int32_t> sizes(count);
    for (std::int32_t& size : sizes) size = static_cast<std::int32_t>(random() % 253 + 4);
    return sizes;
}

void addOrders(const std::string& what, const std::vector<std::int32_t>& sizes, int threads) {
    Work work{sizes, std::vector<std::size_t>(sizes.size())};
    std::iota(work.order.begin(), work.order.end(), std::size_t{0});
    addJob(what + ", FIFO", work, threads);
    std::reverse(work.order.begin(), work.order.end());
    addJob(what + ", LIFO", work, threads);
    std::shuffle(work.order.begin(), work.order.end(), std::mt19937(6));
    addJob(what + ", random", work, threads);
}

} // namespace

void addBlockRaces() {
    for (const int threads : {1, 2}) {
        for (const std::int32_t size : {4, 32, 256}) {
            addJob("a pair of " + std::to_string(size) + " B", {{size}, {0}}, threads);
        }
        addOrders("256 of 4 to 256 B", randomSizes(256), threads);
        addOrders("1000 of 32 B", std::vector<std::int32_t>(1000, 32), threads);
    }
}
