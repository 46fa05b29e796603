// SPDX-License-Identifier: Apache-2.0
// What is known about the memory of the machine and of the process.
//
// All figures are bytes divided by `unit`, rounded down; a unit of 0 counts as 1. Where the host
// has an active memory checker, that is asked in place of the system for what it knows.
#pragma once

#include <cstdint>

/// 0.9 of the address space of the process, in bytes; 1843200 where the system doesn't tell. Set
/// when the module is loaded.
extern const std::uint64_t defaultMemoryBudget;

/// Physical memory and swap space. 0 on success; all ones, with the outputs unchanged, on failure.
std::uint32_t zelMemoryStatus(std::uint64_t* free, std::uint64_t* total, std::uint64_t* swapFree,
                              std::uint64_t* swapTotal, std::uint32_t unit);

/// Free physical memory and so much of the free swap space; -1 when nobody knows.
std::int64_t zelMemoryAvailable(double fraction, std::uint32_t unit);
std::int64_t zelMemoryFree(std::uint32_t unit);

/// The free physical memory that the process can address, and so much of the page file. Where the
/// system doesn't tell, 1843200 bytes.
std::uint64_t zelVirtualAvailable(double fraction, std::uint32_t unit);
/// Address space that is left; 1843200 bytes likewise.
std::uint64_t zelVirtualFree(std::uint32_t unit);

/// Memory that the process uses; where its working set can't be read, the address space in use.
std::uint64_t zelProcessMemory(std::uint32_t unit);
/// The working set and its peak; false, with the outputs unchanged, when they can't be read.
bool zelProcessMemoryPeak(std::uint64_t* current, std::uint64_t* peak, std::uint32_t unit);
bool zelProcessWorkingSet(std::uint64_t* current, std::uint32_t unit);
