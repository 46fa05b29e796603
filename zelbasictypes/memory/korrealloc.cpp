// SPDX-License-Identifier: Apache-2.0
// The allocation of counted arrays, down to the last resort.
#include "zelbasictypes/memory/korrealloc.h"

#include "zelbasictypes/diagnostics/outofmemory.h"
#include "zelbasictypes/diagnostics/zelassert.h"
#include "zelbasictypes/memory/heapseam.h"
#include "zelbasictypes/memory/memorymanager.h"
#include "zelbasictypes/memory/spillfile.h"

#include <cstring>
#include <limits>

namespace {

constexpr std::int64_t managerUnitBytes = 24576;
constexpr std::int32_t greatestDoubled = 0x40000000;

std::int64_t bytesOf(std::int32_t elementSize, std::int32_t count) {
    return std::int64_t{elementSize} * count;
}

/// A block's size stays within 32 bits.
bool canExist(std::int64_t bytes) {
    return bytes >= 0 && bytes <= std::numeric_limits<std::int32_t>::max();
}

using Allocate = void* (*)(std::size_t bytes);

void* tryAllocate(Allocate allocate, std::int64_t bytes) {
    return canExist(bytes) ? allocate(static_cast<std::size_t>(bytes)) : nullptr;
}

void* tryReallocate(void* block, std::int64_t bytes) {
    return canExist(bytes) ? zelHeap().reallocate(block, static_cast<std::size_t>(bytes)) : nullptr;
}

/// Lets the host give memory back and tries again for as long as it does.
void* allocateReclaiming(Allocate allocate, std::int64_t bytes) {
    void* block = tryAllocate(allocate, bytes);
    IZelMManager* manager = block || bytes == 0 ? nullptr : zelMemoryManager();
    while (!block && manager) {
        if (manager->reclaim()) {
            block = tryAllocate(allocate, bytes);
        } else {
            manager = nullptr;
        }
    }
    return block;
}

/// One growth of an existing block, from the full wish down to the temporary file.
class Growth {
public:
    Growth(void** block, std::int32_t elementSize, std::int32_t current)
        : block_(block), elementSize_(elementSize), oldBytes_(bytesOf(elementSize, current)) {}

    std::int32_t to(std::int32_t least, std::int32_t most) {
        count_ = most;
        if (!tryResize() && !tryLess(least)) throughFile();
        return count_;
    }

private:
    std::int64_t newBytes() const { return bytesOf(elementSize_, count_); }

    void finish(void* block) {
        *block_ = block;
        std::memset(static_cast<char*>(block) + oldBytes_, 0,
                    static_cast<std::size_t>(newBytes() - oldBytes_));
    }

    bool tryResize() {
        void* block = tryReallocate(*block_, newBytes());
        if (block) finish(block);
        return block != nullptr;
    }

    bool tryLess(std::int32_t least);
    bool tryReclaiming(IZelMManager*& manager);
    void throughFile();
    [[noreturn]] void fail(std::int32_t code) const;

    void** block_;
    std::int32_t elementSize_;
    std::int64_t oldBytes_;
    std::int32_t count_ = 0;
};

/// Comes down to `least` by halves; after the first two the host is asked for memory at each.
bool Growth::tryLess(std::int32_t least) {
    IZelMManager* manager = zelMemoryManager();
    for (int turn = 7; turn >= 0 && least < count_; --turn) {
        count_ = turn > 0 ? least + (count_ - least) / 2 : least;
        if (tryResize()) return true;
        if (turn <= 5 && tryReclaiming(manager)) return true;
    }
    return false;
}

/// The try behind a refusal of the manager is the last one; `manager` is null from then on.
bool Growth::tryReclaiming(IZelMManager*& manager) {
    for (auto left = (newBytes() - oldBytes_) / managerUnitBytes + 2; left > 0 && manager; --left) {
        if (!manager->reclaim()) manager = nullptr;
        if (tryResize()) return true;
    }
    return false;
}

/// Puts the old elements aside on disk, so that the heap has their room for the new block.
void Growth::throughFile() {
    ZelSpillFile file;
    if (!file.findName()) fail(zelNoMemory);
    if (!file.open()) fail(zelSpillOpenFailed);
    if (!file.write(*block_, oldBytes_)) {
        file.close();
        fail(zelSpillWriteFailed);
    }
    zelHeap().release(*block_);
    *block_ = nullptr;

    void* block = allocateReclaiming(zelHeap().allocate, newBytes());
    if (!block) {
        file.close();
        fail(zelNoMemory);
    }
    if (!file.readBack(block, oldBytes_)) {
        file.close();
        zelHeap().release(block);
        fail(zelSpillReadFailed);
    }
    file.close();
    finish(block);
}

void Growth::fail(std::int32_t code) const { zelReportOutOfMemory(newBytes(), code); }

std::int32_t shrink(void** block, std::int32_t elementSize, std::int32_t count) {
    if (count <= 0) {
        zelHeap().release(*block);
        *block = nullptr;
        return 0;
    }
    void* smaller = tryReallocate(*block, bytesOf(elementSize, count));
    if (smaller) *block = smaller;
    return count;
}

void* requireBlock(Allocate allocate, std::int64_t bytes) {
    void* block = allocateReclaiming(allocate, bytes);
    if (!block && bytes != 0) zelReportOutOfMemory(bytes);
    return block;
}

} // namespace

std::int32_t korMalloc(void** block, std::int32_t elementSize, std::int32_t count) {
    *block = requireBlock(zelHeap().allocate, bytesOf(elementSize, count));
    return count;
}

std::int32_t korMallocZeroed(void** block, std::int32_t elementSize, std::int32_t count) {
    *block = requireBlock(zelHeap().allocateZeroed, bytesOf(elementSize, count));
    return count;
}

std::int32_t korRealloc(void** block, std::int32_t elementSize, std::int32_t curSize,
                        std::int32_t minNewSize, std::int32_t maxNewSize) {
    if (curSize == minNewSize) return curSize;
    if ((!*block || curSize == 0) && minNewSize > 0) {
        return korMalloc(block, elementSize, minNewSize);
    }
    if (maxNewSize == -1) maxNewSize = minNewSize;
    ZEL_ASSERT(maxNewSize >= minNewSize);
    if (maxNewSize < curSize) return shrink(block, elementSize, maxNewSize);
    if (minNewSize <= curSize) return curSize;
    ZEL_ASSERT(minNewSize > curSize && maxNewSize >= minNewSize);
    return Growth(block, elementSize, curSize).to(minNewSize, maxNewSize);
}

std::int32_t zelGrowCount(std::int32_t current, std::int32_t needed) {
    if (current >= needed) return current;
    std::int32_t grown = current < 1 ? 1 : current;
    while (grown < needed) {
        if (grown > greatestDoubled / 2) return needed;
        grown *= 2;
    }
    return grown;
}

void zelFreeBlock(void* block) { zelHeap().release(block); }
