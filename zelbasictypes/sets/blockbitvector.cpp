// SPDX-License-Identifier: Apache-2.0
// The tables and blocks of a block vector, its single bits, ranges and searches.
#include "zelbasictypes/sets/blockbitvector.h"

#include "zelbasictypes/memory/korrealloc.h"
#include "zelbasictypes/sets/indexmap.h"
#include "zelbasictypes/sets/wordkernels.h"

#include <algorithm>
#include <array>
#include <utility>

using namespace zelsets;

namespace {

constexpr auto allOnes = [] {
    std::array<std::uint32_t, BlockBitVector::blockWords> words{};
    for (std::uint32_t& word : words) word = ~0U;
    return words;
}();

template <class Entry> void growTable(Entry*& table, std::int32_t oldCount, std::int32_t newCount) {
    void* items = table;
    korRealloc(&items, sizeof(Entry), oldCount, newCount);
    table = static_cast<Entry*>(items);
    std::fill(table + oldCount, table + newCount, Entry{});
}

} // namespace

BlockBitVector::BlockBitVector(std::int32_t maxBit) {
    const std::int32_t entries = maxBit < blockBits ? 1 : maxBit / blockBits;
    growTable(blocks, 0, entries);
    growTable(blockCounts, 0, entries);
    lastBlock = entries - 1;
}

BlockBitVector::BlockBitVector(const BlockBitVector& other)
    : ZelShared(other), numSet_(other.numSet_) {
    if (other.lastBlock < 0) return;
    growTable(blocks, 0, other.lastBlock + 1);
    growTable(blockCounts, 0, other.lastBlock + 1);
    lastBlock = other.lastBlock;
    for (std::int32_t b = 0; b <= lastBlock; ++b) becomeCopy(b, other);
}

BlockBitVector::BlockBitVector(BlockBitVector&& other) noexcept
    : blocks(std::exchange(other.blocks, nullptr)),
      blockCounts(std::exchange(other.blockCounts, nullptr)),
      lastBlock(std::exchange(other.lastBlock, -1)), numSet_(std::exchange(other.numSet_, 0)) {}

BlockBitVector::BlockBitVector(const BitVector& other)
    : BlockBitVector((blocksFor(other) - 1) * blockBits) {
    *this = other;
}

BlockBitVector::~BlockBitVector() { freeTables(); }

BlockBitVector& BlockBitVector::operator=(const BlockBitVector& other) {
    if (this == &other) return *this;
    growFor(other.lastUsedBlock());
    for (std::int32_t b = 0; b <= lastBlock; ++b) {
        if (other.hasBits(b)) {
            becomeCopy(b, other);
        } else {
            becomeEmpty(b);
        }
    }
    numSet_ = other.numSet_;
    return *this;
}

BlockBitVector& BlockBitVector::operator=(const BitVector& other) {
    growFor(blocksFor(other) - 1);
    for (std::int32_t b = 0; b <= lastBlock; ++b) {
        const Piece piece = pieceOf(other, b);
        if (piece.count > 0) {
            becomeCopy(b, piece.words, piece.words ? piece.count : 0);
        } else {
            becomeEmpty(b);
        }
    }
    numSet_ = unknownCount;
    return *this;
}

void BlockBitVector::swap(BlockBitVector& other) noexcept {
    std::swap(blocks, other.blocks);
    std::swap(blockCounts, other.blockCounts);
    std::swap(lastBlock, other.lastBlock);
    std::swap(numSet_, other.numSet_);
}

void BlockBitVector::freeTables() {
    for (std::int32_t b = 0; b <= lastBlock; ++b) releaseBlock(blocks[b]);
    zelFreeBlock(blocks);
    zelFreeBlock(blockCounts);
}

/// One entry more than asked for, within what indices reach.
void BlockBitVector::growFor(std::int32_t b) {
    if (b <= lastBlock) return;
    const std::int32_t entries = std::min(b + 2, mostBlocks);
    growTable(blocks, lastBlock + 1, entries);
    growTable(blockCounts, lastBlock + 1, entries);
    lastBlock = entries - 1;
}

const std::uint32_t* BlockBitVector::wordsOf(std::int32_t b) const {
    if (!hasBits(b)) return nullptr;
    return blocks[b] ? blocks[b] : allOnes.data();
}

std::uint32_t* BlockBitVector::makeWords(std::int32_t b) {
    if (!blocks[b]) blocks[b] = allocateBlock(blockCounts[b] != 0 ? blockWords : 0);
    return blocks[b];
}

void BlockBitVector::becomeEmpty(std::int32_t b) {
    releaseBlock(blocks[b]);
    blockCounts[b] = 0;
}

void BlockBitVector::becomeFull(std::int32_t b) {
    releaseBlock(blocks[b]);
    blockCounts[b] = blockBits;
}

/// Zeros behind `count` words; what the block holds then isn't counted.
void BlockBitVector::becomeCopy(std::int32_t b, const std::uint32_t* words, std::int32_t count) {
    if (!blocks[b]) {
        blocks[b] = allocateBlockFrom(words, count);
    } else {
        std::copy(words, words + count, blocks[b]);
        std::fill(blocks[b] + count, blocks[b] + blockWords, 0U);
    }
    blockCounts[b] = unknownCount;
}

void BlockBitVector::becomeCopy(std::int32_t b, const BlockBitVector& other) {
    if (other.blocks[b]) {
        becomeCopy(b, other.blocks[b], blockWords);
    } else {
        releaseBlock(blocks[b]);
    }
    blockCounts[b] = other.blockCounts[b];
}

