// SPDX-License-Identifier: Apache-2.0
// Searching and counting in a bit vector.
#include "zelbasictypes/sets/bitvectorruns.h"
#include "zelbasictypes/sets/wordkernels.h"

using namespace zelsets;

std::int32_t BitVector::recount() const {
    std::int64_t bits = 0;
    for (std::int32_t w = 0; w < wordCount(); w = endOfRun(w))
        if (const std::uint32_t* words = wordsAt(w))
            bits += countBits(words, static_cast<std::size_t>(endOfRun(w) - w));
    numSet_ = static_cast<std::int32_t>(bits);
    return numSet_;
}

std::int32_t BitVector::nextSetFar(std::int32_t after) const {
    return after >= maxBit_ ? -1 : findUp(std::max(after, -1) + 1, false, firstSet);
}

std::int32_t BitVector::nextClear(std::int32_t after) const {
    return after >= maxBit_ ? -1 : findUp(std::max(after, -1) + 1, true, firstClear);
}

std::int32_t BitVector::prevSet(std::int32_t before) const {
    return before < 1 ? -1 : findDown(std::min(before - 1, maxBit_), false, lastSet);
}

std::int32_t BitVector::prevClear(std::int32_t before) const {
    if (before < 1) return -1;
    return before - 1 > maxBit_ ? before - 1 : findDown(before - 1, true, lastClear);
}

std::int32_t BitVector::countAfter(std::int32_t position) const {
    return position >= maxBit_ ? 0 : countIn(std::max(position, -1) + 1, maxBit_);
}

std::int32_t BitVector::countBelow(std::int32_t limit) const {
    if (limit < 2 || numSet_ == 0 || test(0)) return 0;
    return countIn(1, std::min(limit - 1, maxBit_));
}

/// Within the room.
std::int32_t BitVector::countIn(std::int32_t first, std::int32_t last) const {
    std::int32_t bits = 0;
    for (std::int32_t w = first >> 5; w <= last >> 5; w = endOfRun(w)) {
        const std::int32_t base = w * wordBits;
        if (const std::uint32_t* words = wordsAt(w))
            bits += countRange(words, std::max(first - base, 0),
                               std::min(last, lastOf(endOfRun(w))) - base);
    }
    return bits;
}
