// SPDX-License-Identifier: Apache-2.0
// Scanning for ends of texts and for parts, unit by unit, on processors that we don't know better.
#include "zelbasictypes/text/textscan.h"

namespace zeltext {

namespace {

template <class View> std::int64_t findPlain(View text, View part) {
    const std::size_t hit = text.find(part);
    return hit == View::npos ? -1 : static_cast<std::int64_t>(hit);
}

} // namespace

std::int64_t unitsBefore(const char16_t* text, char16_t stop, std::int64_t limit) {
    std::int64_t at = 0;
    while (at < limit && text[at] && text[at] != stop) ++at;
    return at;
}

std::int64_t findIn(std::string_view text, std::string_view part) { return findPlain(text, part); }

std::int64_t findIn(std::u16string_view text, std::u16string_view part) {
    return findPlain(text, part);
}

} // namespace zeltext
