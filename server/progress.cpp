// SPDX-License-Identifier: Apache-2.0
// Progress lines and the name of the phase.
#include "server/progress.h"

#include <algorithm>
#include <atomic>

namespace server {
namespace {

std::atomic<const char*> currentPhase{"starting"};

} // namespace

const char* Progress::phase() { return currentPhase.load(); }

void Progress::enter(const char* name, int from, int to) {
    const std::lock_guard hold(lock_);
    currentPhase = name;
    from_ = from;
    to_ = to;
    percent_ = from;
    share_ = 0.0;
    ++moves_;
    print();
}

void Progress::reach(double share) {
    const std::lock_guard hold(lock_);
    if (share <= share_) return;
    share_ = share;
    ++moves_;
    const int percent = from_ + static_cast<int>(std::clamp(share, 0.0, 1.0) * (to_ - from_));
    if (percent <= percent_) return;
    percent_ = percent;
    print();
}

void Progress::sayStandstill(int seconds) {
    const std::lock_guard hold(lock_);
    print(", nothing has moved for " + std::to_string(seconds) + " s");
}

int Progress::moves() const {
    const std::lock_guard hold(lock_);
    return moves_;
}

void Progress::print(const std::string& addition) {
    if (!out_) return;
    *out_ << "progress " + std::to_string(percent_) + " % " + phase() + addition + "\n"
          << std::flush;
}

void KernelProgress::Show(const Message_ProgressScope&, const Standard_Boolean) {
    progress_.reach(GetPosition());
}

} // namespace server
