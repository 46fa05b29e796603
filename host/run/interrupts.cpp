// SPDX-License-Identifier: Apache-2.0
// Counting interrupts.
#include "host/run/interrupts.h"

#include "platform/process.h"

#include <atomic>

namespace host {
namespace {

std::atomic<int> interrupts = 0;

} // namespace

void countInterrupts() {
    platform::onInterrupt([] { ++interrupts; });
}

int interruptCount() { return interrupts; }

} // namespace host
