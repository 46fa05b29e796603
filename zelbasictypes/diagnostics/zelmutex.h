// SPDX-License-Identifier: Apache-2.0
// Mutexes within the process and between processes. Both are recursive for their owner.
//
// A mutex that couldn't be made stays without handle, and waits on it return at once.
#pragma once

#include "platform/sync.h"

#include <memory>

class ZelMutex {
public:
    ZelMutex() : handle(platform::makeMutex()) {}

    void lock();
    void unlock();
    bool tryLock();
    /// Waits at least one millisecond, whatever the time; true when obtained.
    bool lockFor(double seconds);

private:
    friend class ZelCondition;

    std::unique_ptr<platform::Waitable> handle;
};

/// Every operation is false while the object isn't open, and a null name opens nothing.
class ZelNamedMutex {
public:
    /// Makes the mutex of that name, or opens it where another process has it. False, with the old
    /// handle kept, when this object is open already.
    bool create(const char* name);
    /// The same for a mutex that must exist.
    bool open(const char* name);
    bool close();
    bool isNull() const { return !handle; }

    bool lock();
    bool unlock();
    bool tryLock();
    bool lockFor(double seconds);

private:
    std::unique_ptr<platform::Waitable> handle;
};
