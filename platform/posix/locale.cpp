// SPDX-License-Identifier: Apache-2.0
// The user's locale is what the environment names; the process's own is not looked at.
#include "platform/locale.h"

#include "platform/posix/pathbytes.h"

#include <langinfo.h>
#include <locale.h>
#include <new>

namespace platform {

std::u16string decimalSeparator() {
    const locale_t user = ::newlocale(LC_NUMERIC_MASK, "", nullptr);
    if (!user) return {};
    std::u16string result = unitsOf(::nl_langinfo_l(RADIXCHAR, user));
    ::freelocale(user);
    return result;
}

struct PlainNumbers::Before {
    locale_t locale;
};

PlainNumbers::Before& PlainNumbers::before() {
    return *std::launder(reinterpret_cast<Before*>(room_));
}

PlainNumbers::PlainNumbers() {
    static const locale_t plain = ::newlocale(LC_ALL_MASK, "C", nullptr);
    static_assert(sizeof(Before) <= sizeof room_);
    new (room_) Before{plain ? ::uselocale(plain) : nullptr};
}

PlainNumbers::~PlainNumbers() {
    if (before().locale) ::uselocale(before().locale);
}

} // namespace platform
