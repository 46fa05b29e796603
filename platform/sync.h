// SPDX-License-Identifier: Apache-2.0
// Kernel objects for locking, with the behaviour of the target's.
//
// Waits take milliseconds; `infinite` waits without limit. Mutexes are recursive for their owner.
// An object whose making failed is not valid, and waits on it return at once, false.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

namespace platform {

inline constexpr std::uint32_t infinite = 0xFFFFFFFF;

/// What can be waited for.
class Waitable {
public:
    virtual ~Waitable() = default;
    /// True when the object was obtained within the time.
    virtual bool wait(std::uint32_t milliseconds) = 0;
    /// Gives one unit away: a mutex is released, an event set, a semaphore raised by one.
    virtual bool signal() = 0;
};

/// Releases `toSignal` and waits on `toWaitFor` without limit, with no gap in which a signal could
/// be missed.
bool signalAndWait(Waitable& toSignal, Waitable& toWaitFor);

/// A thread doesn't end while it holds one.
std::unique_ptr<Waitable> makeMutex();

/// A manual-reset event stays set until `reset`; the other kind lets one waiter through.
class Event : public Waitable {
public:
    virtual void reset() = 0;
};
std::unique_ptr<Event> makeEvent(bool manualReset, bool signalled);

/// `signal` raises by one; `raise` by several at once. Nothing is raised when that would pass the
/// maximum or `count` is below 1, and the answer is false.
class Semaphore : public Waitable {
public:
    virtual bool raise(std::int32_t count) = 0;
};
std::unique_ptr<Semaphore> makeSemaphore(std::int32_t initial, std::int32_t maximum);

/// A mutex that the processes of one user share by its name. A holder that dies gives it up, and so
/// does one that destroys the object. The name is there as long as somebody has it open. Null when
/// it can't be made, or, for opening, isn't there.
std::unique_ptr<Waitable> createNamedMutex(const char* name);
std::unique_ptr<Waitable> openNamedMutex(const char* name);

/// What other threads of the process wrote before this call is visible behind it, and what this
/// thread wrote before is visible to all they read from then on, as if each of them had passed a
/// full memory barrier. For the rare side of a protocol whose frequent side has none. False where
/// the system can't; what it answers first holds for the process's life.
bool barrierOnAllThreads();

/// Runs `callback(value)` on the calling thread when that ends, in place of what an earlier call on
/// it asked for. All calls of a module name the same callback, which may use thread-local
/// variables: they hold what they held, or what they began with. Calls don't overlap. Where the
/// system has no room for it the callback isn't run.
void atThreadEnd(void (*callback)(void*), void* value);
/// No thread's end runs the callback from here on: a module calls this before its code goes.
void forgetThreadEnds();

/// Recursive for its owner, within one process. A negative spin count is the system's default; with
/// another one, who finds it taken tries that often before it sleeps.
class CriticalSection {
public:
    explicit CriticalSection(std::int32_t spinCount = -1);
    ~CriticalSection();
    CriticalSection(const CriticalSection&) = delete;
    CriticalSection& operator=(const CriticalSection&) = delete;

    void enter();
    void leave();
    std::int32_t spinCount() const { return spins; }

private:
    struct Section;
    Section& section();

    std::int32_t spins;
    alignas(std::max_align_t) unsigned char room_[64];
};

class CriticalSectionLock {
public:
    explicit CriticalSectionLock(CriticalSection& held) : section(held) { section.enter(); }
    ~CriticalSectionLock() { section.leave(); }
    CriticalSectionLock(const CriticalSectionLock&) = delete;
    CriticalSectionLock& operator=(const CriticalSectionLock&) = delete;

private:
    CriticalSection& section;
};

} // namespace platform
