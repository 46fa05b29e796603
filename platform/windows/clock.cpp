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

std::uint32_t processId() { return ::GetCurrentProcessId(); }

void sleep(std::uint32_t milliseconds) { ::Sleep(milliseconds); }

} // namespace platform
