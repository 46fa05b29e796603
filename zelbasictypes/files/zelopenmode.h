// SPDX-License-Identifier: Apache-2.0
/// @file
/// The open modes of the library's file streams.
#pragma once

#include <cstdint>

/// Open modes; the bits have the same values on every system, unlike those of the standard library.
namespace zelmode {

constexpr std::int32_t in = 1;      ///< read
constexpr std::int32_t out = 2;     ///< write
constexpr std::int32_t ate = 4;     ///< keeps the contents, but doesn't seek to the end
constexpr std::int32_t app = 8;     ///< every write goes to the end
constexpr std::int32_t trunc = 16;  ///< drops the contents
constexpr std::int32_t binary = 32; ///< no conversion of line ends

/// A usual combination.
/// @{
constexpr std::int32_t readBinary = in | binary;
constexpr std::int32_t writeBinary = out | trunc | binary;
constexpr std::int32_t writeText = out | trunc;
/// @}

} // namespace zelmode
