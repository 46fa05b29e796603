// SPDX-License-Identifier: Apache-2.0
// The user's interrupts, counted instead of obeyed.
#pragma once

namespace host {

/// From here on an interrupt or a request to terminate no longer ends the program but is counted.
/// Call it once, before other threads start.
void countInterrupts();

/// How many came so far; safe on any thread.
int interruptCount();

} // namespace host
