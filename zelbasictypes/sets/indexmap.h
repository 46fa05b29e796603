// SPDX-License-Identifier: Apache-2.0
/// @file
/// Reads an index array as a map from identifiers to identifiers. An entry that isn't a positive
/// 32-bit number maps to nothing.
#pragma once

#include "zelbasictypes/sets/bitvector.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace zelsets {

/// The target of `i`; 0 when it maps to nothing.
inline std::int32_t targetOf(const BitVector::IndexMap& map, std::int32_t i) {
    return std::max(static_cast<std::int32_t>(map.at(static_cast<std::uint32_t>(i))), 0);
}

/// The number of entries of a map that a set can have elements for.
inline std::int64_t mappedEnd(const BitVector::IndexMap& map) {
    constexpr std::int64_t most = std::int64_t{std::numeric_limits<std::int32_t>::max()} + 1;
    return std::min<std::int64_t>(map.size(), most);
}

/// Calls `visit(i, j)` for each entry i -> j, in ascending i. `visit` may change the map; later
/// entries are visited with their new values.
template <class Visit> void visitMapping(const BitVector::IndexMap& map, Visit visit) {
    for (std::int64_t i = 0; i < mappedEnd(map); ++i) {
        const auto place = static_cast<std::uint32_t>(i);
        if (!map.chunkAt(BitVectorSplitter::chunkOf(place))) {
            i |= BitVectorSplitter::chunkElements - 1;
            continue;
        }
        const std::int32_t from = static_cast<std::int32_t>(i);
        if (const std::int32_t to = targetOf(map, from)) visit(from, to);
    }
}

/// The highest index that maps to something, or 0.
inline std::int32_t highestMapped(const BitVector::IndexMap& map) {
    for (std::int64_t i = mappedEnd(map) - 1; i > 0; --i)
        if (targetOf(map, static_cast<std::int32_t>(i)) != 0) return static_cast<std::int32_t>(i);
    return 0;
}

} // namespace zelsets
