// SPDX-License-Identifier: Apache-2.0
/// @file
/// UTF-8 of single 16-bit units, by the rules of KorString::fromUtf8() and KorString::toUtf8().
#pragma once

#include <cstddef>
#include <string_view>

namespace zeltext {

/// Writes the encoded text and a terminator, and returns the length. `to` must have room for
/// utf8Length() bytes and the terminator.
std::size_t encodeUtf8(std::u16string_view text, char* to);

/// Writes the decoded text and a terminator. `to` must have room for one unit per byte and the
/// terminator. False at the first bad sequence; the units before it have been written.
bool decodeUtf8(std::string_view bytes, char16_t* to);

} // namespace zeltext
