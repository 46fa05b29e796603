// SPDX-License-Identifier: Apache-2.0
// Patterns: the first line of the input, matched with the second one. What the first sign of a
// pattern means is said by the pattern behind it, and both widths must agree on it.
#include "fuzz/input.h"
#include "zelbasictypes/files/korpattern.h"

namespace {

bool matches(const std::string& pattern, const std::string& text) {
    const bool narrow = KorCPattern(pattern.c_str()).match(text.c_str());
    const bool wide = KorPattern(KorString(pattern.c_str())).match(KorString(text.c_str()));
    require(narrow == wide, "the widths differ");
    return narrow;
}

bool matchesAnyEnd(const std::string& pattern, const std::string& text) {
    for (std::size_t i = 0; i <= text.size(); ++i)
        if (matches(pattern, text.substr(i))) return true;
    return false;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, std::min<std::size_t>(size, 200));
    const std::string pattern = input.line().c_str(), text = input.line().c_str();
    const std::string behind = text.empty() ? "" : text.substr(1);
    const bool whole = matches(pattern, text), any = !text.empty() && matches(pattern, behind);
    require(matches('*' + pattern, text) == matchesAnyEnd(pattern, text), "a star is no any text");
    require(matches('?' + pattern, text) == any, "a question mark is no one character");
    require(matches('x' + pattern, 'x' + text) == whole, "a letter isn't itself");
    require(matches("[w-y]" + pattern, 'x' + text) == whole, "a set lacks what is in it");
    require(!matches("[a-w]" + pattern, 'x' + text), "a set has what isn't in it");
    return 0;
}