bool BlockBitVector::setFar(std::int32_t i) {
    if (i < 0) return false;
    const std::int32_t b = blockOf(i);
    growFor(b);
    if (isFull(b)) return false;
    makeWords(b);
    return set(i);
}

bool BlockBitVector::clearFar(std::int32_t i) {
    const std::int32_t b = blockOf(i);
    if (!hasBits(b)) return false;
    makeWords(b);
    return clear(i);
}

void BlockBitVector::setRange(std::int32_t first, std::int32_t last) {
    first = std::max(first, 0);
    if (first > last) return;
    growFor(blockOf(last));
    for (std::int32_t b = blockOf(first); b <= blockOf(last); ++b)
        setInBlock(b, b == blockOf(first) ? bitOf(first) : 0,
                   b == blockOf(last) ? bitOf(last) : blockBits - 1);
    numSet_ = unknownCount;
}

/// Bits as counted in the block.
void BlockBitVector::setInBlock(std::int32_t b, std::int32_t first, std::int32_t last) {
    if (isFull(b)) return;
    if (first == 0 && last == blockBits - 1) return becomeFull(b);
    setBits(makeWords(b), first, last);
    blockCounts[b] = blockCounts[b] == 0 ? last - first + 1 : unknownCount;
}

void BlockBitVector::clearRange(std::int32_t first, std::int32_t last) {
    first = std::max(first, 0);
    if (first > last || blockOf(first) > lastBlock) return;
    if (blockOf(last) > lastBlock)
        last = static_cast<std::int32_t>((lastBlock + 1LL) * blockBits - 1);
    bool isTouched = false;
    for (std::int32_t b = blockOf(first); b <= blockOf(last); ++b)
        isTouched |= clearInBlock(b, b == blockOf(first) ? bitOf(first) : 0,
                                  b == blockOf(last) ? bitOf(last) : blockBits - 1);
    if (isTouched) numSet_ = unknownCount;
}

/// Whether there was anything to clear from. A whole block gives its storage back.
bool BlockBitVector::clearInBlock(std::int32_t b, std::int32_t first, std::int32_t last) {
    const bool hadBits = hasBits(b);
    if (first == 0 && last == blockBits - 1) {
        becomeEmpty(b);
    } else if (hadBits) {
        clearBits(makeWords(b), first, last);
        blockCounts[b] = unknownCount;
    }
    return hadBits;
}

std::int32_t BlockBitVector::recount() const {
    std::int64_t bits = 0;
    for (std::int32_t b = 0; b <= lastBlock; ++b) {
        if (blockCounts[b] == unknownCount)
            blockCounts[b] = static_cast<std::int32_t>(countBits(blocks[b], blockWords));
        bits += blockCounts[b];
    }
    numSet_ = static_cast<std::int32_t>(bits);
    return numSet_;
}

void BlockBitVector::clearAll() {
    for (std::int32_t b = 0; b <= lastBlock; ++b) becomeEmpty(b);
    numSet_ = 0;
}

void BlockBitVector::compact() {
    if (numSet_ == unknownCount) recount();
    for (std::int32_t b = 0; b <= lastBlock; ++b)
        if (blockCounts[b] == 0 || isFull(b)) releaseBlock(blocks[b]);
}

bool BlockBitVector::operator==(const BlockBitVector& other) const {
    if (this == &other) return true;
    if (count() != other.count()) return false;
    for (std::int32_t b = 0; b <= lastBlock; ++b) {
        if (!hasBits(b)) continue;
        if (!other.hasBits(b) || other.blockCounts[b] != blockCounts[b]) return false;
        if (!isFull(b) && !isSubset(blocks[b], other.blocks[b], blockWords)) return false;
    }
    return true;
}

void BlockBitVector::renumber(const IndexMap& map) {
    const std::int64_t end = std::min(mappedEnd(map), (lastBlock + std::int64_t{1}) * blockBits);
    std::int32_t last = 1;
    for (std::int32_t i = nextSet(-1); i >= 0 && i < end; i = nextSet(i)) {
        clear(i);
        const std::int32_t j = targetOf(map, i);
        if (j == 0) continue;
        set(j);
        last = j;
    }
    if ((last | 31) < BitVector::highestIndex) clearRange((last | 31) + 1, BitVector::highestIndex);
    compact();
}

std::int32_t BlockBitVector::nextSet(std::int32_t after) const {
    if (after == BitVector::highestIndex) return -1;
    std::int32_t i = std::max(after, -1) + 1;
    for (std::int32_t b = blockOf(i); b <= lastBlock; ++b) {
        if (hasBits(b)) {
            const std::int32_t within = bitOf(i);
            const std::int32_t found =
                blocks[b] ? firstSet(blocks[b], within, blockBits - 1) : within;
            if (found >= 0) return b * blockBits + found;
        }
        i = 0;
    }
    return -1;
}

std::int32_t BlockBitVector::prevSet(std::int32_t before) const {
    if (before < 1) return -1;
    std::int32_t within = bitOf(before - 1);
    if (blockOf(before - 1) > lastBlock) within = blockBits - 1;
    for (std::int32_t b = std::min(blockOf(before - 1), lastBlock); b >= 0; --b) {
        const std::int32_t found = blocks[b]    ? zelsets::lastSet(blocks[b], 0, within)
                                   : hasBits(b) ? within
                                                : -1;
        if (found >= 0) return b * blockBits + found;
        within = blockBits - 1;
    }
    return -1;
}

std::int32_t BlockBitVector::lastUsedBlock() const {
    std::int32_t b = lastBlock;
    while (b >= 0 && blockCounts[b] == 0) --b;
    return b;
}
