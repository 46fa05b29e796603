// SPDX-License-Identifier: Apache-2.0
// Whole ranges of a bit vector, its comparison, and its algebra with another one.
#include "zelbasictypes/sets/bitvectorruns.h"
#include "zelbasictypes/sets/wordkernels.h"

using namespace zelsets;

void BitVector::clearAll() {
    if (numSet_ == 0) return;
    clearWords(0, wordCount());
    numSet_ = 0;
}

void BitVector::setAll() {
    clear(0);
    changeBits(1, maxBit_, true, setBits);
    numSet_ = maxBit_;
}

void BitVector::setFirst(std::int32_t n) {
    n = std::max(n, 0);
    resize(n);
    clearWords(0, wordCount());
    changeBits(1, n, true, setBits);
    numSet_ = n;
}

void BitVector::complement() {
    changeBits(0, maxBit_, true, invertBits);
    numSet_ = unknownCount;
}

void BitVector::complementTo(std::int32_t n) {
    resize(n);
    changeBits(1, n, true, invertBits);
    numSet_ = unknownCount;
}

bool BitVector::setRange(std::int32_t first, std::int32_t last) {
    if (first > maxBit_) return false;
    changeBits(std::max(first, 0), std::min(last, maxBit_), true, setBits);
    numSet_ = unknownCount;
    return true;
}

bool BitVector::clearRange(std::int32_t first, std::int32_t last) {
    if (first > maxBit_) return false;
    changeBits(std::max(first, 0), std::min(last, maxBit_), false, clearBits);
    numSet_ = unknownCount;
    return true;
}

bool BitVector::operator==(const BitVector& other) const {
    if (this == &other) return true;
    if (numSet_ != unknownCount && other.numSet_ != unknownCount && numSet_ != other.numSet_)
        return false;
    const std::int32_t common = std::min(wordCount(), other.wordCount());
    const bool same = overPieces(other, common, [&](std::int32_t w, std::size_t count) {
        const std::uint32_t *a = wordsAt(w), *b = other.wordsAt(w);
        if (a && b) return areEqual(a, b, count);
        return (!a || areZero(a, count)) && (!b || areZero(b, count));
    });
    return same && areZeroFrom(common) && other.areZeroFrom(common);
}

bool BitVector::isSubsetOf(const BitVector& other) const {
    const std::int32_t common = std::min(wordCount(), other.wordCount());
    const bool within = overPieces(other, common, [&](std::int32_t w, std::size_t count) {
        const std::uint32_t *a = wordsAt(w), *b = other.wordsAt(w);
        return !a || (b ? isSubset(a, b, count) : areZero(a, count));
    });
    return within && areZeroFrom(common);
}

bool BitVector::isDisjointFrom(const BitVector& other) const {
    const std::int32_t common = std::min(wordCount(), other.wordCount());
    return overPieces(other, common, [&](std::int32_t w, std::size_t count) {
        const std::uint32_t *a = wordsAt(w), *b = other.wordsAt(w);
        return !a || !b || areDisjoint(a, b, count);
    });
}

bool BitVector::areZeroFrom(std::int32_t first) const {
    for (std::int32_t w = first; w < wordCount(); w = endOfRun(w)) {
        const std::uint32_t* words = wordsAt(w);
        if (words && !areZero(words, static_cast<std::size_t>(endOfRun(w) - w))) return false;
    }
    return true;
}

BitVector& BitVector::operator&=(const BitVector& other) {
    if (numSet_ == 0) return *this;
    if (other.numSet_ == 0) {
        clearAll();
        return *this;
    }
    const std::int32_t common = std::min(wordCount(), other.wordCount());
    overPieces(other, common, [&](std::int32_t w, std::size_t count) {
        std::uint32_t* to = wordsAt(w);
        const std::uint32_t* from = other.wordsAt(w);
        if (to && from) andWords(to, from, count);
        if (to && !from) std::fill_n(to, count, 0U);
        return true;
    });
    clearWords(common, wordCount());
    numSet_ = unknownCount;
    return *this;
}

BitVector& BitVector::operator|=(const BitVector& other) {
    merge(other, orWords);
    return *this;
}

BitVector& BitVector::operator^=(const BitVector& other) {
    merge(other, xorWords);
    return *this;
}

/// Grows as far as `other` has bits. A missing chunk is made only for words that aren't all 0.
void BitVector::merge(const BitVector& other, CombineWords combine) {
    if (other.numSet_ == 0) return;
    const std::int32_t end = other.highestWord() + 1;
    if (end > wordCount()) resize(lastOf(end));
    overPieces(other, end, [&](std::int32_t w, std::size_t count) {
        const std::uint32_t* from = other.wordsAt(w);
        if (from && (wordsAt(w) || !areZero(from, count))) combine(makeWordsAt(w), from, count, {});
        return true;
    });
    numSet_ = unknownCount;
}

BitVector& BitVector::operator-=(const BitVector& other) {
    if (numSet_ == 0 || other.numSet_ == 0) return *this;
    overPieces(other, std::min(wordCount(), other.wordCount()),
               [&](std::int32_t w, std::size_t count) {
                   std::uint32_t* to = wordsAt(w);
                   const std::uint32_t* from = other.wordsAt(w);
                   if (to && from) minusWords(to, from, count);
                   return true;
               });
    numSet_ = unknownCount;
    return *this;
}
