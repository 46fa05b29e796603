// SPDX-License-Identifier: Apache-2.0
// The queries, by the host's memory checker or the system.
#include "zelbasictypes/diagnostics/memoryqueries.h"

#include "component/objects/services/imemchecker.h"
#include "component/objects/sptr.h"
#include "zelbasictypes/diagnostics/memlimitlistener.h"
#include "zelbasictypes/diagnostics/systemmemory.h"

#include <algorithm>

namespace {

constexpr std::uint64_t unknownBytes = 1843200;
constexpr std::uint32_t failure = 0xFFFFFFFF;

using platform::MemoryStatus;

std::uint64_t inUnits(std::uint64_t bytes, std::uint32_t unit) {
    return bytes / std::max(unit, 1u);
}

std::uint64_t difference(std::uint64_t a, std::uint64_t b) { return a > b ? a - b : 0; }

/// Null unless the host has a checker that is active.
IMemChecker* activeChecker() {
    static IPtr<IMemChecker> kept;
    if (!kept) kept = SPtr<IMemChecker>();
    return kept && kept->isActive() ? kept.iface : nullptr;
}

std::uint64_t budget() {
    MemoryStatus now;
    if (!zelSystemMemory().status(now)) return unknownBytes;
    return static_cast<std::uint64_t>(static_cast<double>(now.virtualTotal) * 0.9);
}

} // namespace

const std::uint64_t defaultMemoryBudget = budget();

std::uint32_t zelMemoryStatus(std::uint64_t* free, std::uint64_t* total, std::uint64_t* swapFree,
                              std::uint64_t* swapTotal, std::uint32_t unit) {
    if (IMemChecker* checker = activeChecker()) {
        return static_cast<std::uint32_t>(checker->status(free, total, swapFree, swapTotal, unit));
    }
    MemoryStatus now;
    if (!zelSystemMemory().status(now)) return failure;
    const std::uint64_t allSwap =
        std::min(now.pageFileTotal, difference(now.virtualTotal, now.physicalTotal));
    const std::uint64_t freeSwap =
        std::min({now.pageFileFree, difference(now.virtualFree, now.physicalFree), allSwap});
    *free = inUnits(now.physicalFree, unit);
    *total = inUnits(now.physicalTotal, unit);
    *swapFree = inUnits(freeSwap, unit);
    *swapTotal = inUnits(allSwap, unit);
    return 0;
}

std::int64_t zelMemoryAvailable(double fraction, std::uint32_t unit) {
    std::uint64_t free = 0;
    std::uint64_t total = 0;
    std::uint64_t swapFree = 0;
    std::uint64_t swapTotal = 0;
    if (zelMemoryStatus(&free, &total, &swapFree, &swapTotal, unit) != 0) return -1;
    zelMemoryLimit();
    return static_cast<std::int64_t>(free) +
           static_cast<std::int64_t>(static_cast<double>(swapFree) * fraction);
}

std::int64_t zelMemoryFree(std::uint32_t unit) { return zelMemoryAvailable(0, unit); }

std::uint64_t zelVirtualAvailable(double fraction, std::uint32_t unit) {
    MemoryStatus now;
    if (!zelSystemMemory().status(now)) return inUnits(unknownBytes, unit);
    const std::uint64_t free =
        std::min(now.physicalFree, now.virtualFree + now.virtualExtendedFree);
    if (fraction == 0) return inUnits(free, unit);
    const double bytes =
        static_cast<double>(free) + fraction * static_cast<double>(now.pageFileFree);
    return static_cast<std::uint64_t>(std::max(bytes, 0.0) / std::max(unit, 1u));
}

std::uint64_t zelVirtualFree(std::uint32_t unit) {
    MemoryStatus now;
    return inUnits(zelSystemMemory().status(now) ? now.virtualFree : unknownBytes, unit);
}

std::uint64_t zelProcessMemory(std::uint32_t unit) {
    if (IMemChecker* checker = activeChecker()) return checker->used(unit);
    std::uint64_t current = 0;
    if (zelProcessWorkingSet(&current, unit)) return current;
    MemoryStatus now;
    zelSystemMemory().status(now);
    return inUnits(difference(now.virtualTotal, now.virtualFree), unit);
}

bool zelProcessMemoryPeak(std::uint64_t* current, std::uint64_t* peak, std::uint32_t unit) {
    platform::WorkingSet set;
    if (!zelSystemMemory().workingSet(set)) return false;
    *current = inUnits(set.current, unit);
    *peak = inUnits(set.peak, unit);
    return true;
}

bool zelProcessWorkingSet(std::uint64_t* current, std::uint32_t unit) {
    std::uint64_t peak = 0;
    return zelProcessMemoryPeak(current, &peak, unit);
}
