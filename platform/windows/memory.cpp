// SPDX-License-Identifier: Apache-2.0
// The system's own figures.
#include "platform/memory.h"

#include <windows.h>

#include <psapi.h>

namespace platform {

bool memoryStatus(MemoryStatus& status) {
    MEMORYSTATUSEX found{};
    found.dwLength = sizeof found;
    if (!::GlobalMemoryStatusEx(&found)) return false;
    status.physicalFree = found.ullAvailPhys;
    status.physicalTotal = found.ullTotalPhys;
    status.pageFileFree = found.ullAvailPageFile;
    status.pageFileTotal = found.ullTotalPageFile;
    status.virtualFree = found.ullAvailVirtual;
    status.virtualTotal = found.ullTotalVirtual;
    status.virtualExtendedFree = found.ullAvailExtendedVirtual;
    return true;
}

bool workingSet(WorkingSet& set) {
    constexpr DWORD rights = PROCESS_QUERY_INFORMATION | PROCESS_VM_READ;
    const HANDLE self = ::OpenProcess(rights, FALSE, ::GetCurrentProcessId());
    if (!self) return false;
    PROCESS_MEMORY_COUNTERS counters{};
    const bool told = ::GetProcessMemoryInfo(self, &counters, sizeof counters);
    ::CloseHandle(self);
    if (!told) return false;
    set.current = counters.WorkingSetSize;
    set.peak = counters.PeakWorkingSetSize;
    return true;
}

} // namespace platform
