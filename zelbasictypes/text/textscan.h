// SPDX-License-Identifier: Apache-2.0
// Scanning terminated texts a register at a time.
#pragma once

#include <cstdint>
#include <string_view>

namespace zeltext {

/// The number of units in front of the first terminator or `stop`, at most `limit`. Reads the whole
/// aligned blocks, of at most 128 bytes, that the text touches: that stays within its memory pages,
/// and the sanitizers are told not to mind.
std::int64_t unitsBefore(const char16_t* text, char16_t stop, std::int64_t limit = INT64_MAX);

/// The length of a text, or `limit` if that is lower. A null text has length 0.
std::int64_t boundedLength(const char* text, std::int64_t limit);
std::int64_t boundedLength(const char16_t* text, std::int64_t limit);

/// Tab to carriage return, and the blank.
constexpr bool isPlainSpace(char16_t unit) { return (unit >= 9 && unit <= 13) || unit == u' '; }

/// The part of `text` that a limit leaves: all of it when `limit` is negative.
template <class Unit>
std::basic_string_view<Unit> limitedView(const Unit* text, std::int32_t limit) {
    const std::int64_t length = boundedLength(text, limit < 0 ? INT64_MAX : limit);
    return {text, static_cast<std::size_t>(length)};
}

/// The first occurrence of `part`, which must not be empty, or -1.
std::int64_t findIn(std::string_view text, std::string_view part);
std::int64_t findIn(std::u16string_view text, std::u16string_view part);

/// The first occurrence of the non-empty `part` at or after `start` (not negative) of a terminated
/// or null text, or -1. Looks no further into the text than it must.
std::int32_t findFrom(const char* text, std::string_view part, std::int32_t start);
std::int32_t findFrom(const char16_t* text, std::u16string_view part, std::int32_t start);

} // namespace zeltext
