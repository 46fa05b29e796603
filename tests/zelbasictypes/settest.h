// SPDX-License-Identifier: Apache-2.0
// What the tests of sets share: sets of either kind by their bits, the algebra by its signs, and
// their streams.
#pragma once

#include "tests/zelbasictypes/modelbytes.h"
#include "tests/zelbasictypes/streams.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace settest {

using Bits = std::vector<std::int32_t>;

template <class Set> Set holding(const Bits& bits, std::int32_t maxBit = 0) {
    Set set(maxBit);
    for (const std::int32_t bit : bits) set.set(bit);
    return set;
}

template <class Set> Bits bitsOf(const Set& set) {
    Bits bits;
    for (std::int32_t i = set.nextSet(-1); i >= 0; i = set.nextSet(i)) bits.push_back(i);
    return bits;
}

template <class To, class Other> void combine(To& to, const Other& other, char operation) {
    if (operation == '&') to &= other;
    if (operation == '|') to |= other;
    if (operation == '^') to ^= other;
    if (operation == '-') to -= other;
}

template <class Set> Bytes written(const Set& set, std::uint32_t version = 0) {
    return writtenBy([&](BinOutput& out) { return set.write(out); }, version);
}

template <class Set> bool readInto(Set& set, const Bytes& from) {
    BinInputMemory in(from);
    return set.read(in);
}

/// Of a written set: -1 where it isn't known.
inline std::int32_t countOf(const Bytes& stream) {
    return bigendian::load<std::int32_t>(&stream[16]);
}

} // namespace settest
