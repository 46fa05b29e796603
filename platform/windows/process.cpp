// SPDX-License-Identifier: Apache-2.0
// Limits, the end of the process, and what it is.
#include "platform/process.h"

#include "platform/windows/widetext.h"

#include <windows.h>

#include <shellapi.h>

namespace platform {
namespace {

/// A job without a name for this process alone, which is made when the first limit is set and
/// lives as long as the process.
HANDLE ownJob() {
    static const HANDLE job = [] {
        const HANDLE made = ::CreateJobObjectW(nullptr, nullptr);
        const bool joined = made && ::AssignProcessToJobObject(made, ::GetCurrentProcess());
        return joined ? made : nullptr;
    }();
    return job;
}

JOBOBJECT_EXTENDED_LIMIT_INFORMATION limitsOf(HANDLE job) {
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    ::QueryInformationJobObject(job, JobObjectExtendedLimitInformation, &limits, sizeof limits,
                                nullptr);
    return limits;
}

template <class Change> bool changeLimits(Change change) {
    const HANDLE job = ownJob();
    if (!job) return false;
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits = limitsOf(job);
    change(limits);
    return ::SetInformationJobObject(job, JobObjectExtendedLimitInformation, &limits,
                                     sizeof limits);
}

std::string utf8Of(const wchar_t* text) {
    const int size = ::WideCharToMultiByte(CP_UTF8, 0, text, -1, nullptr, 0, nullptr, nullptr);
    std::string result(static_cast<std::size_t>(size > 0 ? size : 1), '\0');
    ::WideCharToMultiByte(CP_UTF8, 0, text, -1, result.data(), size, nullptr, nullptr);
    result.pop_back();
    return result;
}

} // namespace

bool limitMemory(std::uint64_t bytes) {
    if (!bytes) return true;
    return changeLimits([bytes](JOBOBJECT_EXTENDED_LIMIT_INFORMATION& limits) {
        limits.BasicLimitInformation.LimitFlags |= JOB_OBJECT_LIMIT_PROCESS_MEMORY;
        limits.ProcessMemoryLimit = static_cast<SIZE_T>(bytes);
    });
}

bool limitProcessorTime(std::uint32_t seconds) {
    constexpr std::int64_t unitsPerSecond = 10'000'000;
    if (!seconds) return true;
    return changeLimits([seconds](JOBOBJECT_EXTENDED_LIMIT_INFORMATION& limits) {
        limits.BasicLimitInformation.LimitFlags |= JOB_OBJECT_LIMIT_PROCESS_TIME;
        limits.BasicLimitInformation.PerProcessUserTimeLimit.QuadPart = seconds * unitsPerSecond;
    });
}

void exitNow(std::int32_t exitCode) {
    ::TerminateProcess(::GetCurrentProcess(), static_cast<UINT>(exitCode));
    ::ExitProcess(static_cast<UINT>(exitCode));
}

std::u16string executablePath() {
    std::u16string path(MAX_PATH, u'\0');
    for (;;) {
        const DWORD room = static_cast<DWORD>(path.size());
        const DWORD length = ::GetModuleFileNameW(nullptr, wide(path.data()), room);
        if (length == 0) return {};
        path.resize(length < room ? length : path.size() * 2);
        if (length < room) return path;
    }
}

/// The runtime library's own words have gone through the code page of the machine.
std::vector<std::string> commandLine(int, char**) {
    int count = 0;
    wchar_t** const words = ::CommandLineToArgvW(::GetCommandLineW(), &count);
    std::vector<std::string> result;
    for (int i = 0; words && i < count; ++i) result.push_back(utf8Of(words[i]));
    ::LocalFree(words);
    return result;
}

} // namespace platform
