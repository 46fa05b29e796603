// SPDX-License-Identifier: Apache-2.0
// What goes on beside a run that blocks its thread: progress is shown, and the user's interrupts
// are passed on.
#pragma once

#include "component/objects/iptr.h"
#include "host/services/services.h"

#include <atomic>
#include <chrono>
#include <iosfwd>
#include <string>
#include <thread>

namespace host {

/// A thread of its own from construction to destruction. The first interrupt makes the busy state
/// say so and asks the server, as any child process of ours, to stop; two seconds later, or at the
/// second interrupt, it is killed. `progress` gets a line at once and one every few seconds, but
/// for those while the dialog asks.
class RunWatch {
public:
    RunWatch(const Services& services, std::string what, std::ostream& progress);
    RunWatch(const RunWatch&) = delete;
    RunWatch& operator=(const RunWatch&) = delete;
    ~RunWatch();

private:
    using Clock = std::chrono::steady_clock;

    void watch();
    void passInterruptsOn();
    void showProgress();

    IPtr<BusyState> busyState_;
    IPtr<SimpleDialog> dialog_;
    const std::string what_;
    std::ostream& progress_;
    const Clock::time_point start_ = Clock::now();
    Clock::time_point nextProgress_ = start_;
    Clock::time_point askedToStop_{};
    std::atomic<bool> done_ = false;
    std::thread thread_;
};

} // namespace host
