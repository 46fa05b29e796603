// SPDX-License-Identifier: Apache-2.0
// Pairs of numbers as binary streams store them.
#pragma once

class BinInput;

struct ZelFloatPair {
    float values[2] = {};

    /// One typed read of two values. False when they don't all arrive; what did has been stored.
    bool read(BinInput& in);
};

struct ZelDoublePair {
    double values[2] = {};

    /// As for floats.
    bool read(BinInput& in);
};
