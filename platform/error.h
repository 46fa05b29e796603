// SPDX-License-Identifier: Apache-2.0
/// @file
/// Why a call of this layer failed, in terms that are the same on every system.
#pragma once

/// The operating system as the rest of the library sees it: one set of portable headers, with one
/// folder of sources per system behind them.
namespace platform {

/// The kinds of failure that callers tell apart.
enum class Error { none, exists, notFound, denied, busy, noSpace, invalid, other };

/// The cause of the last failed call of this layer on this thread. A successful call doesn't change
/// it.
Error lastError();

} // namespace platform
