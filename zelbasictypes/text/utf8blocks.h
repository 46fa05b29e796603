// SPDX-License-Identifier: Apache-2.0
// Encoding UTF-8 by whole blocks, on processors that can.
#pragma once

namespace zeltext {

/// Encodes from `at` on for as long as whole blocks are left in front of `end`, and moves `at`
/// behind them; on some processors that is nothing. `to` has room for all that the text up to `end`
/// becomes. The result is the end of what was written.
char* encodeBlocks(const char16_t*& at, const char16_t* end, char* to);

} // namespace zeltext
