// SPDX-License-Identifier: Apache-2.0
// What the user has chosen for the writing of numbers.
#pragma once

#include <string>

namespace platform {

/// The user's decimal separator, whatever locale the process has made its own. Most often of one
/// unit; empty when the user's locale can't be read.
std::u16string decimalSeparator();

} // namespace platform
