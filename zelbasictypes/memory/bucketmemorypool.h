// SPDX-License-Identifier: Apache-2.0
/// @file
/// The pool that keeps freed blocks by size class, and the current pool of the process.
///
/// All calls are safe on any thread, with one exception: a pool that has been the current one lives
/// only as long as its references. Whoever takes the host's pool away, by destroying the current
/// pool or making another, must have the host hold on to it or the other threads pause.
///
/// One lock guards the buckets of all pools and the choice of the current pool. In front of the
/// current pool each thread has a small store of its own, which the pool takes back when it is
/// asked for all that it keeps. Every block carries the means to free it in front of its bytes, so
/// that it may outlive its pool. Nothing here reports failure: an allocation that finally fails
/// ends the process.
///
/// Each module links its own copy of all this, with its own lock and its own current pool. Pools
/// shared between modules are reached through their virtual operations, and so through the copy of
/// the module that made them.
#pragma once

#include "component/objects/services/ibucketmemorypool.h"

class MemoryBucket;
class ThreadStore;

/// A pool with size classes. They rise in steps of `granularity` up to `linearMax`, which is
/// rounded up to a whole number of steps, and double from there up to `bucketMax`, at most
/// 0x40000000. Larger blocks aren't kept. All three are in bytes. A pool belongs to its references;
/// the newest one becomes the current pool.
class BucketMemoryPool : public virtual IBucketMemoryPool {
public:
    static constexpr const char* interfaceName = "BucketMemoryPool";

    /// The parameters of a pool that the library makes itself, in bytes.
    /// @{
    static constexpr std::int32_t standardGranularity = 4;
    static constexpr std::int32_t standardLinearMax = 8192;
    static constexpr std::int32_t standardBucketMax = 0x40000;
    /// @}

    /// Takes over the cached blocks of the current pool if that has the same classes.
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
    /// Takes back what all threads keep. Call it with the lock of all pools held, as `empty`.
    void gather();
    /// Takes back what one thread keeps.
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

/// A block of at least `size` bytes from the current pool, owned by the caller; `got` is the size
/// to give back with it. Without a pool, the host's shared one is looked up; without that, a
/// provisional pool is made, which hands its blocks over once the shared one appears.
void* bucketAlloc(std::int32_t size, unsigned& got);

/// Gives a block back; `size` is what `got` was. Does nothing when either is 0.
void bucketFree(std::int32_t size, void* block);

/// The current pool, made when there is none. Borrowed.
BucketMemoryPool* currentBucketPool();

/// Looks up the host's shared pool now. True when the process works on a final pool, not a
/// provisional one.
bool connectSharedPool();

/// Frees what the current pool keeps and gives up the pool. Blocks in use stay valid.
void destroyBucketPool();
