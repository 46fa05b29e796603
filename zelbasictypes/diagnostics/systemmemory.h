// SPDX-License-Identifier: Apache-2.0
// What the operating system tells about memory, as the queries reach it, so that a test can stand
// in for a system that doesn't tell.
#pragma once

#include "platform/memory.h"

struct ZelSystemMemory {
    bool (*status)(platform::MemoryStatus& status);
    bool (*workingSet)(platform::WorkingSet& set);
};

/// The table in use: at first the platform's two calls.
const ZelSystemMemory& zelSystemMemory();

/// Replaces the table, for all threads; null entries mean the platform's.
void zelSetSystemMemory(const ZelSystemMemory& table);
