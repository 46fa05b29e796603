// SPDX-License-Identifier: Apache-2.0
/// @file
/// The memory of the machine and of this process. All figures are in bytes.
#pragma once

#include <cstdint>

namespace platform {

/// The memory of the machine. The page file figures count physical memory and swap together.
struct MemoryStatus {
    std::uint64_t physicalFree = 0;        ///< available without swapping
    std::uint64_t physicalTotal = 0;       ///< installed
    std::uint64_t pageFileFree = 0;        ///< of memory and swap
    std::uint64_t pageFileTotal = 0;       ///< of memory and swap
    std::uint64_t virtualFree = 0;         ///< address space of this process
    std::uint64_t virtualTotal = 0;        ///< address space of this process
    std::uint64_t virtualExtendedFree = 0; ///< always 0 on today's systems
};
/// False, with `status` unchanged, when the system doesn't tell.
[[nodiscard]] bool memoryStatus(MemoryStatus& status);

/// The physical memory that this process occupies.
struct WorkingSet {
    std::uint64_t current = 0; ///< now
    std::uint64_t peak = 0;    ///< since the process started
};
/// False, with `set` unchanged, when the system doesn't tell.
[[nodiscard]] bool workingSet(WorkingSet& set);

} // namespace platform
