// SPDX-License-Identifier: Apache-2.0
/// @file
/// A message to the user of a program that can't go on.
#pragma once

namespace platform {

/// Shows a modal message box on Windows and returns when the user has closed it; elsewhere writes a
/// line to standard error.
void showMessage(const char16_t* title, const char16_t* text);

} // namespace platform
