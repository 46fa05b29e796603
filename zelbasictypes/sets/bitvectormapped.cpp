// SPDX-License-Identifier: Apache-2.0
// What a bit vector does through an index array.
#include "zelbasictypes/sets/bitvector.h"
#include "zelbasictypes/sets/indexmap.h"

#include <algorithm>

using zelsets::mappedEnd;
using zelsets::targetOf;
using zelsets::visitMapping;

void BitVector::assignMapped(const BitVector& other, const IndexMap& map) {
    visitMapping(map, [&](std::int32_t i, std::int32_t j) { other.test(i) ? set(j) : clear(j); });
}

void BitVector::andMapped(const BitVector& other, const IndexMap& map) {
    visitMapping(map, [&](std::int32_t i, std::int32_t j) {
        if (!other.test(i)) clear(j);
    });
}

void BitVector::orMapped(const BitVector& other, const IndexMap& map) {
    visitMapping(map, [&](std::int32_t i, std::int32_t j) {
        if (other.test(i)) set(j);
    });
}

void BitVector::xorMapped(const BitVector& other, const IndexMap& map) {
    visitMapping(map, [&](std::int32_t i, std::int32_t j) {
        if (other.test(i)) toggle(j);
    });
}

void BitVector::minusMapped(const BitVector& other, const IndexMap& map) {
    visitMapping(map, [&](std::int32_t i, std::int32_t j) {
        if (other.test(i)) clear(j);
    });
}

void BitVector::complementMapped(const IndexMap& map) {
    visitMapping(map, [&](std::int32_t, std::int32_t j) { toggle(j); });
}

void BitVector::renumber(const IndexMap& map) {
    const std::int64_t end = std::min(mappedEnd(map), std::int64_t{maxBit_} + 1);
    std::int32_t last = 1;
    for (std::int32_t i = nextSet(-1); i >= 0 && i < end; i = nextSet(i)) {
        clear(i);
        const std::int32_t j = targetOf(map, i);
        if (j == 0) continue;
        set(j);
        last = j;
    }
    resize(last);
}

/// Walks each cycle once; what stays to be done is the set of the places not visited yet.
void BitVector::permute(const IndexMap& map) {
    if (count() == 0) return;
    BitVector unvisited(zelsets::highestMapped(map));
    unvisited.setFirst(zelsets::highestMapped(map));
    unvisited.set(0);
    for (std::int32_t start = 0; start >= 0; start = unvisited.nextSet(start)) {
        const bool first = test(start);
        unvisited.clear(start);
        std::int32_t current = start;
        for (std::int32_t next = targetOf(map, current); unvisited.test(next);
             next = targetOf(map, current)) {
            test(next) ? set(current) : clear(current);
            unvisited.clear(next);
            current = next;
        }
        first ? set(current) : clear(current);
    }
}
