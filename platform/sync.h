// SPDX-License-Identifier: Apache-2.0
// Mutexes, semaphores, events and critical sections, as the target's kernel has them.
//
// Kernel objects are handles. A creation that fails gives null; every call accepts null, does
// nothing with it and reports false, so that a wait on it returns at once. All calls may come from
// any thread; the closing of a handle is the last one on it. Waits answer true when they got what
// they waited for and false when the time was over.
#pragma once

#include <cstdint>

namespace platform {

struct KernelObject;
using Handle = KernelObject*;

constexpr std::uint32_t waitForever = 0xFFFFFFFF; ///< as a time

/// Unowned at first. The owner may take it again, and then lets go as often. A mutex whose owner
/// died without letting go passes to the next waiter, as if it had been let go.
Handle createMutex();

/// A mutex that all processes of this user share under one name, made if there is none yet. The
/// name goes when its last handle, of whatever process, is closed or dies. Any characters but a
/// backslash make a name; a name longer than about 80 characters may be refused.
Handle createNamedMutex(const char* name);
/// Null when no process has the mutex open.
Handle openNamedMutex(const char* name);

/// A wait takes one from its count and is over only when there is one to take.
Handle createSemaphore(std::int32_t initialCount, std::int32_t maximumCount);

/// A manual-reset event stays signalled until it is reset; an auto-reset one lets one waiter
/// through and is then reset.
Handle createEvent(bool manualReset, bool signalled);

/// A mutex that the calling thread owns is let go.
void closeHandle(Handle object);

/// `timeoutMs` of 0 tries without waiting.
bool waitFor(Handle object, std::uint32_t timeoutMs = waitForever);
/// False unless the calling thread owns it.
bool releaseMutex(Handle mutex);
/// All or nothing: false, and nothing changed, when `count` would pass the maximum or is below 1.
bool releaseSemaphore(Handle semaphore, std::int32_t count = 1);
bool setEvent(Handle event);
bool resetEvent(Handle event);

/// Lets a mutex go, adds one to a semaphore or sets an event, then waits for another object. When
/// the first part fails, false without a wait. What is signalled between the two isn't lost: all
/// objects here keep their state.
bool signalAndWait(Handle toSignal, Handle toWaitFor, std::uint32_t timeoutMs = waitForever);

/// A lock of this process alone. Its owner may enter it again. The memory must not move.
class CriticalSection {
public:
    /// A negative count makes a plain one; otherwise an enterer that finds it taken tries that
    /// often before it sleeps.
    explicit CriticalSection(std::int32_t spinCount = -1);
    CriticalSection(const CriticalSection&) = delete;
    CriticalSection& operator=(const CriticalSection&) = delete;
    ~CriticalSection();

    void enter();
    bool tryEnter();
    void leave();
    std::int32_t spinCount() const { return spinCount_; }

private:
    alignas(void*) unsigned char storage_[64];
    std::int32_t spinCount_;
};

/// Inside for as long as it lives.
class CriticalSectionLock {
public:
    explicit CriticalSectionLock(CriticalSection& section) : section_(section) { section_.enter(); }
    CriticalSectionLock(const CriticalSectionLock&) = delete;
    CriticalSectionLock& operator=(const CriticalSectionLock&) = delete;
    ~CriticalSectionLock() { section_.leave(); }

private:
    CriticalSection& section_;
};

} // namespace platform
