// SPDX-License-Identifier: Apache-2.0
// What Wine doesn't do as the system that it stands for: a test of that is skipped there.
#pragma once

#include "platform/environment.h"

namespace testsupport {

/// scripts/test-windows sets the variable.
inline bool runsByWine() { return platform::getenv("WINEPREFIX") != nullptr; }

} // namespace testsupport
