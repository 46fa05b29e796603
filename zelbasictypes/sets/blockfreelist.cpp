// SPDX-License-Identifier: Apache-2.0
// Where the blocks of all block vectors come from and go to.
#include "zelbasictypes/diagnostics/zelmutex.h"
#include "zelbasictypes/memory/korrealloc.h"
#include "zelbasictypes/sets/blockbitvector.h"

#include <algorithm>
#include <utility>

namespace {

constexpr std::int32_t usualLimit = 512;

/// A stack of blocks, with its first entry left out.
struct FreeList {
    std::uint32_t** items;
    std::int32_t count;
    std::int32_t limit;
};

constinit FreeList* freeList = nullptr;

/// Never destroyed, since static vectors give their blocks back at the very end.
ZelMutex& guard() {
    static ZelMutex* const mutex = new ZelMutex;
    return *mutex;
}

/// Made during start-up, on its single thread.
[[maybe_unused]] const ZelMutex& madeAtStart = guard();

class Hold {
public:
    Hold() { guard().lock(); }
    Hold(const Hold&) = delete;
    Hold& operator=(const Hold&) = delete;
    ~Hold() { guard().unlock(); }
};

std::uint32_t** newItems(std::int32_t limit) {
    void* items = nullptr;
    korMalloc(&items, sizeof(std::uint32_t*), limit + 1);
    return static_cast<std::uint32_t**>(items);
}

FreeList& listOf(std::int32_t limit) {
    if (!freeList) freeList = new FreeList{newItems(limit), 0, limit};
    return *freeList;
}

/// Uncleared.
std::uint32_t* takeBlock() {
    {
        const Hold hold;
        FreeList& list = listOf(usualLimit);
        if (list.count > 0) return list.items[list.count--];
    }
    void* block = nullptr;
    korMalloc(&block, sizeof(std::uint32_t), BlockBitVector::blockWords);
    return static_cast<std::uint32_t*>(block);
}

void freeDownTo(FreeList& list, std::int32_t count) {
    while (list.count > count) zelFreeBlock(list.items[list.count--]);
}

} // namespace

std::uint32_t* BlockBitVector::allocateBlock(std::int32_t onesWords) {
    std::uint32_t* block = takeBlock();
    std::fill(block, block + onesWords, ~0U);
    std::fill(block + onesWords, block + blockWords, 0U);
    return block;
}

std::uint32_t* BlockBitVector::allocateBlockFrom(const std::uint32_t* words, std::int32_t count) {
    std::uint32_t* block = takeBlock();
    std::copy(words, words + count, block);
    std::fill(block + count, block + blockWords, 0U);
    return block;
}

std::uint32_t* BlockBitVector::allocateBlockFrom(const BitVector::LargeWords& array,
                                                 std::uint32_t firstWord, std::int32_t count) {
    std::uint32_t* block = takeBlock();
    for (std::int32_t w = 0; w < blockWords; ++w)
        block[w] = w < count ? array.at(firstWord + static_cast<std::uint32_t>(w)) : 0;
    return block;
}

void BlockBitVector::releaseBlock(std::uint32_t*& block) {
    if (!block) return;
    const Hold hold;
    FreeList& list = listOf(usualLimit);
    if (list.count < list.limit) {
        list.items[++list.count] = block;
    } else {
        zelFreeBlock(block);
    }
    block = nullptr;
}

void BlockBitVector::setBlockFreeListLimit(std::int32_t limit) {
    limit = std::max(limit, 0);
    const Hold hold;
    FreeList& list = listOf(limit);
    freeDownTo(list, limit);
    std::uint32_t** items = newItems(limit);
    std::copy(list.items + 1, list.items + 1 + list.count, items + 1);
    zelFreeBlock(std::exchange(list.items, items));
    list.limit = limit;
}

void BlockBitVector::destroyBlockFreeList() {
    if (!freeList) return;
    freeDownTo(*freeList, 0);
    zelFreeBlock(freeList->items);
    delete std::exchange(freeList, nullptr);
}
