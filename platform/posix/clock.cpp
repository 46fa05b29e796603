// SPDX-License-Identifier: Apache-2.0
// The monotonic clock in nanoseconds.
#include "platform/clock.h"

#include <cerrno>
#include <ctime>
#include <unistd.h>

namespace platform {

std::int64_t performanceCounter() {
    timespec now{};
    ::clock_gettime(CLOCK_MONOTONIC, &now);
    return std::int64_t{now.tv_sec} * performanceFrequency() + now.tv_nsec;
}

std::int64_t performanceFrequency() { return 1'000'000'000; }

std::int64_t processorTimeMs() {
    timespec used{};
    ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &used);
    return std::int64_t{used.tv_sec} * 1000 + used.tv_nsec / 1'000'000;
}

std::uint32_t processId() { return static_cast<std::uint32_t>(::getpid()); }

void sleep(std::uint32_t milliseconds) {
    timespec rest{static_cast<std::time_t>(milliseconds / 1000),
                  static_cast<long>(milliseconds % 1000) * 1'000'000};
    while (::nanosleep(&rest, &rest) != 0 && errno == EINTR) {
    }
}

} // namespace platform
