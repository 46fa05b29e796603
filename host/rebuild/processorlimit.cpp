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
    : totalMs_(totalMs), stepMs_(stepMs) {
    if (totalMs_ > 0 || stepMs_ > 0) thread_ = std::thread([this] { watch(); });
}

ProcessorLimit::~ProcessorLimit() {
    isDone_ = true;
    if (thread_.joinable()) thread_.join();
}

void ProcessorLimit::stepBegun() { stepStartMs_ = platform::processorTimeMs(); }

void ProcessorLimit::watch() const {
    while (!isDone_) {
        const std::int64_t used = platform::processorTimeMs();
        if (totalMs_ > 0 && used > totalMs_) platform::exitNow(workerOutOfTime);
        if (stepMs_ > 0 && used - stepStartMs_ > stepMs_) platform::exitNow(workerOutOfStepTime);
        platform::sleep(pauseMs);
    }
}

} // namespace host
