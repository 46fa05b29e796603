// SPDX-License-Identifier: Apache-2.0
// Where the blocks of all block vectors come from and go to.
#include "platform/sync.h"
#include "platform/unload.h"
#include "zelbasictypes/memory/korrealloc.h"
#include "zelbasictypes/sets/blockbitvector.h"

#include <algorithm>
#include <cstring>
#include <new>

namespace {

constexpr std::int32_t usualLimit = 512;

/// A stack of blocks, of which each begins with the way to the one below. So it needs no room of
/// its own, whatever the limit.
struct FreeList {
    std::uint32_t* top = nullptr;
    std::int32_t count = 0;
    std::int32_t limit = usualLimit;

    void push(std::uint32_t* block) {
        std::memcpy(block, &top, sizeof top);
        top = block;
        ++count;
    }

    std::uint32_t* pop() {
        std::uint32_t* const block = top;
        std::memcpy(&top, block, sizeof top);
        --count;
        return block;
    }

    void freeDownTo(std::int32_t most) {
        while (count > most) zelFreeBlock(pop());
    }
};

constinit FreeList freeList;

/// Never destroyed, since static vectors give their blocks back at the very end.
platform::CriticalSection& guard() {
    alignas(platform::CriticalSection) static unsigned char room[sizeof(platform::CriticalSection)];
    static auto* const section = new (room) platform::CriticalSection;
    return *section;
}

/// Made during start-up, on its single thread.
[[maybe_unused]] const platform::CriticalSection& madeAtStart = guard();

const platform::AtUnload freeingBlocks(BlockBitVector::destroyBlockFreeList);

class Hold {
public:
    Hold() { guard().enter(); }
    Hold(const Hold&) = delete;
    Hold& operator=(const Hold&) = delete;
    ~Hold() { guard().leave(); }
};

/// Uncleared.
std::uint32_t* takeBlock() {
    {
        const Hold hold;
        if (freeList.count > 0) return freeList.pop();
    }
    void* block = nullptr;
    korMalloc(&block, sizeof(std::uint32_t), BlockBitVector::blockWords);
    return static_cast<std::uint32_t*>(block);
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
    if (freeList.count < freeList.limit) {
        freeList.push(block);
    } else {
        zelFreeBlock(block);
    }
    block = nullptr;
}

void BlockBitVector::setBlockFreeListLimit(std::int32_t limit) {
    const Hold hold;
    freeList.limit = std::max(limit, 0);
    freeList.freeDownTo(freeList.limit);
}

void BlockBitVector::destroyBlockFreeList() {
    freeList.freeDownTo(0);
    freeList.limit = usualLimit;
}
