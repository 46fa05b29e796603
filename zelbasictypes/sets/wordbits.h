// SPDX-License-Identifier: Apache-2.0
/// @file
/// Single bits and ranges of bits in a run of words, the least significant bit of each word first.
///
/// Positions count from the first bit of the run. Ranges include both ends, and are empty when the
/// end is before the start.
#pragma once

#include <bit>
#include <cstdint>
#include <cstring>

namespace zelsets {

/// Bits in a word.
constexpr std::int32_t wordBits = 32;
/// The answer of a search that found nothing.
constexpr std::int32_t noBit = -1;

/// The mask of a bit within its word.
constexpr std::uint32_t maskOf(std::int32_t bit) { return std::uint32_t{1} << (bit & 31); }
/// The bit as 0 or 1, by a shift, which costs less than a mask and a comparison.
constexpr std::int32_t bitIn(std::uint32_t word, std::int32_t bit) {
    return static_cast<std::int32_t>(word >> (bit & 31) & 1);
}
/// The mask of the bits of its word from `bit` on.
constexpr std::uint32_t maskFrom(std::int32_t bit) { return ~std::uint32_t{0} << (bit & 31); }
/// The mask of the bits of its word up to and including `bit`.
constexpr std::uint32_t maskUpTo(std::int32_t bit) {
    return ~std::uint32_t{0} >> (31 - (bit & 31));
}

/// Changes or counts the bits of a range.
/// @{
void setBits(std::uint32_t* words, std::int32_t first, std::int32_t last);
void clearBits(std::uint32_t* words, std::int32_t first, std::int32_t last);
void invertBits(std::uint32_t* words, std::int32_t first, std::int32_t last);
std::int32_t countRange(const std::uint32_t* words, std::int32_t first, std::int32_t last);
/// @}

/// The lowest or highest set or clear bit of the range; noBit when there is none.
/// @{
std::int32_t firstSet(const std::uint32_t* words, std::int32_t first, std::int32_t last);
std::int32_t lastSet(const std::uint32_t* words, std::int32_t first, std::int32_t last);
std::int32_t firstClear(const std::uint32_t* words, std::int32_t first, std::int32_t last);
std::int32_t lastClear(const std::uint32_t* words, std::int32_t first, std::int32_t last);
/// @}

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

/// Calls `visit(base + i)` for each set bit i of `count` words, in ascending order. Where bits are
/// rare, most words are skipped four at a time.
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
