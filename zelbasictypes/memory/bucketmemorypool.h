// SPDX-License-Identifier: Apache-2.0
/// @file
/// The pool that keeps freed blocks by size class, and the one pool that a process works on.
///
/// All calls here are safe from any thread, but that a pool that was the current one lives no
/// longer than its references: who takes the host's pool away, by destroying the current pool or by
/// making another, has the host hold on to it or the other threads pause. One lock guards the
/// buckets of all pools and the choice of the current pool; in front of the current pool each
/// thread has a small store of its own, which the pool takes back whenever it is asked for
/// everything that it keeps. Every block carries in front of it the way to give it back, so that it
/// may outlive the pool that it came from. Nothing here reports failure: an allocation that fails
/// for good ends the process.
///
/// Each module links its own copy of all this, with a lock and a current pool of its own, but the
/// pools that modules share are reached through their virtual operations, and so through the copy
/// of the module that made them.
#pragma once

#include "component/objects/services/ibucketmemorypool.h"

class MemoryBucket;
class ThreadStore;

/// The classes rise in steps of `granularity` up to `linearMax` (a whole number of steps, else it
/// is rounded up) and double from there up to `bucketMax`, at most 0x40000000; greater blocks are
/// not kept. All three are in bytes. A pool belongs to its references, and the newest one becomes
/// the current pool.
class BucketMemoryPool : public virtual IBucketMemoryPool {
public:
    static constexpr const char* interfaceName = "BucketMemoryPool";

    static constexpr std::int32_t standardGranularity = 4;
    static constexpr std::int32_t standardLinearMax = 8192;
    static constexpr std::int32_t standardBucketMax = 0x40000;

    /// Takes over the cached blocks of the current pool when that has the same classes.
    BucketMemoryPool(std::int32_t granularity, std::int32_t linearMax, std::int32_t bucketMax);
    BucketMemoryPool(const BucketMemoryPool&) = delete;
    BucketMemoryPool& operator=(const BucketMemoryPool&) = delete;
    ~BucketMemoryPool() override;

    void qi(const char* name, void** result, std::int32_t reserved = 0) override;
    const char* className() override { return interfaceName; }

    bool clear() override;
    /// A `size` of 0 or less counts as 1.
    void* allocate(std::int32_t size, unsigned& got) override;
    bool free(std::int32_t size, void*& block) override;
    bool setCaching(bool on) override;

    /// Gives all cached blocks to `target`, or frees them if that has other classes.
    void handOverTo(BucketMemoryPool& target);
    /// Brings back what all threads keep. Called under the lock of all pools, as is `empty`.
    void gather();
    /// Brings back what one thread keeps.
    void empty(ThreadStore& store);

private:
    /// The buckets in the order of their classes; an entry is null until its class is used.
    struct Table {
        std::int32_t capacity = 0;
        MemoryBucket** items = nullptr;
        std::int32_t count = 0;
    };
    struct SizeClass {
        std::int32_t index;
        std::int32_t size;
    };

    SizeClass classOf(std::int32_t size) const;
    bool hasSameClasses(const BucketMemoryPool& other) const;
    /// Made by this module's copy of the library, whose lock it then works under.
    bool isOurs() const;
    MemoryBucket*& slot(std::int32_t index);
    MemoryBucket& bucketOf(const SizeClass& place);
    void adopt(std::int32_t index, MemoryBucket* bucket);
    void* takeFromBucket(std::int32_t size, unsigned& got);
    bool keepInBucket(std::int32_t size, void* block);
    ThreadStore* storeFor(const SizeClass& place);
    void spill(ThreadStore& store, std::uint32_t index, std::uint32_t count);

    Table buckets;
    std::int32_t granularity;
    std::int32_t linearMax;
    std::int32_t bucketMax; ///< negative while caching is off
};

/// A block of at least `size` bytes from the current pool; `got` is the size to give back with it.
/// Without a pool the host's shared one is looked for, and failing that a pool of our own is made,
/// which hands its blocks over once the shared one turns up.
void* bucketAlloc(std::int32_t size, unsigned& got);

/// Gives a block back; `size` is what `got` was. Nothing when either is 0.
void bucketFree(std::int32_t size, void* block);

/// The current pool, made when there is none. Borrowed.
BucketMemoryPool* currentBucketPool();

/// Looks for the shared pool now; true when the process works on a pool that is there to stay.
bool connectSharedPool();

/// Frees what the current pool keeps and lets go of it. Blocks still in use stay good.
void destroyBucketPool();
