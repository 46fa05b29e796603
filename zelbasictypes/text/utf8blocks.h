// SPDX-License-Identifier: Apache-2.0
/// @file
/// Encodes UTF-8 by whole vector registers, on processors that can.
#pragma once

#include <string_view>

namespace zeltext {

/// Encodes the text into `to`, which must have room for exactly all of it. Returns the end of the
/// result, or null on a processor that lacks the instructions.
char* encodeWhole(std::u16string_view text, char* to);

} // namespace zeltext
