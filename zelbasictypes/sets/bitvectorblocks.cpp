// SPDX-License-Identifier: Apache-2.0
// The algebra of bit vectors with block vectors, and their taking each other's place. A block never
// lies across two runs of words.
#include "zelbasictypes/sets/bitvectorruns.h"
#include "zelbasictypes/sets/blockbitvector.h"
#include "zelbasictypes/sets/wordkernels.h"

using namespace zelsets;

BitVector::BitVector(const BlockBitVector& other) : BitVector() { assign(other); }

void BitVector::assign(const BlockBitVector& other) {
    clearAll();
    growFor(other);
    combineBlocks(other, orWords);
    numSet_ = other.count();
}

void BitVector::growFor(const BlockBitVector& other) {
    const std::int32_t highest = other.prevSet(highestIndex);
    if (other.test(highestIndex)) return resize(highestIndex);
    if (highest > maxBit_) resize(highest);
}

BitVector& BitVector::operator&=(const BlockBitVector& other) {
    if (numSet_ == 0) return *this;
    if (other.numSet_ == 0) {
        clearAll();
        return *this;
    }
    for (std::int32_t w = 0, next; w < wordCount(); w = next) {
        next = std::min(w + BlockBitVector::blockWords, wordCount());
        std::uint32_t* to = wordsAt(w);
        if (!to) continue;
        const std::uint32_t* from = other.wordsOf(w / BlockBitVector::blockWords);
        if (!from) std::fill(to, to + (next - w), 0U);
        if (from && !other.isFull(w / BlockBitVector::blockWords))
            andWords(to, from, static_cast<std::size_t>(next - w));
    }
    numSet_ = unknownCount;
    return *this;
}

BitVector& BitVector::operator|=(const BlockBitVector& other) {
    if (other.numSet_ == 0) return *this;
    growFor(other);
    combineBlocks(other, orWords);
    return *this;
}

BitVector& BitVector::operator^=(const BlockBitVector& other) {
    if (other.numSet_ == 0) return *this;
    growFor(other);
    combineBlocks(other, xorWords);
    return *this;
}

BitVector& BitVector::operator-=(const BlockBitVector& other) {
    if (numSet_ == 0 || other.numSet_ == 0) return *this;
    combineBlocks(other, minusWords);
    return *this;
}

/// For operations that 0 on both sides leaves at 0. Makes a missing chunk only where words come
/// that aren't all 0; taking bits out of it would do no harm.
void BitVector::combineBlocks(const BlockBitVector& other, CombineWords combine) {
    const std::int32_t last = other.lastUsedBlock();
    for (std::int32_t b = 0; b <= last; ++b) {
        const std::int32_t w = b * BlockBitVector::blockWords;
        if (w >= wordCount()) break;
        const std::uint32_t* from = other.wordsOf(b);
        const auto count =
            static_cast<std::size_t>(std::min(wordCount() - w, BlockBitVector::blockWords));
        if (from && (wordsAt(w) || (combine != minusWords && !areZero(from, count))))
            combine(makeWordsAt(w), from, count, {});
    }
    numSet_ = unknownCount;
}
