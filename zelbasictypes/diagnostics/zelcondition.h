// SPDX-License-Identifier: Apache-2.0
/// @file
/// A condition variable on kernel objects.
#pragma once

#include "platform/sync.h"
#include "zelbasictypes/diagnostics/zelmutex.h"

#include <cstdint>
#include <memory>

/// A condition variable. All waiters use the same mutex. A wait may end although the condition
/// doesn't hold, so test it in a loop. When the system can't make the objects behind it, waits
/// return at once.
class ZelCondition {
public:
    ZelCondition();

    /// The caller must hold `mutex` exactly once. It is released during the wait and held again
    /// afterwards.
    void wait(ZelMutex& mutex);
    /// Wakes one waiter; does nothing when there is none.
    void signal();
    /// Wakes all waiters and returns when they have all woken. Hold the mutex during the call, so
    /// that nobody starts to wait meanwhile.
    void broadcast();

private:
    bool leave();

    std::int32_t waiters = 0;
    platform::CriticalSection lock; ///< guards `waiters` and `broadcasting`
    std::unique_ptr<platform::Semaphore> semaphore;
    std::unique_ptr<platform::Waitable> allGone; ///< set by the last waiter of a broadcast
    bool broadcasting = false;
};

/// The spin count of critical sections: the value of the environment variable ZEL_SPIN_COUNT at the
/// first call, else -1. A negative count means the system's default.
std::int32_t zelSpinCount();
