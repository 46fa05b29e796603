// SPDX-License-Identifier: Apache-2.0
/// @file
/// Bounds the length of a read before the system sees it. A system checks all of the memory that a
/// read names, so a made-up count would succeed or fail depending on where the buffer lies.
#pragma once

#include <algorithm>
#include <cstdint>

namespace platform {

/// The number of bytes to ask the system for. A length of up to 16 MiB is taken as it is. A larger
/// one is cut to what `leftBytes()` says remains in the file, unless that answers -1 (unknown).
template <class Left> std::uint64_t boundedRead(std::uint64_t lengthBytes, Left leftBytes) {
    constexpr std::uint64_t likely = 1 << 24;
    if (lengthBytes <= likely) return lengthBytes;
    const std::int64_t left = leftBytes();
    return left < 0 ? lengthBytes : std::min(lengthBytes, static_cast<std::uint64_t>(left));
}

} // namespace platform
