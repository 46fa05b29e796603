// SPDX-License-Identifier: Apache-2.0
// The sets that race, each kind made once from the same words and kept for all repetitions.
#pragma once

#include "zelbasictypes/sets/blockbitvector.h"

#include <boost/dynamic_bitset.hpp>
#include <roaring/roaring.hh>

#include <compare>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace samples {

using Words = std::vector<std::uint32_t>;
using Boost = boost::dynamic_bitset<std::uint64_t>;
using Flags = std::vector<bool>;

/// In chunks from the host's manager, where it is large enough; a mere BitVector is dense here.
struct ChunkedBitVector : BitVector {
    using BitVector::BitVector;
};

/// Scattered bits, or runs with gaps of about the same length.
struct Shape {
    std::int32_t perMille = 0; ///< that are set, for scattered bits
    std::int32_t run = 0;      ///< bits in a run, or 0

    auto operator<=>(const Shape&) const = default;
};

inline constexpr Shape halfFull = {500, 0};
inline constexpr Shape scattered[] = {{1, 0}, {10, 0}, halfFull};
inline constexpr Shape clustered[] = {{0, 30'000}, {0, 500'000}};
inline constexpr std::int32_t sizes[] = {10'000, 1'000'000, 100'000'000};
/// Whether a vector of the size can stand in chunks.
constexpr bool isLarge(std::int32_t size) { return size >= 1'000'000; }

std::string nameOf(std::int32_t size);
std::string nameOf(std::int32_t size, const Shape& shape);

struct Sample {
    std::int32_t size;
    Shape shape;
    std::uint32_t seed = 1;

    auto operator<=>(const Sample&) const = default;
};

/// One 32-bit word for each 32 bits, the last one possibly with room behind the size.
const Words& wordsOf(const Sample& sample);

/// Fill an empty set.
void fill(const Words& words, Words& set);
void fill(const Words& words, BitVector& set);
void fill(const Words& words, ChunkedBitVector& set);
void fill(const Words& words, BlockBitVector& set); ///< compacted
void fill(const Words& words, Boost& set);
void fill(const Words& words, Flags& set);
void fill(const Words& words, Roaring& set); ///< with its runs optimised

template <class Set> const Set& setOf(const Sample& sample) {
    static std::map<Sample, Set> made;
    const auto [entry, isNew] = made.try_emplace(sample);
    if (isNew) fill(wordsOf(sample), entry->second);
    return entry->second;
}

} // namespace samples
