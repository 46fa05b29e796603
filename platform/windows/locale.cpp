// SPDX-License-Identifier: Apache-2.0
// The user's settings, as the system keeps them.
#include "platform/locale.h"

#include "platform/windows/widetext.h"

#include <windows.h>

namespace platform {

std::u16string decimalSeparator() {
    char16_t text[50] = {};
    const int length = ::GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, wide(text), 50);
    return length > 0 ? text : u"";
}

} // namespace platform
