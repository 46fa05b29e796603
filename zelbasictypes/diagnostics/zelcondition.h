// SPDX-License-Identifier: Apache-2.0
// A condition variable on kernel objects.
#pragma once

#include "platform/sync.h"
#include "zelbasictypes/diagnostics/zelmutex.h"

#include <cstdint>
#include <memory>

/// All waiters use the same mutex. A wait may end without its condition, so test that in a loop.
/// Where the system refuses an object, waits for it return at once.
class ZelCondition {
public:
    ZelCondition();

    /// The caller holds `mutex`, once; it is free during the wait and held again afterwards.
    void wait(ZelMutex& mutex);
    /// Wakes one waiter; without any it leaves nothing behind.
    void signal();
    /// Wakes all waiters, and returns when they all have woken. Call it with the mutex held, so
    /// that nobody begins to wait meanwhile.
    void broadcast();

private:
    bool leave();

    std::int32_t waiters = 0;
    platform::CriticalSection lock; ///< guards `waiters` and `broadcasting`
    std::unique_ptr<platform::Semaphore> semaphore;
    std::unique_ptr<platform::Waitable> allGone; ///< set by the last waiter of a broadcast
    bool broadcasting = false;
};

/// The spin count of critical sections: that of the environment variable ZEL_SPIN_COUNT, which is
/// read at the first call, else -1. Negative means the system's default.
std::int32_t zelSpinCount();
