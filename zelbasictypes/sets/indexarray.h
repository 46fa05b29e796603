// SPDX-License-Identifier: Apache-2.0
/// @file
/// A map from identifiers to identifiers, which also serves as a forest of disjoint sets.
///
/// Identifiers are 1-based, and an entry of 0 is no mapping. Entries that are no positive number of
/// 32 bits are kept but map to nothing. Missing chunks read as zeros, and the size is always a
/// whole number of chunks of 2048 entries. An array belongs to one thread at a time.
///
/// As a forest, each entry links to an element of its set, and the smallest one, which links to
/// itself, is the root. The links must not run in a circle otherwise.
#pragma once

#include "zelbasictypes/sets/bitvector.h"

#include <functional>

class BinInput;
class BinOutput;

class IndexArray : public BitVector::LargeWords {
public:
    /// Hears the share that is done; false stops the transfer.
    using Progress = std::function<bool(float)>;

    explicit IndexArray(std::uint32_t size = 0) : BitVector::LargeWords(size) {}

    /// Makes room for the entry `i`, and for more ahead.
    void extendFor(std::uint32_t i);
    /// With a negative `capacity` the array gets room for `elements`; with 0 for that or what it
    /// has, whichever is more; another capacity becomes the room when `elements` don't fit. On
    /// request what is new is zero.
    void setSize(std::uint32_t elements, std::int32_t capacity, bool clearNew);

    /// The count and all entries, or the first `limit` of them; negative for all. The answer is
    /// whether the stream is good.
    bool write(BinOutput& out) const { return write(out, -1); }
    bool write(BinOutput& out, std::int32_t limit) const;
    /// False, with nothing changed, when there is no count or a negative one. Room is made for
    /// entries as they arrive; what lies behind them is zero.
    bool read(BinInput& in);
    /// The entries alone, both ends included. Missing chunks are made. `progress` is told after
    /// each fiftieth of the chunks. False when it stopped the transfer or entries didn't arrive.
    bool writeRange(BinOutput& out, std::int32_t first, std::int32_t last,
                    const Progress& progress = {});
    bool readRange(BinInput& in, std::int32_t first, std::int32_t last,
                   const Progress& progress = {});

    /// Entries beyond an end count as 0.
    bool operator==(const IndexArray& other) const;

    /// Makes each element the root of a set of its own; a negative `last` is the end of the array.
    void setIdentity(std::int32_t first, std::int32_t last);
    void setIdentityOn(const BitVector& elements);
    /// Stores i at j in `target` for each entry i -> j, in ascending i.
    void invertInto(IndexArray& target) const;
    /// Moves the entry of i to `map[i]`, or clears it where that is 0, one after the other in
    /// ascending i. Cuts behind the place that was filled last.
    void renumber(const BitVector::IndexMap& map);

    /// 0 when the links from `x` lead to nothing. Links `x`, if it is an identifier, straight to
    /// its root.
    std::uint32_t findRoot(std::uint32_t x);
    /// Makes one set of two; the root of it.
    std::uint32_t unite(std::uint32_t a, std::uint32_t b);

private:
    void store(std::uint32_t i, std::uint32_t value);
    template <class Transfer>
    bool overRange(std::int32_t first, std::int32_t last, const Progress& progress,
                   Transfer transfer);
};

/// Walks the entries that aren't 0. The array outlives the walk.
class IndexArrayIter {
public:
    explicit IndexArrayIter(const BitVector::IndexMap& walked) : array(&walked) { reset(); }

    void reset() {
        position = -1;
        next();
    }
    void next();
    bool atEnd() const { return static_cast<std::uint32_t>(position) >= array->size(); }
    std::int32_t index() const { return position; }
    std::uint32_t value() const { return array->at(static_cast<std::uint32_t>(position)); }

private:
    const BitVector::IndexMap* array;
    std::int32_t position;
};
