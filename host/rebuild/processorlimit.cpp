// SPDX-License-Identifier: Apache-2.0
// The watching thread.
#include "host/rebuild/processorlimit.h"

#include "host/rebuild/workerlines.h"
#include "platform/clock.h"
#include "platform/process.h"

namespace host {
namespace {

constexpr std::uint32_t pauseMs = 50;

} // namespace

ProcessorLimit::ProcessorLimit(std::int64_t totalMs, std::int64_t stepMs)
    : total_(1e-3 * static_cast<double>(totalMs)), step_(1e-3 * static_cast<double>(stepMs)) {
    if (total_ > 0 || step_ > 0) thread_ = std::thread([this] { watch(); });
}

ProcessorLimit::~ProcessorLimit() {
    isDone_ = true;
    if (thread_.joinable()) thread_.join();
}

void ProcessorLimit::stepBegun() { stepStart_ = platform::processorSeconds(); }

void ProcessorLimit::watch() const {
    while (!isDone_) {
        const double used = platform::processorSeconds();
        if (total_ > 0 && used > total_) platform::exitNow(workerOutOfTime);
        if (step_ > 0 && used - stepStart_ > step_) platform::exitNow(workerOutOfStepTime);
        platform::sleep(pauseMs);
    }
}

} // namespace host
