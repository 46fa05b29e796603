// SPDX-License-Identifier: Apache-2.0
// Globally unique identifiers.
#pragma once

#include <cstdint>

namespace platform {

struct Guid {
    std::uint32_t data1;
    std::uint16_t data2;
    std::uint16_t data3;
    std::uint8_t data4[8];
};

/// A new identifier of random bits, version 4; false, with `guid` left alone, on failure.
bool createGuid(Guid* guid);

} // namespace platform
