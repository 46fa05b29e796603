// SPDX-License-Identifier: Apache-2.0
/// @file
/// Globally unique identifiers.
#pragma once

#include <cstdint>

namespace platform {

/// A 16-byte identifier in the layout of the target system.
struct Guid {
    /// A field of the identifier. The first three are numbers in the byte order of the machine.
    /// @{
    std::uint32_t data1;
    std::uint16_t data2;
    std::uint16_t data3;
    std::uint8_t data4[8];
    /// @}
};

/// Stores a new random identifier (version 4). False, with `guid` left alone, when the system gives
/// no random bits.
[[nodiscard]] bool createGuid(Guid* guid);

} // namespace platform
