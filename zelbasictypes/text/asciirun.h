// SPDX-License-Identifier: Apache-2.0
/// @file
/// Copies and measures runs of ASCII, a vector register at a time where the processor allows.
#pragma once

#include <cstddef>

namespace zeltext {

/// Copies units up to the first that isn't ASCII, at most `count`, and returns how many were
/// copied. `to` must have room for `count` units, which may be written past the result.
/// @{
std::size_t copyAsciiRun(const char* from, std::size_t count, char16_t* to);
std::size_t copyAsciiRun(const char16_t* from, std::size_t count, char* to);
/// @}

/// The number of leading ASCII units, at most `count`.
std::size_t asciiRun(const char16_t* text, std::size_t count);

/// The number of bytes that the units take in UTF-8, one to three each.
std::size_t utf8Length(const char16_t* text, std::size_t count);

/// Widens each byte as a signed value: 0x80 becomes 0xFF80.
void widenSigned(const char* from, std::size_t count, char16_t* to);

} // namespace zeltext
