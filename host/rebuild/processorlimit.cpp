// SPDX-License-Identifier: Apache-2.0
// The watching thread.
#include "host/rebuild/processorlimit.h"

#include "host/rebuild/workerlines.h"
#include "platform/clock.h"
#include "platform/process.h"

#include <utility>

namespace host {
namespace {

constexpr std::uint32_t pauseMs = 50;
constexpr double secondsToTell = 1.0;

} // namespace

ProcessorLimit::ProcessorLimit(std::int64_t totalMs, std::int64_t stepMs,
                               std::function<void(std::int64_t)> atWork)
    : total_(1e-3 * static_cast<double>(totalMs)), step_(1e-3 * static_cast<double>(stepMs)),
      atWork_(std::move(atWork)), thread_([this] { watch(); }) {}

ProcessorLimit::~ProcessorLimit() {
    isDone_ = true;
    thread_.join();
}

void ProcessorLimit::stepBegun() { stepStart_ = platform::processorSeconds(); }

void ProcessorLimit::watch() {
    double told = 0.0;
    while (!isDone_) {
        const double used = platform::processorSeconds();
        if (total_ > 0 && used > total_) platform::exitNow(workerOutOfTime);
        if (step_ > 0 && used - stepStart_ > step_) platform::exitNow(workerOutOfStepTime);
        if (used - told >= secondsToTell) atWork_(static_cast<std::int64_t>(1000 * (told = used)));
        platform::sleep(pauseMs);
    }
}

} // namespace host
