// SPDX-License-Identifier: Apache-2.0
// The coming and going of the threads' stores.
#include "zelbasictypes/memory/threadstore.h"

#include "platform/sync.h"
#include "zelbasictypes/memory/bucketmemorypool.h"
#include "zelbasictypes/memory/currentpool.h"
#include "zelbasictypes/memory/heapseam.h"

#include <algorithm>
#include <new>
#include <thread>

constinit thread_local ThreadStore* ThreadStore::own_ = nullptr;

namespace {

/// All stores of the module; changed under the pool lock.
constinit ThreadStore* firstStore = nullptr;

/// Once a thread is on its way out, its last blocks go straight to the buckets.
constinit thread_local bool ended = false;

} // namespace

void ThreadStore::end(void* store) {
    const PoolLock hold;
    ended = true;
    static_cast<ThreadStore*>(store)->leave();
}

void ThreadStore::removeAll() {
    platform::forgetThreadEnds();
    ended = true;
    while (firstStore) firstStore->remove();
}

ThreadStore* ThreadStore::enlist(BucketMemoryPool* pool) {
    if (!own_ && !ended) own_ = make();
    if (own_) own_->pool_.store(pool, std::memory_order_relaxed);
    return own_;
}

/// Without memory there is no store, and the thread goes through the lock.
ThreadStore* ThreadStore::make() {
    static const bool canWithdraw = platform::barrierOnAllThreads();
    void* memory = canWithdraw ? zelHeap().allocate(sizeof(ThreadStore)) : nullptr;
    if (!memory) return nullptr;
    auto* store = new (memory) ThreadStore;
    platform::atThreadEnd(end, store);
    store->next_ = firstStore;
    return firstStore = store;
}

ThreadStore* ThreadStore::withdrawAll() {
    bool fromOthers = false;
    for (ThreadStore* store = firstStore; store; store = store->next_) {
        if (!store->pool_.load(std::memory_order_relaxed)) continue;
        store->pool_.store(nullptr, std::memory_order_relaxed);
        fromOthers |= store != own_;
    }
    if (fromOthers) {
        platform::barrierOnAllThreads();
        for (ThreadStore* store = firstStore; store; store = store->next_) {
            while (store->busy_.load(std::memory_order_acquire)) std::this_thread::yield();
        }
    }
    return firstStore;
}

void ThreadStore::dropOldest(std::uint32_t index, std::uint32_t count) {
    std::copy(blocks(index) + count, blocks(index) + counts_[index], blocks(index));
    counts_[index] -= count;
}

void ThreadStore::leave() {
    if (BucketMemoryPool* pool = pool_.load(std::memory_order_relaxed)) pool->empty(*this);
    remove();
}

void ThreadStore::remove() {
    ThreadStore** place = &firstStore;
    while (*place != this) place = &(*place)->next_;
    *place = next_;
    own_ = nullptr;
    zelHeap().release(this);
}
