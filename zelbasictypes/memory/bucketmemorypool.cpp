// SPDX-License-Identifier: Apache-2.0
// The size classes and buckets of one pool.
#include "zelbasictypes/memory/bucketmemorypool.h"

#include "component/objects/queryinterface.h"
#include "zelbasictypes/memory/currentpool.h"
#include "zelbasictypes/memory/korrealloc.h"
#include "zelbasictypes/memory/memoryblock.h"
#include "zelbasictypes/memory/memorybucket.h"
#include "zelbasictypes/memory/threadstore.h"

#include <algorithm>
#include <cstdlib>
#include <typeinfo>
#include <utility>

namespace {

/// What a thread's store gives away when it is full, and gets when it is empty.
std::uint32_t exchanged(std::uint32_t index) { return ThreadStore::roomOf(index) / 2; }

/// Doubling a smaller size never leaves 32 bits.
constexpr std::int32_t greatestClass = 0x40000000;

} // namespace

BucketMemoryPool::BucketMemoryPool(std::int32_t step, std::int32_t linear, std::int32_t greatest)
    : granularity(step), linearMax((linear + step - 1) / step * step),
      bucketMax(std::min(greatest, greatestClass)) {
    slot(linearMax / granularity + 1);
    const PoolLock hold;
    BucketMemoryPool* current = zelCurrentPool().pool();
    if (current && current->isOurs() && hasSameClasses(*current)) {
        current->gather();
        std::swap(buckets, current->buckets);
    }
    zelCurrentPool().replace(this);
}

BucketMemoryPool::~BucketMemoryPool() {
    BucketMemoryPool::clear();
    zelFreeBlock(buckets.items);
}

void BucketMemoryPool::qi(const char* name, void** result, std::int32_t) {
    zelAnswerQuery<IBucketMemoryPool>(this, interfaceName, name, result);
}

bool BucketMemoryPool::clear() {
    const PoolLock hold;
    gather();
    for (std::int32_t i = 0; i < buckets.count; ++i) {
        if (!buckets.items[i]) continue;
        buckets.items[i]->destroy();
        buckets.items[i] = nullptr;
    }
    return true;
}

void* BucketMemoryPool::allocate(std::int32_t size, unsigned& got) {
    ThreadStore* store = ThreadStore::own();
    void* block = store ? store->take(this, size, got) : nullptr;
    return block ? block : takeFromBucket(std::max(size, 1), got);
}

bool BucketMemoryPool::free(std::int32_t size, void*& block) {
    if (!block || size <= 0) return false;
    ThreadStore* store = ThreadStore::own();
    if (!(store && store->keep(this, size, block)) && !keepInBucket(size, block)) {
        zelReleaseBlock(block);
    }
    block = nullptr;
    return true;
}

bool BucketMemoryPool::setCaching(bool on) {
    const PoolLock hold;
    if (on == (bucketMax >= 0)) return true;
    gather();
    bucketMax = -bucketMax;
    return true;
}

void BucketMemoryPool::handOverTo(BucketMemoryPool& target) {
    const PoolLock hold;
    if (!hasSameClasses(target)) {
        clear();
        return;
    }
    gather();
    for (std::int32_t i = 0; i < buckets.count; ++i) {
        MemoryBucket* bucket = std::exchange(buckets.items[i], nullptr);
        if (bucket) target.adopt(i, bucket);
    }
}

/// A pool of another module works under a lock that isn't ours, so its own `free` takes the blocks.
void BucketMemoryPool::adopt(std::int32_t index, MemoryBucket* bucket) {
    if (!isOurs()) {
        for (MemoryBucket::Entry entry : *bucket) free(entry.size, entry.block);
        bucket->forgetAll();
    } else if (MemoryBucket*& own = slot(index)) {
        own->takeAll(*bucket);
    } else {
        own = std::exchange(bucket, nullptr);
    }
    if (bucket) bucket->destroy();
}

/// Only the current pool has stores in its service.
void BucketMemoryPool::gather() {
    if (zelCurrentPool().pool() != this) return;
    for (ThreadStore* store = ThreadStore::withdrawAll(); store; store = store->next()) {
        empty(*store);
    }
}

void BucketMemoryPool::empty(ThreadStore& store) {
    zelCurrentPool().takeBackCredit(store);
    for (std::uint32_t i = 0; i < ThreadStore::classCount; ++i)
        spill(store, i, store.blockCount(i));
}

