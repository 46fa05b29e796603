// SPDX-License-Identifier: Apache-2.0
// The open modes of the library's file streams.
#pragma once

#include <cstdint>

/// Bits with the same values on every system; those of the standard library differ between them.
namespace zelmode {

constexpr std::int32_t in = 1;
constexpr std::int32_t out = 2;
constexpr std::int32_t ate = 4; ///< keeps the contents, but doesn't seek
constexpr std::int32_t app = 8;
constexpr std::int32_t trunc = 16;
constexpr std::int32_t binary = 32;

constexpr std::int32_t readBinary = in | binary;
constexpr std::int32_t writeBinary = out | trunc | binary;
constexpr std::int32_t writeText = out | trunc;

} // namespace zelmode
