// SPDX-License-Identifier: Apache-2.0
// The watching thread.
#include "host/run/runwatch.h"

#include "host/run/interrupts.h"
#include "platform/process.h"

#include <ostream>

namespace host {
namespace {

using namespace std::chrono_literals;

constexpr auto turn = 50ms;
constexpr auto patience = 2s; ///< between asking the server to stop and killing it
constexpr auto progressPause = 5s;

} // namespace

RunWatch::RunWatch(const Services& services, std::string what, std::ostream& progress)
    : busyState_(services.busyState), dialog_(services.dialog), what_(std::move(what)),
      progress_(progress) {
    showProgress();
    thread_ = std::thread([this] { watch(); });
}

RunWatch::~RunWatch() {
    done_ = true;
    thread_.join();
}

void RunWatch::watch() {
    while (!done_) {
        passInterruptsOn();
        if (Clock::now() >= nextProgress_ && !dialog_->isAsking()) showProgress();
        std::this_thread::sleep_for(turn);
    }
}

/// Repeated at every turn, so that a server which starts after the interrupt is stopped as well.
void RunWatch::passInterruptsOn() {
    const int count = interruptCount();
    if (count == 0) return;
    if (!busyState_->isCancelled()) askedToStop_ = Clock::now();
    busyState_->cancel();
    const bool kill = count > 1 || Clock::now() - askedToStop_ > patience;
    platform::terminateChildren(kill);
}

void RunWatch::showProgress() {
    const auto elapsed = std::chrono::duration_cast<std::chrono::seconds>(Clock::now() - start_);
    progress_ << "importing " << what_;
    if (elapsed.count() > 0) progress_ << ", " << elapsed.count() << " s";
    progress_ << std::endl;
    nextProgress_ = Clock::now() + progressPause;
}

} // namespace host
