// SPDX-License-Identifier: Apache-2.0
// Why a call of this layer failed, in terms that are the same on every system.
#pragma once

namespace platform {

enum class Error { none, exists, notFound, denied, busy, noSpace, invalid, other };

/// The cause of the last failure of a call of this layer on this thread. Successful calls leave it
/// as it is.
Error lastError();

} // namespace platform
