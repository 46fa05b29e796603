// SPDX-License-Identifier: Apache-2.0
// Random bits of the kernel, laid out as version 4.
#include "platform/guid.h"

#include <cstring>
#include <sys/random.h>

namespace platform {

bool createGuid(Guid* guid) {
    Guid made{};
    if (::getrandom(&made, sizeof made, 0) != sizeof made) return false;
    made.data3 = static_cast<std::uint16_t>((made.data3 & 0x0FFF) | 0x4000);
    made.data4[0] = static_cast<std::uint8_t>((made.data4[0] & 0x3F) | 0x80);
    *guid = made;
    return true;
}

} // namespace platform
