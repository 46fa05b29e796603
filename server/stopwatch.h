// SPDX-License-Identifier: Apache-2.0
// Measures a step of the run for the report.
#pragma once

#include "server/report.h"

#include <chrono>

namespace server {

/// Adds the time of its life, in milliseconds, to a timing of the report.
class Stopwatch {
public:
    Stopwatch(Report& report, const char* step) : slot_(report.timingsMs[step]) {}
    ~Stopwatch() {
        using Milliseconds = std::chrono::duration<double, std::milli>;
        slot_ += Milliseconds(std::chrono::steady_clock::now() - start_).count();
    }
    Stopwatch(const Stopwatch&) = delete;
    Stopwatch& operator=(const Stopwatch&) = delete;

private:
    double& slot_;
    std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

} // namespace server
