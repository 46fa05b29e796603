// SPDX-License-Identifier: Apache-2.0
/// @file
/// Kernel objects for synchronisation, with the semantics of the target system.
///
/// Times are in milliseconds; `infinite` waits without limit. Mutexes are recursive for their
/// owner. Every object may be used by any number of threads; its creator owns it and destroys it
/// when nobody waits on it. A null pointer says that an object couldn't be made.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

namespace platform {

/// A wait without limit.
inline constexpr std::uint32_t infinite = 0xFFFFFFFF;

/// An object that a thread can wait for.
class Waitable {
public:
    virtual ~Waitable() = default;
    /// Waits for the object and takes it. False when the time has passed or the wait failed.
    virtual bool wait(std::uint32_t milliseconds) = 0;
    /// Gives the object back: releases a mutex, sets an event, raises a semaphore by one. False
    /// when that isn't possible, such as for a mutex that another thread holds.
    virtual bool signal() = 0;
};

/// Signals one object and waits for the other without limit, as one step: no signal can be missed
/// between the two. Not for named mutexes.
bool signalAndWait(Waitable& toSignal, Waitable& toWaitFor);

/// A mutex within this process. A thread must not end while it holds one.
std::unique_ptr<Waitable> makeMutex();

/// An event. A manual-reset event stays set until `reset`; an auto-reset event lets one waiter pass
/// and is then clear again.
class Event : public Waitable {
public:
    /// Clears the event.
    virtual void reset() = 0;
};
/// Makes an event that is set from the start when `signalled` is true.
std::unique_ptr<Event> makeEvent(bool manualReset, bool signalled);

/// A counting semaphore with a maximum. `signal` raises it by one.
class Semaphore : public Waitable {
public:
    /// Raises the count by `count`. False, with nothing raised, when that is below 1 or would
    /// exceed the maximum.
    virtual bool raise(std::int32_t count) = 0;
};
/// Null when `initial` is negative or above `maximum`, or `maximum` is below 1.
std::unique_ptr<Semaphore> makeSemaphore(std::int32_t initial, std::int32_t maximum);

/// A mutex that the processes of one user share by its name. A holder that dies or destroys its
/// object gives the mutex up. The name exists for as long as somebody has the mutex open. Null when
/// it can't be made or, for opening, doesn't exist.
/// @{
std::unique_ptr<Waitable> createNamedMutex(const char* name);
std::unique_ptr<Waitable> openNamedMutex(const char* name);
/// @}

/// Passes a full memory barrier on every running thread of this process. For the rare side of a
/// protocol whose frequent side has no barriers. False when the system can't do it; the first
/// answer holds for the life of the process.
bool barrierOnAllThreads();

/// Runs `callback(value)` on the calling thread when that thread ends, in place of an earlier
/// request of the same thread. All calls of a module must name the same callback. The callback may
/// use thread-local variables, which hold their last or their initial value. Nothing is called when
/// the system has no room for the request.
void atThreadEnd(void (*callback)(void*), void* value);
/// Cancels all such callbacks. A module calls this before its code is unloaded.
void forgetThreadEnds();

/// A mutex within one process, recursive for its owner.
class CriticalSection {
public:
    /// A waiter tries `spinCount` times before it sleeps; a negative count means the system's
    /// default.
    explicit CriticalSection(std::int32_t spinCount = -1);
    ~CriticalSection();
    CriticalSection(const CriticalSection&) = delete;
    CriticalSection& operator=(const CriticalSection&) = delete;

    /// Takes the section, waiting for as long as another thread holds it.
    void enter();
    /// Gives back one `enter` of the same thread.
    void leave();
    /// The count given to the constructor.
    std::int32_t spinCount() const { return spins; }

private:
    struct Section;
    Section& section();

    std::int32_t spins;
    alignas(std::max_align_t) unsigned char room_[64];
};

/// Holds a critical section for its lifetime.
class CriticalSectionLock {
public:
    /// Enters `held`, which must outlive the lock.
    explicit CriticalSectionLock(CriticalSection& held) : section(held) { section.enter(); }
    ~CriticalSectionLock() { section.leave(); }
    CriticalSectionLock(const CriticalSectionLock&) = delete;
    CriticalSectionLock& operator=(const CriticalSectionLock&) = delete;

private:
    CriticalSection& section;
};

} // namespace platform
