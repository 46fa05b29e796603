// SPDX-License-Identifier: Apache-2.0
// The size classes and buckets of one pool.
#include "zelbasictypes/memory/bucketmemorypool.h"

#include "component/objects/queryinterface.h"
#include "zelbasictypes/memory/currentpool.h"
#include "zelbasictypes/memory/korrealloc.h"
#include "zelbasictypes/memory/memoryblock.h"
#include "zelbasictypes/memory/memorybucket.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

BucketMemoryPool::BucketMemoryPool(std::int32_t step, std::int32_t linear, std::int32_t greatest)
    : granularity(step), linearMax((linear + step - 1) / step * step), bucketMax(greatest) {
    slot(linearMax / granularity + 1);
    const PoolLock hold;
    BucketMemoryPool* current = zelCurrentPool().pool();
    if (current && hasSameClasses(*current)) std::swap(buckets, current->buckets);
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
    for (std::int32_t i = 0; i < buckets.count; ++i) {
        if (!buckets.items[i]) continue;
        buckets.items[i]->destroy();
        buckets.items[i] = nullptr;
    }
    return true;
}

void* BucketMemoryPool::allocate(std::int32_t size, unsigned& got) {
    size = std::max(size, 1);
    const PoolLock hold;
    const bool cached = size <= bucketMax;
    // While caching is off a block still fills its class, since it may be given back to a bucket.
    const std::int32_t room = size <= std::abs(bucketMax) ? classOf(size).size : size;
    got = static_cast<unsigned>(cached ? room : size);
    MemoryBucket* bucket = cached ? slot(classOf(size).index) : nullptr;
    while (bucket && !bucket->isEmpty()) {
        const MemoryBucket::Entry entry = bucket->pop();
        got = static_cast<unsigned>(entry.size);
        if (entry.block) return entry.block;
    }
    return zelNewBlock(room);
}

bool BucketMemoryPool::free(std::int32_t size, void*& block) {
    if (!block || size <= 0) return false;
    if (size > bucketMax) {
        zelReleaseBlock(block);
    } else {
        const SizeClass place = classOf(size);
        const PoolLock hold;
        MemoryBucket*& bucket = slot(place.index);
        if (!bucket) bucket = MemoryBucket::make();
        bucket->push({place.size, block});
    }
    block = nullptr;
    return true;
}

bool BucketMemoryPool::setCaching(bool on) {
    if (on != (bucketMax >= 0)) bucketMax = -bucketMax;
    return true;
}

void BucketMemoryPool::mergeFrom(BucketMemoryPool& source) {
    if (!hasSameClasses(source)) {
        source.clear();
        return;
    }
    const PoolLock hold;
    for (std::int32_t i = 0; i < source.buckets.count; ++i) {
        MemoryBucket* bucket = std::exchange(source.buckets.items[i], nullptr);
        if (!bucket) continue;
        MemoryBucket*& own = slot(i);
        if (own) {
            own->takeAll(*bucket);
            bucket->destroy();
        } else {
            own = bucket;
        }
    }
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

/// The place of a bucket, which is null until the first block comes back to it.
MemoryBucket*& BucketMemoryPool::slot(std::int32_t index) {
    if (index >= buckets.count) {
        void* items = buckets.items;
        const std::int32_t wanted = std::max(index + 1, buckets.count + buckets.count / 2);
        buckets.capacity = korRealloc(&items, sizeof(MemoryBucket*), buckets.count, wanted);
        buckets.items = static_cast<MemoryBucket**>(items);
        std::fill(buckets.items + buckets.count, buckets.items + buckets.capacity, nullptr);
        buckets.count = buckets.capacity;
    }
    return buckets.items[index];
}
