// SPDX-License-Identifier: Apache-2.0
// What the user set up about numbers.
#pragma once

#include <string>

namespace platform {

/// The user's decimal separator, whatever locale the process is in; empty when it can't be told.
std::u16string decimalSeparator();

} // namespace platform
