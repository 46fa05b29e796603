// SPDX-License-Identifier: Apache-2.0
/// @file
/// Pairs of numbers as binary streams store them.
#pragma once

class BinInput;

/// Two floats.
struct ZelFloatPair {
    /// In the order of the stream.
    float values[2] = {};

    /// Reads two typed values. False when they don't all arrive; those that did have been stored.
    bool read(BinInput& in);
};

/// Two doubles.
struct ZelDoublePair {
    /// In the order of the stream.
    double values[2] = {};

    /// As for floats.
    bool read(BinInput& in);
};
