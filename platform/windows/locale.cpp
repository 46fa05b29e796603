// SPDX-License-Identifier: Apache-2.0
// The user's settings, as the system keeps them.
#include "platform/locale.h"

#include "platform/windows/widetext.h"

#include <clocale>
#include <cstring>
#include <locale.h>
#include <new>
#include <windows.h>

namespace platform {

std::u16string decimalSeparator() {
    char16_t text[50] = {};
    const int length = ::GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, wide(text), 50);
    return length > 0 ? text : u"";
}

/// A locale that isn't the C language's own is taken down by its name.
struct PlainNumbers::Before {
    int mode;
    char name[64];
};

PlainNumbers::Before& PlainNumbers::before() {
    return *std::launder(reinterpret_cast<Before*>(room_));
}

PlainNumbers::PlainNumbers() {
    static_assert(sizeof(Before) <= sizeof room_);
    new (room_) Before{::_configthreadlocale(_ENABLE_PER_THREAD_LOCALE), ""};
    const char* name = std::setlocale(LC_NUMERIC, nullptr);
    if (!name || std::strcmp(name, "C") == 0 || std::strlen(name) >= sizeof Before::name) return;
    std::strcpy(before().name, name);
    std::setlocale(LC_NUMERIC, "C");
}

PlainNumbers::~PlainNumbers() {
    if (*before().name) std::setlocale(LC_NUMERIC, before().name);
    ::_configthreadlocale(before().mode);
}

} // namespace platform
