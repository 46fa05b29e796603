// SPDX-License-Identifier: Apache-2.0
/// @file
/// A map from identifiers to identifiers, which also serves as a forest of disjoint sets.
///
/// Identifiers are 1-based, and an entry of 0 is no mapping. Entries that aren't positive 32-bit
/// numbers are kept but map to nothing. Missing chunks read as zeros, and the size is always a
/// whole number of chunks of 2048 entries. An array may be used by one thread at a time.
///
/// As a forest, each entry links to an element of its set. The smallest element links to itself and
/// is the root. There must be no other cycles.
#pragma once

#include "zelbasictypes/sets/bitvector.h"

#include <functional>

class BinInput;
class BinOutput;

/// A map of identifiers.
class IndexArray : public BitVector::LargeWords {
public:
    /// Receives the fraction that is done, from 0 to 1; returning false stops the transfer.
    using Progress = std::function<bool(float)>;

    /// `size` is in entries, all 0.
    explicit IndexArray(std::uint32_t size = 0) : BitVector::LargeWords(size) {}

    /// Makes room for entry `i`, with some in reserve.
    void extendFor(std::uint32_t i);
    /// With a negative `capacity` the array gets room for `elements`; with 0, for that or its
    /// present room, whichever is larger. Any other capacity becomes the room when `elements` don't
    /// fit. On request new entries are zero.
    void setSize(std::uint32_t elements, std::int32_t capacity, bool clearNew);

    /// Writes the count and all entries, or the first `limit` of them; a negative limit is none.
    /// True when the stream is good.
    /// @{
    bool write(BinOutput& out) const { return write(out, -1); }
    bool write(BinOutput& out, std::int32_t limit) const;
    /// @}
    /// False, with nothing changed, when there is no count or a negative one. Room is made as
    /// entries arrive; what follows them is zero.
    bool read(BinInput& in);
    /// Transfers only the entries from `first` to `last`, inclusive. Missing chunks are created.
    /// `progress` is called after each fiftieth of the chunks. False when it stopped the transfer
    /// or entries didn't arrive.
    /// @{
    bool writeRange(BinOutput& out, std::int32_t first, std::int32_t last,
                    const Progress& progress = {});
    bool readRange(BinInput& in, std::int32_t first, std::int32_t last,
                   const Progress& progress = {});
    /// @}

    /// Entries beyond an end count as 0.
    bool operator==(const IndexArray& other) const;

    /// Makes each element the root of its own set; a negative `last` is the end of the array.
    /// @{
    void setIdentity(std::int32_t first, std::int32_t last);
    void setIdentityOn(const BitVector& elements);
    /// @}
    /// Stores i at j in `target` for each entry i -> j, in ascending i.
    void invertInto(IndexArray& target) const;
    /// Moves the entry of i to `map[i]`, or clears it where that is 0, in ascending i. Cuts after
    /// the position filled last.
    void renumber(const BitVector::IndexMap& map);

    /// The root of the set of `x`; 0 when the links from `x` lead to nothing. Links `x`, if it is
    /// an identifier, directly to its root.
    std::uint32_t findRoot(std::uint32_t x);
    /// Merges two sets and returns the root.
    std::uint32_t unite(std::uint32_t a, std::uint32_t b);

private:
    void store(std::uint32_t i, std::uint32_t value);
    template <class Transfer>
    bool overRange(std::int32_t first, std::int32_t last, const Progress& progress,
                   Transfer transfer);
};

/// Iterates over the entries of an array that aren't 0. The array must outlive it.
class IndexArrayIter {
public:
    /// Starts at the first entry.
    explicit IndexArrayIter(const BitVector::IndexMap& walked) : array(&walked) { reset(); }

    /// Moves to the first entry.
    void reset() {
        position = -1;
        next();
    }
    /// Moves to the next entry.
    void next();
    /// True after the last entry; index() and value() then mean nothing.
    bool atEnd() const { return static_cast<std::uint32_t>(position) >= array->size(); }
    /// The current entry's position and value.
    /// @{
    std::int32_t index() const { return position; }
    std::uint32_t value() const { return array->at(static_cast<std::uint32_t>(position)); }
    /// @}

private:
    const BitVector::IndexMap* array;
    std::int32_t position;
};
