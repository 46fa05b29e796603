// SPDX-License-Identifier: Apache-2.0
// A system looks at all of the memory that a read names, so a count that a caller made up must not
// get as far: it would fail or not by where the memory lies.
#pragma once

#include <algorithm>
#include <cstdint>

namespace platform {

/// How much to ask the system for: a count that isn't likely is cut at what `leftBytes()` says the
/// file still holds, unless it says -1, since it doesn't know.
template <class Left> std::uint64_t boundedRead(std::uint64_t lengthBytes, Left leftBytes) {
    constexpr std::uint64_t likely = 1 << 24;
    if (lengthBytes <= likely) return lengthBytes;
    const std::int64_t left = leftBytes();
    return left < 0 ? lengthBytes : std::min(lengthBytes, static_cast<std::uint64_t>(left));
}

} // namespace platform
