// SPDX-License-Identifier: Apache-2.0
// A last word to the user.
#pragma once

namespace platform {

/// A modal message on the target; a line on standard error elsewhere. Waits until it is read.
void showMessage(const char16_t* title, const char16_t* text);

} // namespace platform
