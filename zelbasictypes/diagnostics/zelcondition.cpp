// SPDX-License-Identifier: Apache-2.0
// Waiters on a semaphore, and a broadcaster who waits for the last of them.
#include "zelbasictypes/diagnostics/zelcondition.h"

#include "platform/environment.h"

#include <cstdlib>

namespace {

constexpr std::int32_t greatestCount = 0x7FFFFFFF;

std::int32_t spinCountOfEnvironment() {
    const std::optional<std::string> value = platform::getenv("ZEL_SPIN_COUNT");
    return value ? std::atoi(value->c_str()) : -1;
}

/// In one step where the platform can. An object that couldn't be made isn't waited for.
void releaseAndWait(platform::Waitable* toRelease, platform::Waitable* toWaitFor) {
    if (toRelease && toWaitFor && platform::signalAndWait(*toRelease, *toWaitFor)) return;
    if (toRelease) toRelease->signal();
    if (toWaitFor) toWaitFor->wait(platform::infinite);
}

} // namespace

std::int32_t zelSpinCount() {
    static const std::int32_t count = spinCountOfEnvironment();
    return count;
}

ZelCondition::ZelCondition()
    : lock(zelSpinCount()), semaphore(platform::makeSemaphore(0, greatestCount)),
      allGone(platform::makeEvent(false, false)) {}

void ZelCondition::wait(ZelMutex& mutex) {
    {
        const platform::CriticalSectionLock hold(lock);
        ++waiters;
    }
    releaseAndWait(mutex.handle.get(), semaphore.get());
    if (leave()) {
        releaseAndWait(allGone.get(), mutex.handle.get());
    } else {
        mutex.lock();
    }
}

/// True for the last waiter of a broadcast. That one ends the broadcast as well: the broadcaster
/// may come round to it only after others have begun to wait.
bool ZelCondition::leave() {
    const platform::CriticalSectionLock hold(lock);
    --waiters;
    if (!broadcasting || waiters > 0) return false;
    broadcasting = false;
    return true;
}

void ZelCondition::signal() {
    lock.enter();
    const bool somebody = waiters > 0;
    lock.leave();
    if (somebody && semaphore) semaphore->signal();
}

void ZelCondition::broadcast() {
    {
        const platform::CriticalSectionLock hold(lock);
        if (waiters < 1) return;
        broadcasting = true;
        if (semaphore) semaphore->raise(waiters);
    }
    if (allGone) allGone->wait(platform::infinite);
}
