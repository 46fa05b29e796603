// SPDX-License-Identifier: Apache-2.0
// The bit vector's storage in its two layouts, and the passage between them.
#include "zelbasictypes/sets/bitvector.h"

#include "zelbasictypes/data/binio_magic.h"
#include "zelbasictypes/diagnostics/zelassert.h"
#include "zelbasictypes/memory/korrealloc.h"
#include "zelbasictypes/memory/memorymanager.h"
#include "zelbasictypes/memory/zelnew.h"
#include "zelbasictypes/sets/bitvectorruns.h"
#include "zelbasictypes/sets/wordkernels.h"

#include <algorithm>
#include <limits>
#include <utility>

using namespace zelsets;

namespace {

// All in words.
constexpr std::int32_t largeFromStart = 4096;
constexpr std::int32_t largeFromGrowth = 4097;
constexpr std::int32_t denseBelow = 1536;
/// How far ahead a vector grows while it can't become large.
constexpr std::int32_t speculativeWords = 6144;

std::int32_t wordsFor(std::int32_t maxBit) { return (std::max(maxBit, 0) >> 5) + 1; }

/// The words of a room that begins at `from` bits and doubles until it is above `target`.
std::int32_t doubledWords(std::int32_t from, std::int32_t target) {
    std::int64_t maxBit = from;
    while (maxBit <= target) maxBit *= 2;
    return wordsFor(static_cast<std::int32_t>(
        std::min<std::int64_t>(maxBit, std::numeric_limits<std::int32_t>::max())));
}

std::uint32_t* newWords(std::int32_t count) {
    void* block = nullptr;
    korMalloc(&block, sizeof(std::uint32_t), count);
    return static_cast<std::uint32_t*>(block);
}

std::uint32_t* zeroWords(std::int32_t count) {
    void* block = nullptr;
    korMallocZeroed(&block, sizeof(std::uint32_t), count);
    return static_cast<std::uint32_t*>(block);
}

} // namespace

BitVector::BitVector(std::int32_t maxBit)
    : magic_(zelNew<BinIO_Magic>(static_cast<std::int32_t>(streamMagic))) {
    makeStorage(wordsFor(maxBit));
}

BitVector::BitVector(const BitVector& other)
    : ZelShared(other), magic_(zelNew<BinIO_Magic>(*other.magic_)) {
    copyStorage(other);
}

BitVector::BitVector(BitVector&& other) noexcept
    : bvwords_(std::exchange(other.bvwords_, nullptr)),
      bvwordsLarge_(std::exchange(other.bvwordsLarge_, nullptr)),
      magic_(std::exchange(other.magic_, nullptr)), maxBit_(other.maxBit_), numSet_(other.numSet_) {
}

BitVector::~BitVector() {
    freeStorage();
    delete magic_;
}

BitVector& BitVector::operator=(const BitVector& other) {
    if (this == &other) return *this;
    if (bvwords_ && wordCount() >= other.wordCount()) {
        copyWords(other, other.wordCount());
        if (numSet_ != 0) clearWords(other.wordCount(), wordCount());
    } else {
        freeStorage();
        copyStorage(other);
    }
    numSet_ = other.numSet_;
    return *this;
}

void BitVector::copyBits(const BitVector& other) {
    if (this == &other) return;
    const std::int32_t words = other.highestWord() + 1;
    if (words > wordCount()) growKeepingLayout(words);
    copyWords(other, words);
    clearWords(words, wordCount());
    numSet_ = other.numSet_;
}

void BitVector::swap(BitVector& other) noexcept {
    std::swap(bvwords_, other.bvwords_);
    std::swap(bvwordsLarge_, other.bvwordsLarge_);
    std::swap(maxBit_, other.maxBit_);
    std::swap(numSet_, other.numSet_);
}

const BitVector& BitVector::sharedEmpty() {
    static const BitVector empty(10);
    return empty;
}

bool BitVector::allChunksPresent() const {
    return !bvwordsLarge_ || bvwordsLarge_->allChunksPresent();
}

/// For a vector without storage.
void BitVector::makeStorage(std::int32_t words) {
    if (words >= largeFromStart && zelMemoryManager()) {
        bvwordsLarge_ = zelNew<LargeWords>(static_cast<std::uint32_t>(words));
        words = static_cast<std::int32_t>(bvwordsLarge_->size());
    } else {
        bvwords_ = zeroWords(words);
    }
    maxBit_ = lastOf(words);
}

void BitVector::freeStorage() {
    zelFreeBlock(std::exchange(bvwords_, nullptr));
    delete std::exchange(bvwordsLarge_, nullptr);
}

