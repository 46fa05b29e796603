// SPDX-License-Identifier: Apache-2.0
// Ranges of bits, by partial words at their ends and whole words between.
#include "zelbasictypes/sets/wordbits.h"

#include "zelbasictypes/sets/wordkernels.h"

#include <algorithm>

namespace zelsets {

namespace {

/// Calls `partial(word, mask)` for the words at the ends, and `whole(words, count)` for those
/// between them.
template <class Word, class Partial, class Whole>
void overRange(Word* words, std::int32_t first, std::int32_t last, Partial partial, Whole whole) {
    if (first > last) return;
    const std::int32_t from = first >> 5, to = last >> 5;
    if (from == to) return partial(words[from], maskFrom(first) & maskUpTo(last));
    partial(words[from], maskFrom(first));
    whole(words + from + 1, static_cast<std::size_t>(to - from - 1));
    partial(words[to], maskUpTo(last));
}

/// The lowest bit of the range in the words as `turned`, which inverts them or not.
template <class Turn>
std::int32_t lowest(const std::uint32_t* words, std::int32_t first, std::int32_t last,
                    Turn turned) {
    if (first > last) return noBit;
    std::int32_t w = first >> 5;
    const std::int32_t end = last >> 5;
    std::uint32_t word = turned(words[w]) & maskFrom(first);
    while (word == 0 && w < end) word = turned(words[++w]);
    if (w == end) word &= maskUpTo(last);
    return word == 0 ? noBit : w * wordBits + std::countr_zero(word);
}

template <class Turn>
std::int32_t highest(const std::uint32_t* words, std::int32_t first, std::int32_t last,
                     Turn turned) {
    if (first > last) return noBit;
    std::int32_t w = last >> 5;
    const std::int32_t end = first >> 5;
    std::uint32_t word = turned(words[w]) & maskUpTo(last);
    while (word == 0 && w > end) word = turned(words[--w]);
    if (w == end) word &= maskFrom(first);
    return word == 0 ? noBit : w * wordBits + 31 - std::countl_zero(word);
}

constexpr auto asItIs = [](std::uint32_t word) { return word; };
constexpr auto inverted = [](std::uint32_t word) { return ~word; };

} // namespace

void setBits(std::uint32_t* words, std::int32_t first, std::int32_t last) {
    overRange(
        words, first, last, [](std::uint32_t& word, std::uint32_t mask) { word |= mask; },
        [](std::uint32_t* from, std::size_t count) { std::fill_n(from, count, ~0U); });
}

void clearBits(std::uint32_t* words, std::int32_t first, std::int32_t last) {
    overRange(
        words, first, last, [](std::uint32_t& word, std::uint32_t mask) { word &= ~mask; },
        [](std::uint32_t* from, std::size_t count) { std::fill_n(from, count, 0U); });
}

void invertBits(std::uint32_t* words, std::int32_t first, std::int32_t last) {
    overRange(
        words, first, last, [](std::uint32_t& word, std::uint32_t mask) { word ^= mask; },
        [](std::uint32_t* from, std::size_t count) { invertWords(from, count); });
}

std::int32_t countRange(const std::uint32_t* words, std::int32_t first, std::int32_t last) {
    std::int64_t bits = 0;
    overRange(
        words, first, last,
        [&](std::uint32_t word, std::uint32_t mask) { bits += std::popcount(word & mask); },
        [&](const std::uint32_t* from, std::size_t count) { bits += countBits(from, count); });
    return static_cast<std::int32_t>(bits);
}

std::int32_t firstSet(const std::uint32_t* words, std::int32_t first, std::int32_t last) {
    return lowest(words, first, last, asItIs);
}

std::int32_t lastSet(const std::uint32_t* words, std::int32_t first, std::int32_t last) {
    return highest(words, first, last, asItIs);
}

std::int32_t firstClear(const std::uint32_t* words, std::int32_t first, std::int32_t last) {
    return lowest(words, first, last, inverted);
}

std::int32_t lastClear(const std::uint32_t* words, std::int32_t first, std::int32_t last) {
    return highest(words, first, last, inverted);
}

} // namespace zelsets
