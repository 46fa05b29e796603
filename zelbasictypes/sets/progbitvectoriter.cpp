// SPDX-License-Identifier: Apache-2.0
// The walk with reports.
#include "zelbasictypes/sets/progbitvectoriter.h"

#include <algorithm>

ProgBitVectorIter::ProgBitVectorIter(const BitVector& walked, bool setBits)
    : find(setBits ? &BitVector::nextSet : &BitVector::nextClear) {
    rebind(walked);
}

ProgBitVectorIter::~ProgBitVectorIter() {
    if (progress) progress->setProgress(1.0);
}

void ProgBitVectorIter::rebind(const BitVector& walked) {
    vector = &walked;
    position = -1;
    counter = 0;
    step = std::max(walked.maxBit() / 100, 1);
}

std::int32_t ProgBitVectorIter::next() {
    position = (vector->*find)(position);
    if (position < 0 || ++counter < step) return position;
    counter = 0;
    if (progress) progress->setProgress(static_cast<double>(position) / vector->maxBit());
    return position;
}
