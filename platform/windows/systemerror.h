// SPDX-License-Identifier: Apache-2.0
// The one place where causes of failure are kept, whichever library of the system told them.
#pragma once

namespace platform {

/// Takes the cause of the last failure of a system call over into the runtime library's, which
/// lastError() reads.
void takeSystemError();

} // namespace platform
