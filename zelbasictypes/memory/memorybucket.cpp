// SPDX-License-Identifier: Apache-2.0
// The stack of freed blocks, held in plain heap memory.
#include "zelbasictypes/memory/memorybucket.h"

#include "zelbasictypes/memory/korrealloc.h"
#include "zelbasictypes/memory/memoryblock.h"

#include <algorithm>
#include <new>
#include <utility>

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

std::uint32_t MemoryBucket::popMany(void** to, std::uint32_t most) {
    void** lowest = to + most;
    const Entry* const bottom = items + 1;
    const Entry* entry = bottom + count;
    while (lowest > to && entry > bottom) {
        --entry;
        if (entry->block) *--lowest = entry->block;
    }
    count = static_cast<std::int32_t>(entry - bottom);
    std::copy(lowest, to + most, to);
    return static_cast<std::uint32_t>(to + most - lowest);
}

void MemoryBucket::push(const Entry& entry) {
    reserve(1);
    items[++count] = entry;
}

void MemoryBucket::pushMany(std::int32_t size, void* const* blocks, std::uint32_t number) {
    reserve(static_cast<std::int32_t>(number));
    Entry* to = items + count + 1;
    for (std::uint32_t i = 0; i < number; ++i) to[i] = {size, blocks[i]};
    count += static_cast<std::int32_t>(number);
}

void MemoryBucket::reserve(std::int32_t more) {
    if (more <= capacity - count) return;
    std::int32_t wanted = std::max(capacity, firstCapacity / 2);
    while (wanted - count < more) wanted *= 2;
    void* grown = items;
    korRealloc(&grown, sizeof(Entry), items ? capacity + 1 : 0, wanted + 1);
    items = static_cast<Entry*>(grown);
    capacity = wanted;
}

void MemoryBucket::takeAll(MemoryBucket& other) {
    reserve(other.count);
    std::copy(other.begin(), other.end(), items + count + 1);
    count += std::exchange(other.count, 0);
}
