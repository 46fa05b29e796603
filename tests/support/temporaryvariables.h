// SPDX-License-Identifier: Apache-2.0
// By which variables a process is told where temporary files go, on any system.
#pragma once

namespace testsupport {

inline constexpr const char* temporaryVariables[] = {"TMPDIR", "TMP", "TEMP"};

} // namespace testsupport
