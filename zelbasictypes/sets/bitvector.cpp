// SPDX-License-Identifier: Apache-2.0
// The dense layout of the bit vector: all words in one block.
#include "zelbasictypes/sets/bitvector.h"

#include "zelbasictypes/memory/korrealloc.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <limits>
#include <utility>

namespace {

constexpr std::int32_t wordBits = 32;
constexpr std::int32_t unknownCount = -1;
/// Below this size a growing vector doubles its room only up to `speculativeWords`.
constexpr std::int32_t smallWords = 4097;
constexpr std::int32_t speculativeWords = 6144;

std::int32_t wordsFor(std::int32_t maxBit) { return (std::max(maxBit, 0) >> 5) + 1; }

std::uint32_t maskOf(std::int32_t bit) { return std::uint32_t{1} << (bit & 31); }

/// The words of a room that begins at `from` bits and doubles until it is above `target`.
std::int32_t doubledWords(std::int32_t from, std::int32_t target) {
    std::int64_t maxBit = from;
    while (maxBit <= target) maxBit *= 2;
    return wordsFor(static_cast<std::int32_t>(
        std::min<std::int64_t>(maxBit, std::numeric_limits<std::int32_t>::max())));
}

std::uint32_t* zeroWords(std::int32_t count) {
    void* block = nullptr;
    korMalloc(&block, sizeof(std::uint32_t), count);
    std::memset(block, 0, sizeof(std::uint32_t) * static_cast<std::size_t>(count));
    return static_cast<std::uint32_t*>(block);
}

} // namespace

BitVector::BitVector(std::int32_t maxBit)
    : bvwords_(zeroWords(wordsFor(maxBit))), maxBit_(wordsFor(maxBit) * wordBits - 1) {}

BitVector::BitVector(const BitVector& other) : ZelShared(other), maxBit_(other.maxBit_) {
    bvwords_ = zeroWords(wordCount());
    copyWords(other);
}

BitVector::BitVector(BitVector&& other) noexcept
    : bvwords_(std::exchange(other.bvwords_, nullptr)),
      bvwordsLarge_(std::exchange(other.bvwordsLarge_, nullptr)),
      magic_(std::exchange(other.magic_, nullptr)), maxBit_(other.maxBit_), numSet_(other.numSet_) {
}

BitVector& BitVector::operator=(const BitVector& other) {
    if (this == &other) return *this;
    if (wordCount() < other.wordCount()) {
        zelFreeBlock(bvwords_);
        bvwords_ = zeroWords(other.wordCount());
        maxBit_ = other.maxBit_;
    } else {
        std::fill(bvwords_ + other.wordCount(), bvwords_ + wordCount(), 0U);
    }
    copyWords(other);
    return *this;
}

BitVector::~BitVector() { zelFreeBlock(bvwords_); }

/// For a vector with at least the room of `other`.
void BitVector::copyWords(const BitVector& other) {
    std::copy(other.bvwords_, other.bvwords_ + other.wordCount(), bvwords_);
    numSet_ = other.numSet_;
}

bool BitVector::test(std::int32_t i) const {
    return i <= maxBit_ && (bvwords_[i >> 5] & maskOf(i)) != 0;
}

bool BitVector::set(std::int32_t i) {
    if (i > maxBit_) resize(i);
    std::uint32_t& word = bvwords_[i >> 5];
    if (numSet_ != unknownCount && !(word & maskOf(i))) ++numSet_;
    word |= maskOf(i);
    return true;
}

bool BitVector::clear(std::int32_t i) {
    if (i > maxBit_) return true;
    std::uint32_t& word = bvwords_[i >> 5];
    if (numSet_ != unknownCount && (word & maskOf(i))) --numSet_;
    word &= ~maskOf(i);
    return true;
}

std::int32_t BitVector::count() const { return numSet_ == unknownCount ? recount() : numSet_; }

std::int32_t BitVector::recount() const {
    numSet_ = 0;
    for (std::int32_t w = 0; w < wordCount(); ++w) numSet_ += std::popcount(bvwords_[w]);
    return numSet_;
}

void BitVector::clearAll() {
    if (numSet_ == 0) return;
    std::fill(bvwords_, bvwords_ + wordCount(), 0U);
    numSet_ = 0;
}

void BitVector::resize(std::int32_t maxBit) {
    const std::int32_t target = std::max(maxBit, wordBits - 1);
    const std::int32_t needed = wordsFor(target);
    if (needed == wordCount()) return;
    const bool growing = needed > wordCount();
    std::int32_t wished = growing ? doubledWords(maxBit_, target) : needed;
    if (needed < smallWords) wished = std::min(wished, speculativeWords);
    if (!growing) numSet_ = unknownCount;
    void* words = bvwords_;
    const std::int32_t got = korRealloc(&words, sizeof(std::uint32_t), wordCount(), needed, wished);
    bvwords_ = static_cast<std::uint32_t*>(words);
    maxBit_ = static_cast<std::int32_t>(std::int64_t{got} * wordBits - 1);
}

std::int32_t BitVector::nextSet(std::int32_t after) const {
    const std::int32_t first = after + 1;
    if (after >= maxBit_) return -1;
    std::int32_t w = first >> 5;
    std::uint32_t word = bvwords_[w] & (~std::uint32_t{0} << (first & 31));
    while (word == 0) {
        if (++w >= wordCount()) return -1;
        word = bvwords_[w];
    }
    return w * wordBits + std::countr_zero(word);
}

bool BitVector::operator==(const BitVector& other) const {
    if (this == &other) return true;
    if (numSet_ != unknownCount && other.numSet_ != unknownCount && numSet_ != other.numSet_) {
        return false;
    }
    const BitVector& longer = wordCount() < other.wordCount() ? other : *this;
    const std::int32_t common = std::min(wordCount(), other.wordCount());
    return std::equal(bvwords_, bvwords_ + common, other.bvwords_) &&
           std::all_of(longer.bvwords_ + common, longer.bvwords_ + longer.wordCount(),
                       [](std::uint32_t word) { return word == 0; });
}
