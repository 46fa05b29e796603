// SPDX-License-Identifier: Apache-2.0
// Takes the place of the modal message in test programs, where nobody is there to read it away.
#include "platform/message.h"

#include <cstdio>
#include <string>

namespace platform {

void showMessage(const char16_t* title, const char16_t* text) {
    std::string printed;
    for (const char16_t* part : {title, u": ", text, u"\n"}) {
        for (; *part; ++part) printed += *part < 0x80 ? static_cast<char>(*part) : '?';
    }
    std::fputs(printed.c_str(), stderr);
}

} // namespace platform
