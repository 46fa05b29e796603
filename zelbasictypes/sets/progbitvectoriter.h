// SPDX-License-Identifier: Apache-2.0
/// @file
/// A walk over a bit vector that tells the host how far it is.
#pragma once

#include "component/objects/services/izelprogress.h"
#include "component/objects/sptr.h"
#include "zelbasictypes/sets/bitvector.h"

/// The vector stays the caller's and outlives the walk. Without a progress service nothing is told.
class ProgBitVectorIter {
public:
    /// Walks the set bits, or the clear ones that have room.
    ProgBitVectorIter(const BitVector& walked, bool setBits);
    ProgBitVectorIter(const ProgBitVectorIter&) = delete;
    ProgBitVectorIter& operator=(const ProgBitVectorIter&) = delete;
    /// Tells that all is done.
    virtual ~ProgBitVectorIter();

    /// Goes on with another vector, from its start, in the same kind of bits.
    void rebind(const BitVector& walked);
    /// The next element, or -1 at the end. Tells the share of the room behind it after each
    /// hundredth.
    std::int32_t next();
    /// Where `next` arrived; -1 before the first step and at the end.
    std::int32_t current() const { return position; }

private:
    using Step = std::int32_t (BitVector::*)(std::int32_t) const;

    const BitVector* vector;
    std::int32_t position = -1;
    Step find;
    SPtr<IZelProgress> progress;
    std::int32_t counter = 0;
    std::int32_t step; ///< elements between two reports
};
