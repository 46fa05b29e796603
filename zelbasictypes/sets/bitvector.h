// SPDX-License-Identifier: Apache-2.0
// A set of small integers, one bit each.
//
// Element identifiers are 1-based. Bit 0 exists, but operations that mean all elements leave it
// out. A vector belongs to one thread at a time, or is only read; `count` writes its cache.
#pragma once

#include "component/objects/zelshared.h"

#include <cstdint>

class BinIO_Magic;
class BitVectorSplitter;
namespace ZelMM {
template <class T, class Splitter> class Array;
}

class BitVector : public ZelShared {
public:
    /// All bits clear, with room for `maxBit` at least.
    explicit BitVector(std::int32_t maxBit = 0);
    BitVector(const BitVector& other);
    /// Leaves `other` without storage, only fit for destruction.
    BitVector(BitVector&& other) noexcept;
    BitVector& operator=(const BitVector& other);
    ~BitVector() override;

    /// The highest bit that has room; always a whole number of words, less one.
    std::int32_t maxBit() const { return maxBit_; }

    /// False beyond `maxBit`; for this and what follows `i` is not negative.
    bool test(std::int32_t i) const;
    /// Grows when `i` has no room; always true.
    bool set(std::int32_t i);
    /// Always true.
    bool clear(std::int32_t i);

    /// The number of set bits, from the cache where that is good.
    std::int32_t count() const;
    std::int32_t recount() const;
    /// Keeps the room.
    void clearAll();
    /// Gives room for at least `maxBit`, or cuts behind its word.
    void resize(std::int32_t maxBit);

    /// The lowest set bit above `after`, or -1; -1 begins the walk.
    std::int32_t nextSet(std::int32_t after) const;

    /// Compares the bits, whatever the room.
    bool operator==(const BitVector& other) const;

private:
    std::int32_t wordCount() const { return (maxBit_ >> 5) + 1; }
    void copyWords(const BitVector& other);

    // The order of the fields is a contract between modules. One of the first two is set.
    std::uint32_t* bvwords_ = nullptr;
    ZelMM::Array<unsigned int, BitVectorSplitter>* bvwordsLarge_ = nullptr;
    BinIO_Magic* magic_ = nullptr;
    std::int32_t maxBit_ = 31;
    mutable std::int32_t numSet_ = 0; ///< -1 while it isn't known
};
