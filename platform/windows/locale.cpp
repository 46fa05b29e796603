// SPDX-License-Identifier: Apache-2.0
// The user's settings, as the system keeps them.
#include "platform/locale.h"

#include "platform/windows/widetext.h"

#include <clocale>
#include <cstring>
#include <locale.h>
#include <windows.h>

namespace platform {

std::u16string decimalSeparator() {
    char16_t text[50] = {};
    const int length = ::GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, wide(text), 50);
    return length > 0 ? text : u"";
}

/// A locale that isn't the C language's own is taken down by its name.
PlainNumbers::PlainNumbers() : mode_(::_configthreadlocale(_ENABLE_PER_THREAD_LOCALE)) {
    const char* name = std::setlocale(LC_NUMERIC, nullptr);
    if (!name || std::strcmp(name, "C") == 0 || std::strlen(name) >= sizeof name_) return;
    std::strcpy(name_, name);
    std::setlocale(LC_NUMERIC, "C");
}

PlainNumbers::~PlainNumbers() {
    if (*name_) std::setlocale(LC_NUMERIC, name_);
    ::_configthreadlocale(mode_);
}

} // namespace platform
