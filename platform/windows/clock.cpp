// SPDX-License-Identifier: Apache-2.0
// The system's own counter.
#include "platform/clock.h"

#include <windows.h>

namespace platform {

std::int64_t performanceCounter() {
    LARGE_INTEGER ticks{};
    ::QueryPerformanceCounter(&ticks);
    return ticks.QuadPart;
}

std::int64_t performanceFrequency() {
    LARGE_INTEGER ticks{};
    ::QueryPerformanceFrequency(&ticks);
    return ticks.QuadPart;
}

std::int64_t processorTimeMs() {
    FILETIME created{}, ended{}, kernel{}, user{};
    ::GetProcessTimes(::GetCurrentProcess(), &created, &ended, &kernel, &user);
    const auto milliseconds = [](const FILETIME& time) {
        constexpr std::int64_t ticksInAMillisecond = 10'000;
        const auto ticks = (std::uint64_t{time.dwHighDateTime} << 32) | time.dwLowDateTime;
        return static_cast<std::int64_t>(ticks) / ticksInAMillisecond;
    };
    return milliseconds(kernel) + milliseconds(user);
}

std::uint32_t processId() { return ::GetCurrentProcessId(); }

void sleep(std::uint32_t milliseconds) { ::Sleep(milliseconds); }

} // namespace platform
