// SPDX-License-Identifier: Apache-2.0
/// @file
/// How arrays of 32-bit words are cut: 2048 words to a chunk of 8192 bytes.
#pragma once

#include <cstdint>

class BitVectorSplitter {
public:
    static constexpr std::uint32_t chunkElements = 2048;

    static constexpr std::uint32_t chunkOf(std::uint32_t index) { return index >> 11; }
    static constexpr std::uint32_t offsetOf(std::uint32_t index) { return index & 0x7FF; }
};
