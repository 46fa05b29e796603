// SPDX-License-Identifier: Apache-2.0
/// @file
/// Which pool the process works on, and the lock of all pools.
#pragma once

#include "zelbasictypes/memory/bucketmemorypool.h"

#include <atomic>

/// Holds the lock of all pools. One thread may hold it several times. The lock is made at its first
/// use and never destroyed, since static objects give their strings back at the very end.
class PoolLock {
public:
    PoolLock();
    PoolLock(const PoolLock&) = delete;
    PoolLock& operator=(const PoolLock&) = delete;
    ~PoolLock();
};

/// The choice of the current pool. Everything except `settled` is used under the lock. It is
/// constant-initialised and never destroyed, so that strings of static objects may use it at any
/// time.
class CurrentPool {
public:
    constexpr CurrentPool() = default;

    /// The pool once it is final, readable without the lock; null before that.
    BucketMemoryPool* settled() const { return settled_.load(std::memory_order_acquire); }
    /// The current pool, or null.
    BucketMemoryPool* pool() const { return pool_; }
    /// Whether the pool is to be replaced by the host's shared one.
    bool isProvisional() const { return provisional_; }

    /// Takes a reference to `next`, which may be null, and gives the old one back.
    void replace(BucketMemoryPool* next);
    /// Adopts the shared pool and hands it the blocks of a provisional one.
    void settleOn(BucketMemoryPool* shared);
    /// Makes a standard pool for use until there is a shared one.
    void makeProvisional();

    /// Whether it is time to look for the shared pool again.
    bool isCheckDue();
    /// Counts one allocation towards the next check.
    void countAllocation() { sinceCheck_ += provisional_; }
    /// Allows the thread's store to serve some allocations without the lock; they count as made.
    /// With a single thread the shared pool is looked up exactly when it is due; with several, each
    /// may delay that by the credit of one store.
    void grantCredit(ThreadStore& store);
    /// Takes back the credit that a store hasn't used.
    void takeBackCredit(ThreadStore& store);

private:
    void publish();

    BucketMemoryPool* pool_ = nullptr;
    bool provisional_ = false;
    std::int32_t sinceCheck_ = 0;
    std::atomic<BucketMemoryPool*> settled_{nullptr};
};

/// The one object of the module.
CurrentPool& zelCurrentPool();
