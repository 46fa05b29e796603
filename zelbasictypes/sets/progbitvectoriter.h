// SPDX-License-Identifier: Apache-2.0
/// @file
/// Iterates over a bit vector and reports progress to the host.
#pragma once

#include "component/objects/services/izelprogress.h"
#include "component/objects/sptr.h"
#include "zelbasictypes/sets/bitvector.h"

/// The vector stays the caller's and must outlive the iterator. Without a progress service nothing
/// is reported. One thread at a time may use it.
class ProgBitVectorIter {
public:
    /// Iterates over the set bits, or over the clear bits that have room.
    ProgBitVectorIter(const BitVector& walked, bool setBits);
    ProgBitVectorIter(const ProgBitVectorIter&) = delete;
    ProgBitVectorIter& operator=(const ProgBitVectorIter&) = delete;
    /// Reports that everything is done.
    virtual ~ProgBitVectorIter();

    /// Continues with the start of another vector, for the same kind of bits.
    void rebind(const BitVector& walked);
    /// The next element, or -1 at the end. After each hundredth of the room, the fraction that is
    /// done is reported.
    std::int32_t next();
    /// The element of the last call; -1 before the first and at the end.
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
