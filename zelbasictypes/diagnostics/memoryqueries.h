// SPDX-License-Identifier: Apache-2.0
/// @file
/// Queries about the memory of the machine and of the process.
///
/// All figures are in bytes divided by `unit`, rounded down; a unit of 0 counts as 1. An active
/// memory checker of the host is asked before the system, for what it knows. Its lookup takes no
/// lock, so queries must not run on two threads at once.
#pragma once

#include <cstdint>

/// 0.9 of the address space of the process, in bytes; 1843200 when the system doesn't tell.
/// Determined when the module is loaded.
extern const std::uint64_t defaultMemoryBudget;

/// Physical memory and swap space. 0 on success; all ones, with the outputs unchanged, on failure.
std::uint32_t zelMemoryStatus(std::uint64_t* free, std::uint64_t* total, std::uint64_t* swapFree,
                              std::uint64_t* swapTotal, std::uint32_t unit);

/// The free physical memory plus `fraction` of the free swap space; -1 when nobody knows.
std::int64_t zelMemoryAvailable(double fraction, std::uint32_t unit);
/// The free physical memory; -1 when nobody knows.
std::int64_t zelMemoryFree(std::uint32_t unit);

/// The free physical memory that the process can address plus `fraction` of the free page file;
/// 1843200 bytes when the system doesn't tell.
std::uint64_t zelVirtualAvailable(double fraction, std::uint32_t unit);
/// The free address space; 1843200 bytes when the system doesn't tell.
std::uint64_t zelVirtualFree(std::uint32_t unit);

/// The memory that the process uses. This is the address space in use when the working set can't be
/// read.
std::uint64_t zelProcessMemory(std::uint32_t unit);
/// The working set and its peak. False, with the outputs unchanged, when they can't be read.
/// @{
bool zelProcessMemoryPeak(std::uint64_t* current, std::uint64_t* peak, std::uint32_t unit);
bool zelProcessWorkingSet(std::uint64_t* current, std::uint32_t unit);
/// @}