/// For a vector without storage: the other's layout, room, bits and count.
void BitVector::copyStorage(const BitVector& other) {
    if (other.bvwordsLarge_) {
        bvwordsLarge_ = zelNew<LargeWords>(other.bvwordsLarge_->size());
        bvwordsLarge_->assign(*other.bvwordsLarge_, other.bvwordsLarge_->size());
    } else {
        bvwords_ = newWords(other.wordCount());
        std::copy_n(other.bvwords_, other.wordCount(), bvwords_);
    }
    maxBit_ = other.maxBit_;
    numSet_ = other.numSet_;
}

void BitVector::resize(std::int32_t maxBit) {
    const std::int32_t target = std::max(maxBit, wordBits - 1);
    const std::int32_t needed = wordsFor(target);
    if (needed == wordCount()) return;
    const bool growing = needed > wordCount();
    const std::int32_t wished = growing ? doubledWords(maxBit_, target) : needed;
    if (!growing) numSet_ = unknownCount;
    if (bvwordsLarge_ && !growing && needed < denseBelow) {
        becomeDense(needed);
    } else if (bvwordsLarge_) {
        bvwordsLarge_->resize(static_cast<std::uint32_t>(wished), true);
        maxBit_ = lastOf(static_cast<std::int32_t>(bvwordsLarge_->size()));
    } else if (growing && needed >= largeFromGrowth && zelMemoryManager()) {
        becomeLarge(wished);
    } else {
        resizeDense(needed, wished);
    }
}

/// A vector that could have become large takes all the room that it wishes.
void BitVector::resizeDense(std::int32_t needed, std::int32_t wished) {
    if (needed < largeFromGrowth) wished = std::min(wished, speculativeWords);
    void* words = bvwords_;
    const std::int32_t got = korRealloc(&words, sizeof(std::uint32_t), wordCount(), needed, wished);
    bvwords_ = static_cast<std::uint32_t*>(words);
    maxBit_ = lastOf(got);
}

void BitVector::becomeLarge(std::int32_t words) {
    ZEL_ASSERT(!bvwordsLarge_);
    auto* large = zelNew<LargeWords>(static_cast<std::uint32_t>(words));
    for (std::int32_t w = 0; w < wordCount(); ++w)
        large->set(static_cast<std::uint32_t>(w), bvwords_[w]);
    zelFreeBlock(std::exchange(bvwords_, nullptr));
    bvwordsLarge_ = large;
    maxBit_ = lastOf(static_cast<std::int32_t>(large->size()));
}

void BitVector::becomeDense(std::int32_t words) {
    ZEL_ASSERT(!bvwords_);
    std::uint32_t* dense = newWords(words);
    for (std::int32_t w = 0; w < words; ++w)
        dense[w] = bvwordsLarge_->at(static_cast<std::uint32_t>(w));
    delete std::exchange(bvwordsLarge_, nullptr);
    bvwords_ = dense;
    maxBit_ = lastOf(words);
}

void BitVector::growKeepingLayout(std::int32_t words) {
    if (bvwords_) return resizeDense(words, words);
    bvwordsLarge_->resize(static_cast<std::uint32_t>(words), true);
    maxBit_ = lastOf(static_cast<std::int32_t>(bvwordsLarge_->size()));
}

std::uint32_t* BitVector::makeWordsAt(std::int32_t w) {
    if (bvwords_) return bvwords_ + w;
    const auto place = static_cast<std::uint32_t>(w);
    return bvwordsLarge_->chunkForWriting(BitVectorSplitter::chunkOf(place)) +
           BitVectorSplitter::offsetOf(place);
}

bool BitVector::setFar(std::int32_t i) {
    if (i < 0) return true;
    if (i > maxBit_) resize(i);
    setIn(*makeWordsAt(i >> 5), i);
    return true;
}

/// The words below `end` become those of `other`; this vector has room for them.
void BitVector::copyWords(const BitVector& other, std::int32_t end) {
    for (std::int32_t w = 0, next; w < end; w = next) {
        next = std::min({end, endOfRun(w), other.endOfRun(w)});
        const std::uint32_t* from = other.wordsAt(w);
        const bool isZero =
            !from || (!wordsAt(w) && areZero(from, static_cast<std::size_t>(next - w)));
        if (isZero) {
            clearWords(w, next);
        } else {
            std::copy_n(from, next - w, makeWordsAt(w));
        }
    }
}

void BitVector::clearWords(std::int32_t first, std::int32_t end) {
    for (std::int32_t w = first, next; w < end; w = next) {
        next = std::min(end, endOfRun(w));
        if (std::uint32_t* words = wordsAt(w)) std::fill(words, words + (next - w), 0U);
    }
}

/// The last word that isn't 0, or -1.
std::int32_t BitVector::highestWord() const {
    const std::int32_t bit = findDown(maxBit_, false, lastSet);
    return bit < 0 ? -1 : bit >> 5;
}
