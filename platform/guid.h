// SPDX-License-Identifier: Apache-2.0
// New globally unique identifiers.
#pragma once

#include <cstdint>

namespace platform {

struct Guid {
    std::uint32_t data1 = 0;
    std::uint16_t data2 = 0;
    std::uint16_t data3 = 0;
    std::uint8_t data4[8] = {};
};

/// A random one (version 4). False, with `guid` unchanged, when the system has none to give.
bool createGuid(Guid* guid);

} // namespace platform
