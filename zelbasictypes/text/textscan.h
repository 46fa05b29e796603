// SPDX-License-Identifier: Apache-2.0
/// @file
/// Scans terminated texts a vector register at a time.
#pragma once

#include <cstdint>
#include <string_view>

namespace zeltext {

/// The number of units before the first terminator or `stop`, at most `limit`. It reads whole
/// aligned blocks of at most 128 bytes, which stay within the memory pages of the text; the
/// sanitizers are told to allow that.
std::int64_t unitsBefore(const char16_t* text, char16_t stop, std::int64_t limit = INT64_MAX);

/// The length of a text, but at most `limit`. A null text has length 0.
/// @{
std::int64_t boundedLength(const char* text, std::int64_t limit);
std::int64_t boundedLength(const char16_t* text, std::int64_t limit);
/// @}

/// Tab to carriage return (9 to 13), and the blank.
constexpr bool isPlainSpace(char16_t unit) { return (unit >= 9 && unit <= 13) || unit == u' '; }

/// The part of `text` that a limit leaves: all of it when `limit` is negative.
template <class Unit>
std::basic_string_view<Unit> limitedView(const Unit* text, std::int32_t limit) {
    const std::int64_t length = boundedLength(text, limit < 0 ? INT64_MAX : limit);
    return {text, static_cast<std::size_t>(length)};
}

/// The first occurrence of `part`, which must not be empty, or -1.
/// @{
std::int64_t findIn(std::string_view text, std::string_view part);
std::int64_t findIn(std::u16string_view text, std::u16string_view part);
/// @}

/// The first occurrence of `part` at or after `start` in a terminated or null text, or -1. `part`
/// must not be empty and `start` not negative. It reads no further into the text than it must.
/// @{
std::int32_t findFrom(const char* text, std::string_view part, std::int32_t start);
std::int32_t findFrom(const char16_t* text, std::u16string_view part, std::int32_t start);
/// @}

} // namespace zeltext
