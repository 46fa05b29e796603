// SPDX-License-Identifier: Apache-2.0
/// @file
/// The tags of data-model files.
#pragma once

#include <cstdint>

/// The tags of blocks, and the sizes of their headers.
namespace zelblock {

inline constexpr std::uint32_t file = 0x4B4F52;   ///< the letters K, O, R
inline constexpr std::uint32_t object = 0x0B0002; ///< an identifier, then the object's content

inline constexpr std::uint32_t vector = 0x10000;      ///< 3 doubles
inline constexpr std::uint32_t narrowText = 0x10003;  ///< bytes up to the block's end
inline constexpr std::uint32_t matrix = 0x10004;      ///< 16 doubles, row by row
inline constexpr std::uint32_t wideText = 0x10005;    ///< 16-bit units up to the block's end
inline constexpr std::uint32_t fourDoubles = 0x10007; ///< 4 doubles
inline constexpr std::uint32_t guid = 0x10008;        ///< 16 bytes
inline constexpr std::uint32_t doublePair = 0x10009;  ///< 2 doubles
inline constexpr std::uint32_t floatPair = 0x10010;   ///< 2 floats

/// The size in bytes of the header word and the length field after it, for lengths of 32 and 64
/// bits.
/// @{
inline constexpr std::uint32_t narrowHeader = 8;
inline constexpr std::uint32_t wideHeader = 12;
/// @}

} // namespace zelblock
