// SPDX-License-Identifier: Apache-2.0
// Takes the place of the modal message in test programs, where nobody is there to read it away.
#include "platform/message.h"

#include <cstdio>
#include <initializer_list>

namespace platform {

void showMessage(const char16_t* title, const char16_t* text) {
    for (const char16_t* part : {title, u": ", text, u"\n"})
        for (; *part; ++part) std::fputc(*part < 0x80 ? *part : '?', stderr);
}

} // namespace platform
