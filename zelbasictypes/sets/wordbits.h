// SPDX-License-Identifier: Apache-2.0
/// @file
/// Single bits and ranges of bits in a run of words, the least significant bit of each word first.
///
/// Positions count from the first bit of the run. A range is closed and may be empty, with its end
/// before its start.
#pragma once

#include <bit>
#include <cstdint>
#include <cstring>

namespace zelsets {

constexpr std::int32_t wordBits = 32;
constexpr std::int32_t noBit = -1;

constexpr std::uint32_t maskOf(std::int32_t bit) { return std::uint32_t{1} << (bit & 31); }
/// 0 or 1. By a shift, which costs less than a mask and a comparison.
constexpr std::int32_t bitIn(std::uint32_t word, std::int32_t bit) {
    return static_cast<std::int32_t>(word >> (bit & 31) & 1);
}
/// The bits of its word from `bit` on.
constexpr std::uint32_t maskFrom(std::int32_t bit) { return ~std::uint32_t{0} << (bit & 31); }
/// The bits of its word up to and including `bit`.
constexpr std::uint32_t maskUpTo(std::int32_t bit) {
    return ~std::uint32_t{0} >> (31 - (bit & 31));
}

void setBits(std::uint32_t* words, std::int32_t first, std::int32_t last);
void clearBits(std::uint32_t* words, std::int32_t first, std::int32_t last);
void invertBits(std::uint32_t* words, std::int32_t first, std::int32_t last);
std::int32_t countRange(const std::uint32_t* words, std::int32_t first, std::int32_t last);

/// The lowest set bit of the range, the highest one, the same for clear bits; -1 when there is
/// none.
std::int32_t firstSet(const std::uint32_t* words, std::int32_t first, std::int32_t last);
std::int32_t lastSet(const std::uint32_t* words, std::int32_t first, std::int32_t last);
std::int32_t firstClear(const std::uint32_t* words, std::int32_t first, std::int32_t last);
std::int32_t lastClear(const std::uint32_t* words, std::int32_t first, std::int32_t last);

/// Two words as one number, the first one low.
inline std::uint64_t wordPair(const std::uint32_t* words) {
    std::uint64_t pair;
    std::memcpy(&pair, words, sizeof pair);
    if constexpr (std::endian::native == std::endian::big) pair = pair << 32 | pair >> 32;
    return pair;
}

/// Calls `visit(base + i)` for each set bit i of `word`.
template <class Word, class Visit> void visitWord(Word word, std::uint32_t base, Visit& visit) {
    for (; word != 0; word &= word - 1)
        visit(static_cast<std::int32_t>(base + static_cast<std::uint32_t>(std::countr_zero(word))));
}

/// Calls `visit(base + i)` for each set bit i of `count` words, in ascending order. Where the bits
/// are few, most words are passed over four at a time.
template <class Visit>
void visitBits(const std::uint32_t* words, std::int32_t count, std::int32_t base, Visit& visit) {
    const std::uint32_t* const end = words + count;
    auto first = static_cast<std::uint32_t>(base);
    for (; end - words >= 4; words += 4, first += 4 * wordBits) {
        const std::uint64_t low = wordPair(words), high = wordPair(words + 2);
        if ((low | high) == 0) continue;
        visitWord(low, first, visit);
        visitWord(high, first + 2 * wordBits, visit);
    }
    for (; words != end; ++words, first += wordBits) visitWord(*words, first, visit);
}

} // namespace zelsets
