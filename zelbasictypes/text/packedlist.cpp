// SPDX-License-Identifier: Apache-2.0
// Packing and unpacking lists of strings.
#include "zelbasictypes/text/packedlist.h"

#include "zelbasictypes/memory/zelnew.h"

#include <algorithm>
#include <cstdlib>

namespace {

/// The number in front of the blank, 0 where there is none. It is read as the runtime library
/// reads integers, so that a leading 0 or 0x is a prefix.
std::size_t readCount(std::u16string_view digits) {
    ZelText<char> narrow;
    for (const char16_t unit : digits) narrow += unit < 0x80 ? static_cast<char>(unit) : '?';
    return static_cast<std::size_t>(std::max(std::strtoll(narrow.c_str(), nullptr, 0), 0LL));
}

KorString entryOf(std::u16string_view units) {
    return KorString(units.data(), static_cast<std::int32_t>(units.size()));
}

} // namespace

void zelPackStrings(KorString& out, const std::vector<KorString>& list) {
    ZelText<char16_t> packed;
    for (const KorString& entry : list) {
        const std::u16string_view text = entry.view();
        packed += KorString(static_cast<std::int32_t>(text.size())).view();
        packed += u' ';
        packed += text;
    }
    if (!packed.empty()) out.append(KorString::borrow(packed.c_str()));
}

void zelUnpackStrings(const KorString& text, std::vector<KorString>& list) {
    std::u16string_view rest = text.view();
    for (std::size_t blank; (blank = rest.find(u' ')) != std::u16string_view::npos;) {
        const std::size_t count = readCount(rest.substr(0, blank));
        if (count == 0) {
            list.push_back(text);
            return;
        }
        rest.remove_prefix(blank + 1);
        list.push_back(entryOf(rest.substr(0, count)));
        rest.remove_prefix(std::min(count, rest.size()));
    }
}
