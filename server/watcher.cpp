// SPDX-License-Identifier: Apache-2.0
// Looks ten times a second.
#include "server/watcher.h"

#include "platform/clock.h"

#include <chrono>

namespace server {
namespace {

using Clock = std::chrono::steady_clock;

class Standstill {
public:
    explicit Standstill(int seconds) : step_(seconds), next_(seconds) {}

    /// How many seconds it has lasted, each multiple of the step once; else 0.
    int toTell(int moves) {
        const auto now = Clock::now();
        if (moves != moves_) {
            moves_ = moves;
            since_ = now;
            next_ = step_;
        }
        if (now - since_ < std::chrono::seconds(next_)) return 0;
        next_ += step_;
        return next_ - step_;
    }

private:
    int step_, next_, moves_ = 0;
    Clock::time_point since_ = Clock::now();
};

} // namespace

Watcher::Watcher(Progress& progress, WatcherOptions options)
    : progress_(progress), options_(std::move(options)), thread_([this] { watch(); }) {}

Watcher::~Watcher() {
    {
        const std::lock_guard hold(lock_);
        ends_ = true;
    }
    ending_.notify_one();
    thread_.join();
}

void Watcher::watch() {
    Standstill standstill(options_.stillSeconds);
    std::unique_lock hold(lock_);
    while (!ending_.wait_for(hold, std::chrono::milliseconds(100), [this] { return ends_; })) {
        if (const int seconds = standstill.toTell(progress_.moves())) {
            progress_.sayStandstill(seconds);
        }
        const double limit = options_.processorSeconds;
        if (limit <= 0 || platform::processorSeconds() < limit) continue;
        options_.atLimit();
        options_.processorSeconds = 0;
    }
}

} // namespace server
