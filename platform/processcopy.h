// SPDX-License-Identifier: Apache-2.0
/// @file
/// Runs work in a copy of this process, so that a crash there does no harm here.
#pragma once

#include <cstddef>
#include <functional>

namespace platform {

/// How the copy ended.
enum class CopyEnd {
    done,       ///< the work returned
    failed,     ///< a signal or an exception ended it
    limit,      ///< it exceeded its processor time, or made no progress for half a minute
    notOffered, ///< the system can't copy a process; nothing was done
};

/// Receives bytes, which are valid during the call only.
using TakeBytes = std::function<void(const char* bytes, std::size_t length)>;

/// Runs `work` in a copy of this process that ends with it, and waits for that. Changes that `work`
/// makes aren't seen here. What it sends arrives at `receive`, on the calling thread and in pieces
/// of any length, even if the work fails later. `receive` must not throw.
///
/// `processorSeconds` limits the processor time between one sending and the next; 0 is no limit. A
/// copy that doesn't use the processor for half a minute is ended in any case. Other threads aren't
/// copied, so `work` must neither wait for one nor take a lock that one may hold.
///
/// Windows has no such copies.
[[nodiscard]] CopyEnd runInCopy(const std::function<void(const TakeBytes& send)>& work,
                                const TakeBytes& receive, double processorSeconds);

} // namespace platform
