// SPDX-License-Identifier: Apache-2.0
// Copying runs of ASCII between narrow and wide text, and measuring, a register at a time
// where the processor is known.
#pragma once

#include <cstddef>

namespace zeltext {

/// Copy units up to the first that isn't ASCII, at most `count`; the result is how many were
/// copied. `to` has room for `count` units and may be written past the result.
std::size_t copyAsciiRun(const char* from, std::size_t count, char16_t* to);
std::size_t copyAsciiRun(const char16_t* from, std::size_t count, char* to);

/// The number of ASCII units in front of the first other one, at most `count`.
std::size_t asciiRun(const char16_t* text, std::size_t count);

/// The bytes that the units take in UTF-8, one to three each.
std::size_t utf8Length(const char16_t* text, std::size_t count);

/// Widens every byte as a signed value.
void widenSigned(const char* from, std::size_t count, char16_t* to);

} // namespace zeltext
