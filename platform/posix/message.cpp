// SPDX-License-Identifier: Apache-2.0
// A message on standard error.
#include "platform/message.h"

#include "platform/posix/pathbytes.h"

#include <cstdio>

namespace platform {

void showMessage(const char16_t* title, const char16_t* text) {
    std::fprintf(stderr, "%s: %s\n", bytesOf(title).c_str(), bytesOf(text).c_str());
}

} // namespace platform
