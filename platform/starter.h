// SPDX-License-Identifier: Apache-2.0
/// @file
/// The environment variable by which a process learns which process is responsible for it, whatever
/// programs stand between the two.
#pragma once

namespace platform {

/// Its value is the mark of that process; see processMark().
inline constexpr const char* starterVariable = "BRIX_STARTER";

} // namespace platform
