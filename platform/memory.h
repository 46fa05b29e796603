// SPDX-License-Identifier: Apache-2.0
// The memory of the machine and of this process. All figures are bytes.
#pragma once

#include <cstdint>

namespace platform {

/// The page file figures hold physical memory and swap together, as the target reports them.
struct MemoryStatus {
    std::uint64_t physicalFree = 0; ///< that can be had without swapping
    std::uint64_t physicalTotal = 0;
    std::uint64_t pageFileFree = 0;
    std::uint64_t pageFileTotal = 0;
    std::uint64_t virtualFree = 0; ///< address space of this process
    std::uint64_t virtualTotal = 0;
    std::uint64_t virtualExtendedFree = 0; ///< always 0 on today's systems
};
/// False, with `status` unchanged, when the system doesn't tell.
bool memoryStatus(MemoryStatus& status);

struct WorkingSet {
    std::uint64_t current = 0;
    std::uint64_t peak = 0; ///< since the process started
};
/// False, with `set` unchanged, when the system doesn't tell.
bool workingSet(WorkingSet& set);

} // namespace platform
