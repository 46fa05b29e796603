// SPDX-License-Identifier: Apache-2.0
/// @file
/// Which pool the process works on, and the lock of all pools.
#pragma once

#include "zelbasictypes/memory/bucketmemorypool.h"

#include <atomic>

/// Holds the lock of all pools; one thread may hold it several times over. The lock is made at its
/// first use and never destroyed, since static objects give their strings back at the very end.
class PoolLock {
public:
    PoolLock();
    PoolLock(const PoolLock&) = delete;
    PoolLock& operator=(const PoolLock&) = delete;
    ~PoolLock();
};

/// The choice of the current pool; used under the lock, but for `settled`. Constant initialised and
/// never destroyed, so that strings of static objects may use it at any time.
class CurrentPool {
public:
    constexpr CurrentPool() = default;

    /// The pool once it is there to stay, readable without the lock; null before that.
    BucketMemoryPool* settled() const { return settled_.load(std::memory_order_acquire); }
    BucketMemoryPool* pool() const { return pool_; }
    bool isProvisional() const { return provisional_; }

    /// Takes a reference to `next`, which may be null, and gives the old one back.
    void replace(BucketMemoryPool* next);
    /// Adopts the shared pool, which gets the blocks of a provisional one.
    void settleOn(BucketMemoryPool* shared);
    /// Makes a standard pool for as long as there is no shared one.
    void makeProvisional();

    /// Whether it is time to look for the shared pool again.
    bool isCheckDue();
    void countAllocation() { sinceCheck_ += provisional_; }
    /// Allows the thread's store to go on without the lock for a while: those allocations count
    /// from now on. A single thread looks for the shared pool exactly when it is due; with several
    /// each may hold back the credit of one store.
    void grantCredit(ThreadStore& store);
    /// What a store hasn't used.
    void takeBackCredit(ThreadStore& store);

private:
    void publish();

    BucketMemoryPool* pool_ = nullptr;
    bool provisional_ = false;
    std::int32_t sinceCheck_ = 0;
    std::atomic<BucketMemoryPool*> settled_{nullptr};
};

CurrentPool& zelCurrentPool();
