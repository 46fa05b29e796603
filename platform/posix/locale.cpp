// SPDX-License-Identifier: Apache-2.0
// The user's locale is what the environment names; the process's own is not looked at.
#include "platform/locale.h"

#include "platform/posix/pathbytes.h"

#include <langinfo.h>
#include <locale.h>

namespace platform {

std::u16string decimalSeparator() {
    const locale_t user = ::newlocale(LC_NUMERIC_MASK, "", nullptr);
    if (!user) return {};
    std::u16string result = unitsOf(::nl_langinfo_l(RADIXCHAR, user));
    ::freelocale(user);
    return result;
}

PlainNumbers::PlainNumbers() {
    static const locale_t plain = ::newlocale(LC_ALL_MASK, "C", nullptr);
    if (plain) locale_ = ::uselocale(plain);
}

PlainNumbers::~PlainNumbers() {
    if (locale_) ::uselocale(static_cast<locale_t>(locale_));
}

} // namespace platform
