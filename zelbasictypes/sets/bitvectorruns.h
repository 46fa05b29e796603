// SPDX-License-Identifier: Apache-2.0
/// @file
/// How the sources of the bit vector iterate over its words: one run for a dense vector, one per
/// chunk for a large one.
#pragma once

#include "zelbasictypes/sets/bitvector.h"

#include <algorithm>

/// Calls `change(words, first, last)` for the part of the bits in each run, counted from the first
/// bit of the run. The range must lie within the room.
template <class Change>
void BitVector::changeBits(std::int32_t first, std::int32_t last, bool makeMissing, Change change) {
    if (first > last) return;
    for (std::int32_t w = first >> 5, next; w <= last >> 5; w = next) {
        next = endOfRun(w);
        std::uint32_t* words = makeMissing ? makeWordsAt(w) : wordsAt(w);
        const std::int32_t base = w * zelsets::wordBits;
        if (words) change(words, std::max(first - base, 0), std::min(last, lastOf(next)) - base);
    }
}

/// Calls `piece(w, count)` for pieces of words that stand together in both vectors, up to `end`,
/// for as long as the answer is true; the result is the last answer.
template <class Piece>
bool BitVector::overPieces(const BitVector& other, std::int32_t end, Piece piece) const {
    for (std::int32_t w = 0, next; w < end; w = next) {
        next = std::min({end, endOfRun(w), other.endOfRun(w)});
        if (!piece(w, static_cast<std::size_t>(next - w))) return false;
    }
    return true;
}

/// The answer of `find` for the lowest run that has one, from `first` on. In a missing chunk every
/// bit counts where `inMissing` says so.
template <class Find>
std::int32_t BitVector::findUp(std::int32_t first, bool inMissing, Find find) const {
    for (std::int32_t w = first >> 5; w < wordCount(); w = endOfRun(w)) {
        const std::int32_t base = w * zelsets::wordBits;
        const std::uint32_t* words = wordsAt(w);
        if (!words && inMissing) return std::max(first, base);
        const std::int32_t found =
            words ? find(words, std::max(first - base, 0), lastOf(endOfRun(w)) - base) : -1;
        if (found >= 0) return base + found;
    }
    return -1;
}

/// The same downwards from `last`, which has room.
template <class Find>
std::int32_t BitVector::findDown(std::int32_t last, bool inMissing, Find find) const {
    for (std::int32_t bit = last; bit >= 0;) {
        const std::int32_t base = startOfRun(bit >> 5) * zelsets::wordBits;
        const std::uint32_t* words = wordsAt(base >> 5);
        if (!words && inMissing) return bit;
        const std::int32_t found = words ? find(words, 0, bit - base) : -1;
        if (found >= 0) return base + found;
        bit = base - 1;
    }
    return -1;
}
