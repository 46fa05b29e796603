// SPDX-License-Identifier: Apache-2.0
// Figures of the kernel, which it tells in kilobytes under names.
#include "platform/memory.h"

#include <algorithm>
#include <fstream>
#include <map>
#include <string>
#include <sys/resource.h>

namespace platform {
namespace {

using Figures = std::map<std::string, std::uint64_t>;

/// Lines of the form "Name:   123 kB"; others are passed over. In bytes.
Figures readFigures(const char* path) {
    Figures figures;
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);) {
        const std::size_t colon = line.find(':');
        if (colon == line.npos || !line.ends_with(" kB")) continue;
        figures[line.substr(0, colon)] = std::stoull(line.substr(colon + 1)) * 1024;
    }
    return figures;
}

/// What a process of 64 bits can address here, unless it is limited.
std::uint64_t addressSpace() {
    constexpr std::uint64_t whole = std::uint64_t{1} << 47;
    rlimit limit{};
    if (::getrlimit(RLIMIT_AS, &limit) != 0 || limit.rlim_cur == RLIM_INFINITY) return whole;
    return std::min<std::uint64_t>(limit.rlim_cur, whole);
}

std::uint64_t difference(std::uint64_t a, std::uint64_t b) { return a > b ? a - b : 0; }

} // namespace

bool memoryStatus(MemoryStatus& status) {
    const Figures machine = readFigures("/proc/meminfo");
    const Figures own = readFigures("/proc/self/status");
    if (!machine.contains("MemTotal") || !machine.contains("MemAvailable")) return false;
    const auto figure = [&machine](const char* name) {
        const auto found = machine.find(name);
        return found == machine.end() ? 0 : found->second;
    };
    status.physicalFree = figure("MemAvailable");
    status.physicalTotal = figure("MemTotal");
    status.pageFileFree = status.physicalFree + figure("SwapFree");
    status.pageFileTotal = status.physicalTotal + figure("SwapTotal");
    status.virtualTotal = addressSpace();
    const auto used = own.find("VmSize");
    status.virtualFree = difference(status.virtualTotal, used == own.end() ? 0 : used->second);
    status.virtualExtendedFree = 0;
    return true;
}

bool workingSet(WorkingSet& set) {
    const Figures own = readFigures("/proc/self/status");
    const auto current = own.find("VmRSS");
    const auto peak = own.find("VmHWM");
    if (current == own.end() || peak == own.end()) return false;
    set.current = current->second;
    // The kernel counts the two apart, and the peak may lag behind.
    set.peak = std::max(peak->second, current->second);
    return true;
}

} // namespace platform
