// SPDX-License-Identifier: Apache-2.0
// The kernel's own objects.
#include "platform/sync.h"

#include <atomic>
#include <new>
#include <windows.h>

namespace platform {
namespace {

/// What all objects share: a handle that is closed with them, and the wait.
template <class Base> class Object : public Base {
public:
    explicit Object(HANDLE owned) : handle(owned) {}
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;
    ~Object() override { ::CloseHandle(handle); }

    bool wait(std::uint32_t milliseconds) override {
        const DWORD result = ::WaitForSingleObject(handle, milliseconds);
        // A mutex that its holder left by dying is ours all the same.
        return result == WAIT_OBJECT_0 || result == WAIT_ABANDONED;
    }

protected:
    const HANDLE handle;
};

/// Gives the system's handle of an object to signalAndWait.
class Handled {
public:
    virtual ~Handled() = default;
    virtual HANDLE systemHandle() const = 0;
};

template <class Base> class Kernel : public Object<Base>, public Handled {
public:
    using Object<Base>::Object;
    HANDLE systemHandle() const override { return this->handle; }
};

/// What was taken through this object and not given back is given back with it.
class KernelMutex : public Kernel<Waitable> {
public:
    using Kernel::Kernel;
    ~KernelMutex() override {
        while (held > 0 && signal()) {
        }
    }
    bool wait(std::uint32_t milliseconds) override {
        const bool taken = Kernel::wait(milliseconds);
        if (taken) ++held;
        return taken;
    }
    bool signal() override {
        if (!::ReleaseMutex(handle)) return false;
        --held;
        return true;
    }

private:
    std::atomic<int> held = 0;
};

class KernelEvent : public Kernel<Event> {
public:
    using Kernel::Kernel;
    bool signal() override { return ::SetEvent(handle); }
    void reset() override { ::ResetEvent(handle); }
};

class KernelSemaphore : public Kernel<Semaphore> {
public:
    using Kernel::Kernel;
    bool signal() override { return raise(1); }
    bool raise(std::int32_t count) override {
        return count > 0 && ::ReleaseSemaphore(handle, count, nullptr);
    }
};

template <class Made> std::unique_ptr<Made> hold(HANDLE handle) {
    return handle ? std::make_unique<Made>(handle) : nullptr;
}

HANDLE systemHandleOf(const Waitable& object) {
    const auto* handled = dynamic_cast<const Handled*>(&object);
    return handled ? handled->systemHandle() : nullptr;
}

} // namespace

bool signalAndWait(Waitable& toSignal, Waitable& toWaitFor) {
    const DWORD result =
        ::SignalObjectAndWait(systemHandleOf(toSignal), systemHandleOf(toWaitFor), INFINITE, FALSE);
    return result == WAIT_OBJECT_0 || result == WAIT_ABANDONED;
}

std::unique_ptr<Waitable> makeMutex() {
    return hold<KernelMutex>(::CreateMutexExW(nullptr, nullptr, 0, SYNCHRONIZE));
}

std::unique_ptr<Event> makeEvent(bool manualReset, bool signalled) {
    const DWORD flags = (manualReset ? CREATE_EVENT_MANUAL_RESET : 0u) |
                        (signalled ? CREATE_EVENT_INITIAL_SET : 0u);
    constexpr DWORD rights = SYNCHRONIZE | EVENT_MODIFY_STATE;
    return hold<KernelEvent>(::CreateEventExW(nullptr, nullptr, flags, rights));
}

std::unique_ptr<Semaphore> makeSemaphore(std::int32_t initial, std::int32_t maximum) {
    return hold<KernelSemaphore>(::CreateSemaphoreW(nullptr, initial, maximum, nullptr));
}

std::unique_ptr<Waitable> createNamedMutex(const char* name) {
    SECURITY_ATTRIBUTES inheritable{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
    return hold<KernelMutex>(::CreateMutexExA(&inheritable, name, 0, SYNCHRONIZE));
}

std::unique_ptr<Waitable> openNamedMutex(const char* name) {
    return hold<KernelMutex>(::OpenMutexA(SYNCHRONIZE, FALSE, name));
}

struct CriticalSection::Section {
    explicit Section(std::int32_t spins) {
        if (spins < 0) {
            ::InitializeCriticalSection(&section);
        } else {
            ::InitializeCriticalSectionAndSpinCount(&section, static_cast<DWORD>(spins));
        }
    }
    Section(const Section&) = delete;
    Section& operator=(const Section&) = delete;
    ~Section() { ::DeleteCriticalSection(&section); }

    CRITICAL_SECTION section;
};

CriticalSection::CriticalSection(std::int32_t spinCount) : spins(spinCount) {
    static_assert(sizeof(Section) <= sizeof room_);
    new (room_) Section(spinCount);
}

CriticalSection::~CriticalSection() { section().~Section(); }

CriticalSection::Section& CriticalSection::section() {
    return *std::launder(reinterpret_cast<Section*>(room_));
}

void CriticalSection::enter() { ::EnterCriticalSection(&section().section); }
void CriticalSection::leave() { ::LeaveCriticalSection(&section().section); }

bool barrierOnAllThreads() {
    ::FlushProcessWriteBuffers();
    return true;
}

} // namespace platform
