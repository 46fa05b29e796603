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
    currentPhase = name;
    from_ = from;
    to_ = to;
    percent_ = from;
    print();
}

void Progress::reach(double share) {
    const int percent = from_ + static_cast<int>(std::clamp(share, 0.0, 1.0) * (to_ - from_));
    if (percent <= percent_) return;
    percent_ = percent;
    print();
}

void Progress::print() {
    if (out_) *out_ << "progress " << percent_ << " % " << phase() << std::endl;
}

void KernelProgress::Show(const Message_ProgressScope&, const Standard_Boolean) {
    progress_.reach(GetPosition());
}

} // namespace server
