// SPDX-License-Identifier: Apache-2.0
// The stack of freed blocks, held in plain heap memory.
#include "zelbasictypes/memory/memorybucket.h"

#include "zelbasictypes/memory/korrealloc.h"
#include "zelbasictypes/memory/memoryblock.h"

#include <new>

namespace {

constexpr std::int32_t firstCapacity = 8;

} // namespace

MemoryBucket* MemoryBucket::make() {
    void* room = nullptr;
    korMalloc(&room, sizeof(MemoryBucket), 1);
    auto* bucket = new (room) MemoryBucket;
    bucket->capacity = 0;
    bucket->items = nullptr;
    bucket->count = 0;
    return bucket;
}

void MemoryBucket::destroy() {
    while (!isEmpty()) {
        if (void* block = pop().block) zelReleaseBlock(block);
    }
    zelFreeBlock(items);
    zelFreeBlock(this);
}

void MemoryBucket::push(const Entry& entry) {
    if (count == capacity) {
        const std::int32_t wanted = capacity == 0 ? firstCapacity : 2 * capacity;
        void* grown = items;
        korRealloc(&grown, sizeof(Entry), items ? capacity + 1 : 0, wanted + 1);
        items = static_cast<Entry*>(grown);
        capacity = wanted;
    }
    items[++count] = entry;
}

void MemoryBucket::takeAll(MemoryBucket& other) {
    while (!other.isEmpty()) push(other.pop());
}
