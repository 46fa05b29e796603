// SPDX-License-Identifier: Apache-2.0
// Patterns over the matcher that both widths share.
#include "zelbasictypes/files/korpattern.h"

namespace {

KorCString lowered(KorCString text) {
    text.toLower();
    return text;
}

KorString lowered(const KorString& text) { return text.toLower(); }

} // namespace

KorPattern::KorPattern(const KorString& pattern, ZelPatternCase how)
    : text(how == ZelPatternCase::lowered ? lowered(pattern) : pattern), length(text.length()),
      before(zelglob::makeStates(length)), after(zelglob::makeStates(length)) {}

bool KorPattern::match(const KorString& other) const {
    const std::u16string_view pattern(text.c_str(), static_cast<std::size_t>(length));
    return zelglob::matches(pattern, other.view(), before.get(), after.get());
}

bool KorPattern::matchLowered(const KorString& other) const { return match(lowered(other)); }

KorCPattern::KorCPattern(const KorCString& pattern, ZelPatternCase how)
    : text(how == ZelPatternCase::lowered ? lowered(pattern) : pattern), length(text.length()),
      before(zelglob::makeStates(length)), after(zelglob::makeStates(length)) {}

bool KorCPattern::match(const KorCString& other) const {
    const std::string_view pattern(text.c_str(), static_cast<std::size_t>(length));
    return zelglob::matches(pattern, other.view(), before.get(), after.get());
}

bool KorCPattern::matchLowered(const KorCString& other) const { return match(lowered(other)); }
