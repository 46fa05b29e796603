// SPDX-License-Identifier: Apache-2.0
// The last resort for telling the user something.
#pragma once

namespace platform {

/// Shows a modal message with an OK button and returns when it was seen. Where there are no windows
/// it goes to standard error, title first, and returns at once.
void showMessage(const char16_t* title, const char16_t* text);

} // namespace platform
