// SPDX-License-Identifier: Apache-2.0
// Identifiers of the system, which are of version 4.
#include "platform/guid.h"

#include <algorithm>
#include <iterator>
#include <objbase.h>
#include <windows.h>

namespace platform {

bool createGuid(Guid* guid) {
    GUID made{};
    if (::CoCreateGuid(&made) != S_OK) return false;
    guid->data1 = made.Data1;
    guid->data2 = made.Data2;
    guid->data3 = made.Data3;
    std::copy(std::begin(made.Data4), std::end(made.Data4), guid->data4);
    return true;
}

} // namespace platform
