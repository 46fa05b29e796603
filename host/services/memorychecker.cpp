// SPDX-License-Identifier: Apache-2.0
// Memory figures from the platform, divided into units.
#include "host/services/memorychecker.h"

#include "component/objects/queryinterface.h"
#include "platform/memory.h"

#include <algorithm>

namespace host {
namespace {

std::uint64_t inUnits(std::uint64_t bytes, std::uint32_t unit) {
    return bytes / std::max(unit, 1u);
}

std::uint64_t difference(std::uint64_t whole, std::uint64_t part) {
    return whole > part ? whole - part : 0;
}

} // namespace

void MemoryChecker::qi(const char* name, void** result, std::int32_t) {
    zelAnswerQuery<IMemChecker>(this, className(), name, result);
}

/// The page file counts physical memory in, which is not swap space.
std::int32_t MemoryChecker::status(std::uint64_t* free, std::uint64_t* total,
                                   std::uint64_t* swapFree, std::uint64_t* swapTotal,
                                   std::uint32_t unit) {
    platform::MemoryStatus now;
    if (!platform::memoryStatus(now)) return -1;
    *free = inUnits(now.physicalFree, unit);
    *total = inUnits(now.physicalTotal, unit);
    *swapFree = inUnits(difference(now.pageFileFree, now.physicalFree), unit);
    *swapTotal = inUnits(difference(now.pageFileTotal, now.physicalTotal), unit);
    return 0;
}

std::uint64_t MemoryChecker::used(std::uint32_t unit) {
    platform::WorkingSet set;
    return platform::workingSet(set) ? inUnits(set.current, unit) : 0;
}

} // namespace host
