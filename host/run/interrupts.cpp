// SPDX-License-Identifier: Apache-2.0
// Counting interrupts.
#include "host/run/interrupts.h"

#include "platform/process.h"

#include <atomic>

namespace host {
namespace {

std::atomic<int> counted = 0;

} // namespace

void countInterrupts() {
    platform::onInterrupt([] { ++counted; });
}

int interruptCount() { return counted; }

} // namespace host
