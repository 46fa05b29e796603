// SPDX-License-Identifier: Apache-2.0
// The monotonic clock in nanoseconds.
#include "platform/clock.h"

#include <cerrno>
#include <ctime>
#include <initializer_list>
#include <sys/resource.h>
#include <unistd.h>

namespace platform {

std::int64_t performanceCounter() {
    timespec now{};
    ::clock_gettime(CLOCK_MONOTONIC, &now);
    return std::int64_t{now.tv_sec} * performanceFrequency() + now.tv_nsec;
}

std::int64_t performanceFrequency() { return 1'000'000'000; }

double processorSeconds() {
    double seconds = 0.0;
    for (const auto who : {RUSAGE_SELF, RUSAGE_CHILDREN}) {
        rusage used{};
        if (::getrusage(who, &used) != 0) continue;
        for (const timeval& part : {used.ru_utime, used.ru_stime}) {
            seconds += static_cast<double>(part.tv_sec) + 1e-6 * static_cast<double>(part.tv_usec);
        }
    }
    return seconds;
}

std::uint32_t processId() { return static_cast<std::uint32_t>(::getpid()); }

void sleep(std::uint32_t milliseconds) {
    timespec rest{static_cast<std::time_t>(milliseconds / 1000),
                  static_cast<long>(milliseconds % 1000) * 1'000'000};
    while (::nanosleep(&rest, &rest) != 0 && errno == EINTR) {
    }
}

} // namespace platform
