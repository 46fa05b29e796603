// SPDX-License-Identifier: Apache-2.0
// What Wine doesn't do as the system that it stands for: a test of that is skipped there.
#pragma once

#include "platform/environment.h"

namespace testsupport {

/// scripts/test-windows sets the variable.
inline bool runsByWine() { return platform::getenv("WINEPREFIX").has_value(); }

/// How often to do what costs Wine a question to another process each time.
inline int rounds(int wanted) { return runsByWine() ? wanted / 50 : wanted; }

inline constexpr const char* wineResets = "Wine ends in order even where a reset was asked for";

} // namespace testsupport
