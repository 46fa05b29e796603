// SPDX-License-Identifier: Apache-2.0
// Searching in wide strings and asking what their units are.
#include "component/objects/services/izelstrsupport.h"
#include "zelbasictypes/text/korstring.h"
#include "zelbasictypes/text/strsupport.h"
#include "zelbasictypes/text/textscan.h"

#include <algorithm>
#include <cwctype>

namespace {

char16_t folded(char16_t unit) {
    return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + 32) : unit;
}

std::int32_t asPosition(std::size_t hit) {
    return hit == std::u16string_view::npos ? -1 : static_cast<std::int32_t>(hit);
}

std::size_t asLimit(std::int32_t limit) {
    return limit < 0 ? std::u16string_view::npos : static_cast<std::size_t>(limit);
}

bool isInside(const KorString& text, std::int32_t i) {
    return i >= 0 && zeltext::boundedLength(text.c_str(), std::int64_t{i} + 1) > i;
}

} // namespace

bool KorString::isDigitAt(std::int32_t i) const {
    if (!isInside(*this, i)) return false;
    IZelStrSupport* host = zelStrSupport();
    return host ? host->isDigit(at(i)) : std::iswdigit(at(i)) != 0;
}

bool KorString::isSpaceAt(std::int32_t i) const {
    if (!isInside(*this, i)) return false;
    IZelStrSupport* host = zelStrSupport();
    return host ? host->isSpace(at(i)) : std::iswspace(at(i)) != 0;
}

std::int32_t KorString::find(const KorString& part, std::int32_t start) const {
    if (part.isEmpty()) return 0;
    return start < 0 ? -1 : zeltext::findFrom(text.data, part.view(), start);
}

std::int32_t KorString::find(char16_t c, std::int32_t start) const {
    if (c == 0 || start < 0 || zeltext::boundedLength(c_str(), start) < start) return -1;
    const char16_t* from = c_str() + start;
    const std::int64_t hit = zeltext::unitsBefore(from, c);
    return from[hit] ? static_cast<std::int32_t>(start + hit) : -1;
}

std::int32_t KorString::rfind(const KorString& part, std::int32_t limit) const {
    return asPosition(view().rfind(part.view(), asLimit(limit)));
}

std::int32_t KorString::rfind(char16_t c, std::int32_t limit) const {
    return asPosition(view().rfind(c, asLimit(limit)));
}

bool KorString::contains(const KorString& part, bool caseSensitive) const {
    if (IZelStrSupport* host = zelStrSupport()) return host->contains(*this, part, caseSensitive);
    if (caseSensitive) return find(part) >= 0;
    const std::u16string_view units = view(), wanted = part.view();
    const auto same = [](char16_t a, char16_t b) { return folded(a) == folded(b); };
    return wanted.empty() || std::search(units.begin(), units.end(), wanted.begin(), wanted.end(),
                                         same) != units.end();
}
