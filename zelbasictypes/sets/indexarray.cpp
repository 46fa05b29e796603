// SPDX-License-Identifier: Apache-2.0
// Index arrays: their room, their inversion, and the forest.
#include "zelbasictypes/sets/indexarray.h"

#include "zelbasictypes/sets/indexmap.h"
#include "zelbasictypes/sets/wordkernels.h"

#include <algorithm>

using namespace zelsets;

namespace {

constexpr std::uint32_t chunkEntries = BitVectorSplitter::chunkElements;
constexpr std::uint32_t highestIndex = BitVector::highestIndex;

} // namespace

void IndexArray::extendFor(std::uint32_t i) {
    if (i < size()) return;
    std::uint32_t target = size();
    growTarget(i, target, elementSize());
    resize(target, true);
}

void IndexArray::store(std::uint32_t i, std::uint32_t value) {
    if (i > highestIndex) return;
    extendFor(i);
    set(i, value);
}

void IndexArray::setSize(std::uint32_t elements, std::int32_t capacity, bool clearNew) {
    const std::uint32_t old = size();
    if (capacity < 0) {
        resize(elements, false);
    } else if (capacity == 0) {
        resize(std::max(elements, old), false);
    } else if (elements > old) {
        resize(static_cast<std::uint32_t>(capacity), false);
    }
    if (clearNew && size() > old) clearRange(old, size());
}

bool IndexArray::operator==(const IndexArray& other) const {
    const std::uint32_t count = std::max(chunkCount(), other.chunkCount());
    for (std::uint32_t c = 0; c < count; ++c) {
        const std::uint32_t* a = c < chunkCount() ? chunkAt(c) : nullptr;
        const std::uint32_t* b = c < other.chunkCount() ? other.chunkAt(c) : nullptr;
        if (a && b && !areEqual(a, b, chunkEntries)) return false;
        if (!b && a && !areZero(a, chunkEntries)) return false;
        if (!a && b && !areZero(b, chunkEntries)) return false;
    }
    return true;
}

void IndexArray::setIdentity(std::int32_t first, std::int32_t last) {
    const std::int64_t end = last < 0 ? size() : std::int64_t{last} + 1;
    for (std::int64_t i = std::max(first, 0); i < end; ++i)
        store(static_cast<std::uint32_t>(i), static_cast<std::uint32_t>(i));
}

void IndexArray::setIdentityOn(const BitVector& elements) {
    elements.forEachSet([this](std::int32_t i) {
        store(static_cast<std::uint32_t>(i), static_cast<std::uint32_t>(i));
    });
}

void IndexArray::invertInto(IndexArray& target) const {
    visitMapping(*this, [&](std::int32_t i, std::int32_t j) {
        target.store(static_cast<std::uint32_t>(j), static_cast<std::uint32_t>(i));
    });
}

void IndexArray::renumber(const BitVector::IndexMap& map) {
    std::int32_t last = 0;
    for (std::int64_t i = 0; i < mappedEnd(map); ++i) {
        const auto place = static_cast<std::uint32_t>(i);
        const std::uint32_t value = at(place);
        if (value == 0) continue;
        const std::int32_t j = targetOf(map, static_cast<std::int32_t>(i));
        set(place, 0);
        if (j == 0) continue;
        store(static_cast<std::uint32_t>(j), value);
        last = j;
    }
    setSize(static_cast<std::uint32_t>(last) + 1, -1, true);
}

std::uint32_t IndexArray::findRoot(std::uint32_t x) {
    std::uint32_t root = x;
    for (std::uint32_t link = at(root); link != root; link = at(root)) root = link;
    store(x, root);
    return root;
}

std::uint32_t IndexArray::unite(std::uint32_t a, std::uint32_t b) {
    const std::uint32_t rootOfA = findRoot(a), rootOfB = findRoot(b);
    const auto [smaller, larger] = std::minmax(rootOfA, rootOfB);
    if (smaller != larger) store(larger, smaller);
    return smaller;
}

/// A missing chunk is passed over whole.
void IndexArrayIter::next() {
    std::int64_t i = std::int64_t{position} + 1;
    while (i < array->size()) {
        const auto place = static_cast<std::uint32_t>(i);
        const std::uint32_t* chunk = array->chunkAt(BitVectorSplitter::chunkOf(place));
        if (chunk && chunk[BitVectorSplitter::offsetOf(place)] != 0) break;
        i = chunk ? i + 1 : (i | (chunkEntries - 1)) + 1;
    }
    position = static_cast<std::int32_t>(i);
}
