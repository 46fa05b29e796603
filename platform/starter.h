// SPDX-License-Identifier: Apache-2.0
// How a process learns who answers for it, whatever programs stand between the two.
#pragma once

namespace platform {

/// Holds the mark of that process.
inline constexpr const char* starterVariable = "BRIX_STARTER";

} // namespace platform
