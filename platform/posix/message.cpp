// SPDX-License-Identifier: Apache-2.0
// A message on standard error.
#include "platform/message.h"

#include "platform/posix/pathbytes.h"

#include <cstdio>
#include <new>

namespace platform {
namespace {

/// Needs no memory; what isn't ASCII becomes a question mark.
void printPlainly(const char16_t* text) {
    for (; *text; ++text) std::fputc(*text < 0x80 ? *text : '?', stderr);
}

} // namespace

void showMessage(const char16_t* title, const char16_t* text) {
    try {
        std::fprintf(stderr, "%s: %s\n", bytesOf(title).c_str(), bytesOf(text).c_str());
    } catch (const std::bad_alloc&) {
        printPlainly(title);
        std::fputs(": ", stderr);
        printPlainly(text);
        std::fputc('\n', stderr);
    }
}

} // namespace platform
