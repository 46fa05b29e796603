// SPDX-License-Identifier: Apache-2.0
// What goes on beside a run that blocks its thread: progress is shown, and the user's interrupts
// are passed on.
#pragma once

#include "component/objects/iptr.h"
#include "host/run/progressdisplay.h"
#include "host/services/services.h"
#include "platform/channels.h"
#include "platform/process.h"

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <set>
#include <string>
#include <thread>

namespace host {

/// A thread of its own from construction to destruction. The first interrupt makes the busy state
/// say so and asks the server, and whatever else was started for the run, to stop. What is left two
/// seconds later is killed; a second interrupt leaves it half a second to tidy up.
///
/// Progress goes to standard error, and what others say there keeps clear of it. The display is
/// still while the dialog asks.
class RunWatch {
public:
    RunWatch(const Services& services, const std::string& what, ProgressStyle style);
    RunWatch(const RunWatch&) = delete;
    RunWatch& operator=(const RunWatch&) = delete;
    /// None of the processes that were started meanwhile is left.
    ~RunWatch();

    void enter(const std::string& phase, std::optional<int> percent = {}) {
        display_.enter(phase, percent);
    }
    /// What processes said last on standard error, as ProgressDisplay has it; of those that have
    /// ended it is whole.
    std::string lastWords();
    /// Ends what the run has started: a server that its own starter has left, for one.
    void endProcesses() { offspring_.endAll(); }

private:
    using Clock = std::chrono::steady_clock;

    void watch();
    bool isOverAfterTurn();
    void passInterruptsOn();

    IPtr<BusyState> busyState_;
    IPtr<SimpleDialog> dialog_;
    const platform::Offspring offspring_;
    ProgressDisplay display_;
    platform::ErrorTap tap_;
    Clock::time_point askedToStop_{};
    std::set<std::uint32_t> asked_; ///< processes
    std::mutex mutex_;
    std::condition_variable ending_;
    bool isOver_ = false; ///< guarded by mutex_
    std::thread thread_;
};

} // namespace host
