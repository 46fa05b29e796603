// SPDX-License-Identifier: Apache-2.0
// Requests to stop, from the console and through the process's stop event, told one at a time.
#include "platform/process.h"

#include "platform/windows/stopevent.h"

#include <mutex>
#include <thread>
#include <utility>
#include <windows.h>

namespace platform {
namespace {

struct InterruptWatch {
    HANDLE stop = nullptr; ///< auto-reset
    std::mutex lock;
    std::function<void()> callback;
};

/// Never destroyed: its thread runs to the end of the process.
InterruptWatch& interruptWatch() {
    static auto* const watch = new InterruptWatch;
    return *watch;
}

/// Runs on a thread of the system. When it returns from the closing of the console, the system
/// ends the process; the callback has until then.
BOOL WINAPI passInterruptOn(DWORD kind) {
    ::SetEvent(interruptWatch().stop);
    if (kind == CTRL_CLOSE_EVENT || kind == CTRL_LOGOFF_EVENT || kind == CTRL_SHUTDOWN_EVENT) {
        ::Sleep(INFINITE);
    }
    return TRUE;
}

void runCallback() {
    std::function<void()> callback;
    {
        const std::lock_guard hold(interruptWatch().lock);
        callback = interruptWatch().callback;
    }
    if (callback) callback();
}

void watchEvent() {
    while (::WaitForSingleObject(interruptWatch().stop, INFINITE) == WAIT_OBJECT_0) runCallback();
}

} // namespace

void onInterrupt(std::function<void()> callback) {
    InterruptWatch& watch = interruptWatch();
    const std::lock_guard hold(watch.lock);
    watch.callback = std::move(callback);
    if (watch.stop) return;
    const std::wstring name = stopEventName(::GetCurrentProcessId());
    watch.stop = ::CreateEventW(nullptr, FALSE, FALSE, name.c_str());
    if (!watch.stop) return;
    std::thread(watchEvent).detach();
    ::SetConsoleCtrlHandler(passInterruptOn, TRUE);
}

} // namespace platform
