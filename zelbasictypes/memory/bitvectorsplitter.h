// SPDX-License-Identifier: Apache-2.0
/// @file
/// Splits arrays of 32-bit words into chunks of 8192 bytes.
#pragma once

#include <cstdint>

/// The splitter of ZelMM::Array for words.
class BitVectorSplitter {
public:
    static constexpr std::uint32_t chunkElements = 2048; ///< words in a chunk

    /// The chunk of an index, and the offset in that chunk.
    /// @{
    static constexpr std::uint32_t chunkOf(std::uint32_t index) { return index >> 11; }
    static constexpr std::uint32_t offsetOf(std::uint32_t index) { return index & 0x7FF; }
    /// @}
};
