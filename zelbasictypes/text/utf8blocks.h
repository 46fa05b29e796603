// SPDX-License-Identifier: Apache-2.0
// Encoding UTF-8 by whole registers, on processors that can.
#pragma once

#include <string_view>

namespace zeltext {

/// Encodes the text; `to` has room for all that it becomes, which is all that is written. The
/// result is the end of it, or null on a processor that can't.
char* encodeWhole(std::u16string_view text, char* to);

} // namespace zeltext
