// SPDX-License-Identifier: Apache-2.0
/// @file
/// The operating system's figures about memory, replaceable so that a test can stand in for a
/// system that doesn't tell.
#pragma once

#include "platform/memory.h"

/// The two calls that all queries make; see platform/memory.h.
struct ZelSystemMemory {
    /// False, with the output unchanged, when the system doesn't tell.
    /// @{
    bool (*status)(platform::MemoryStatus& status);
    bool (*workingSet)(platform::WorkingSet& set);
    /// @}
};

/// The calls in use, at first the platform's.
const ZelSystemMemory& zelSystemMemory();

/// Replaces the calls for all threads; a null entry means the platform's.
void zelSetSystemMemory(const ZelSystemMemory& table);