/// Moves the oldest blocks of a store to their bucket. What may fail comes before the first of
/// them.
void BucketMemoryPool::spill(ThreadStore& store, std::uint32_t index, std::uint32_t count) {
    if (count == 0) return;
    const SizeClass place{static_cast<std::int32_t>(index),
                          static_cast<std::int32_t>(index + 1) * granularity};
    bucketOf(place).pushMany(place.size, store.blocks(index), count);
    store.dropOldest(index, count);
}

void* BucketMemoryPool::takeFromBucket(std::int32_t size, unsigned& got) {
    const PoolLock hold;
    const bool cached = size <= bucketMax;
    // While caching is off a block still fills its class, since it may be given back to a bucket.
    const bool hasClass = size <= std::abs(bucketMax);
    const SizeClass place = hasClass ? classOf(size) : SizeClass{-1, size};
    got = static_cast<unsigned>(cached ? place.size : size);
    MemoryBucket* bucket = cached ? slot(place.index) : nullptr;
    void* block = nullptr;
    while (!block && bucket && !bucket->isEmpty()) block = bucket->pop().block;
    if (!block) return zelNewBlock(place.size);
    if (ThreadStore* store = bucket->isEmpty() ? nullptr : storeFor(place)) {
        const auto index = static_cast<std::uint32_t>(place.index);
        if (store->blockCount(index) == 0) {
            store->setBlockCount(index, bucket->popMany(store->blocks(index), exchanged(index)));
        }
    }
    return block;
}

/// False for a block that isn't to be kept.
bool BucketMemoryPool::keepInBucket(std::int32_t size, void* block) {
    const PoolLock hold;
    if (size > bucketMax) return false;
    const SizeClass place = classOf(size);
    if (ThreadStore* store = storeFor(place)) {
        const auto index = static_cast<std::uint32_t>(place.index);
        if (store->blockCount(index) == ThreadStore::roomOf(index))
            spill(*store, index, exchanged(index));
        store->push(index, block);
    } else {
        bucketOf(place).push({place.size, block});
    }
    return true;
}

/// The calling thread's store, in our service, if it can have blocks of the class; else null. The
/// stores are made for the classes of the standard pool.
ThreadStore* BucketMemoryPool::storeFor(const SizeClass& place) {
    constexpr std::int32_t step = ThreadStore::granularity;
    constexpr std::int32_t count = ThreadStore::classCount;
    const bool canServe = granularity == step && std::min(linearMax, bucketMax) >= count * step;
    if (place.index >= count || !canServe || zelCurrentPool().pool() != this) return nullptr;
    ThreadStore* store = ThreadStore::enlist(this);
    if (store) zelCurrentPool().grantCredit(*store);
    return store;
}

/// For sizes from 1 to the greatest that has a class.
BucketMemoryPool::SizeClass BucketMemoryPool::classOf(std::int32_t size) const {
    if (size <= linearMax) {
        const std::int32_t index = (size - 1) / granularity;
        return {index, (index + 1) * granularity};
    }
    SizeClass result{(linearMax - 1) / granularity, linearMax};
    while (result.size < size) {
        result.size *= 2;
        ++result.index;
    }
    return result;
}

bool BucketMemoryPool::hasSameClasses(const BucketMemoryPool& other) const {
    return this != &other && granularity == other.granularity && linearMax == other.linearMax &&
           std::abs(bucketMax) == std::abs(other.bucketMax);
}

bool BucketMemoryPool::isOurs() const { return &typeid(*this) == &typeid(BucketMemoryPool); }

/// The place of a bucket, which is null until the first block comes back to it.
MemoryBucket*& BucketMemoryPool::slot(std::int32_t index) {
    if (index >= buckets.count) {
        void* items = buckets.items;
        const std::int32_t wanted = std::max(index + 1, buckets.count + buckets.count / 2);
        buckets.capacity = korRealloc(&items, sizeof(void*), buckets.count, wanted);
        buckets.items = static_cast<MemoryBucket**>(items);
        std::fill(buckets.items + buckets.count, buckets.items + buckets.capacity, nullptr);
        buckets.count = buckets.capacity;
    }
    return buckets.items[index];
}

MemoryBucket& BucketMemoryPool::bucketOf(const SizeClass& place) {
    MemoryBucket*& bucket = slot(place.index);
    if (!bucket) bucket = MemoryBucket::make();
    return *bucket;
}
