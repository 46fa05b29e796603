// SPDX-License-Identifier: Apache-2.0
// What brix-import knows of its server.
#pragma once

#include <string>

namespace apps {

/// How a server ended, as far as brix-import knows: it learns that from the component's log, which
/// it doesn't hear where both have a Qt of their own.
inline std::string serverEnd(const char* end) {
    return HOST_HEARS_COMPONENT ? end : "the server came to its end";
}

} // namespace apps
