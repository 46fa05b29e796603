// SPDX-License-Identifier: Apache-2.0
// UTF-8 of single 16-bit units; the rules stand at KorString::fromUtf8 and KorString::toUtf8.
#pragma once

#include <cstddef>
#include <string_view>

namespace zeltext {

/// Writes the encoded text and a terminator; `to` has room for utf8Length bytes and one more. The
/// result is the length.
std::size_t encodeUtf8(std::u16string_view text, char* to);

/// Writes the decoded text and a terminator; `to` has room for one unit a byte and the terminator.
/// False at the first bad sequence, with what was written so far left behind.
bool decodeUtf8(std::string_view bytes, char16_t* to);

} // namespace zeltext
