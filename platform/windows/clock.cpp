// SPDX-License-Identifier: Apache-2.0
// The system's own counter.
#include "platform/clock.h"

#include <cstdint>
#include <initializer_list>
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

/// Children aren't counted.
double processorSeconds() {
    constexpr double unit = 1e-7;
    FILETIME started{}, ended{}, kernel{}, user{};
    if (!::GetProcessTimes(::GetCurrentProcess(), &started, &ended, &kernel, &user)) return 0.0;
    double seconds = 0.0;
    for (const FILETIME& part : {kernel, user}) {
        const auto units = (std::uint64_t{part.dwHighDateTime} << 32) | part.dwLowDateTime;
        seconds += unit * static_cast<double>(units);
    }
    return seconds;
}

std::uint32_t processId() { return ::GetCurrentProcessId(); }

void sleep(std::uint32_t milliseconds) { ::Sleep(milliseconds); }

} // namespace platform
