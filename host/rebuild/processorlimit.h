// SPDX-License-Identifier: Apache-2.0
// Ends the worker when it has used its processor time, whatever it is in, and says until then that
// it is at work.
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <thread>

namespace host {

/// A thread looks at the process's processor time twenty times a second, for as long as this lives.
/// Beyond a limit the process ends at once with workerOutOfTime or workerOutOfStepTime.
class ProcessorLimit {
public:
    /// Of the whole process and of one step, in milliseconds; 0 for no limit. `atWork` is told the
    /// milliseconds used whenever they have grown by a second, on the thread.
    ProcessorLimit(std::int64_t totalMs, std::int64_t stepMs,
                   std::function<void(std::int64_t processorMs)> atWork);
    ~ProcessorLimit();
    ProcessorLimit(const ProcessorLimit&) = delete;
    ProcessorLimit& operator=(const ProcessorLimit&) = delete;

    /// A new step has begun. Any thread may say so.
    void stepBegun();

private:
    void watch();

    const double total_, step_; ///< in seconds
    const std::function<void(std::int64_t)> atWork_;
    std::atomic<double> stepStart_{0};
    std::atomic<bool> isDone_{false};
    std::thread thread_;
};

} // namespace host
