// SPDX-License-Identifier: Apache-2.0
// Work in a copy of this process: what breaks there breaks nothing here.
#pragma once

#include <cstddef>
#include <functional>

namespace platform {

enum class CopyEnd {
    done,
    failed,     ///< a signal ended it, or an exception did
    limit,      ///< it used up its time, or stood still
    notOffered, ///< the system can't copy a process; nothing was done
};

using TakeBytes = std::function<void(const char* bytes, std::size_t length)>;

/// Runs `work` in a copy of this process that ends with it, and waits. What `work` changes isn't
/// seen here; what it sends comes to `receive`, in pieces of any length, also when it fails later.
/// `processorSeconds` limits the processor time from one sending to the next; 0 is no limit, but a
/// copy that doesn't use the processor for half a minute is ended all the same. Other threads
/// aren't copied, so `work` must not wait for one, nor take a lock that one may hold. `receive`
/// doesn't throw.
///
/// Windows has no such copies.
CopyEnd runInCopy(const std::function<void(const TakeBytes& send)>& work, const TakeBytes& receive,
                  double processorSeconds);

} // namespace platform
