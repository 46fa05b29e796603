// SPDX-License-Identifier: Apache-2.0
/// @file
/// Mutexes within the process and between processes. Both are recursive for their owner.
#pragma once

#include "platform/sync.h"

#include <memory>

/// A mutex within the process. Where the system couldn't make it, locking does nothing.
class ZelMutex {
public:
    ZelMutex() : handle(platform::makeMutex()) {}

    /// Waits without limit.
    void lock();
    /// Gives one lock of the same thread back.
    void unlock();
    /// Locks when that needs no waiting.
    bool tryLock();
    /// Waits for at least one millisecond, whatever the time; true when the mutex was locked.
    bool lockFor(double seconds);

private:
    friend class ZelCondition;

    std::unique_ptr<platform::Waitable> handle;
};

/// A mutex shared with other processes by its name. Every operation is false while the object isn't
/// open, and a null name opens nothing. A holder that dies gives the mutex up.
class ZelNamedMutex {
public:
    /// Makes the mutex of that name, or opens it when another process has made it. False, with the
    /// old mutex kept, when this object is open already.
    bool create(const char* name);
    /// Opens a mutex that must exist.
    bool open(const char* name);
    /// Gives the mutex up.
    bool close();
    /// Whether the object isn't open.
    bool isNull() const { return !handle; }

    /// As for ZelMutex; true on success.
    /// @{
    bool lock();
    bool unlock();
    bool tryLock();
    bool lockFor(double seconds);
    /// @}

private:
    std::unique_ptr<platform::Waitable> handle;
};
