// SPDX-License-Identifier: Apache-2.0
// The table of the system's answers.
#include "zelbasictypes/diagnostics/systemmemory.h"

namespace {

constinit ZelSystemMemory current{platform::memoryStatus, platform::workingSet};

} // namespace

const ZelSystemMemory& zelSystemMemory() { return current; }

void zelSetSystemMemory(const ZelSystemMemory& table) {
    current.status = table.status ? table.status : platform::memoryStatus;
    current.workingSet = table.workingSet ? table.workingSet : platform::workingSet;
}
