// SPDX-License-Identifier: Apache-2.0
// Parent and children, from a snapshot of all processes. The system gives the numbers of processes
// that ended to new ones, so kin must also be of the right age. Who supervises is in a job, and
// whatever it starts is in there too, also when those in between have gone.
#include "platform/process.h"

#include "platform/starter.h"
#include "platform/windows/stopevent.h"

#include <map>
#include <set>
#include <thread>
#include <utility>
#include <windows.h>

#include <tlhelp32.h>

namespace platform {
namespace {

/// Closes with the scope.
class Owned {
public:
    explicit Owned(HANDLE owned) : handle(owned == INVALID_HANDLE_VALUE ? nullptr : owned) {}
    Owned(const Owned&) = delete;
    Owned& operator=(const Owned&) = delete;
    ~Owned() {
        if (handle) ::CloseHandle(handle);
    }
    HANDLE get() const { return handle; }
    explicit operator bool() const { return handle; }

private:
    HANDLE handle;
};

template <class Visit> void visitProcesses(Visit visit) {
    const Owned snapshot(::CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0));
    PROCESSENTRY32W entry{};
    entry.dwSize = sizeof entry;
    if (!snapshot || !::Process32FirstW(snapshot.get(), &entry)) return;
    do {
        visit(entry);
    } while (::Process32NextW(snapshot.get(), &entry));
}

/// 0 when it can't be told.
std::uint64_t startOf(HANDLE process) {
    FILETIME started{}, ended{}, kernel{}, user{};
    if (!::GetProcessTimes(process, &started, &ended, &kernel, &user)) return 0;
    return (std::uint64_t{started.dwHighDateTime} << 32) | started.dwLowDateTime;
}

bool hasEnded(HANDLE process) { return ::WaitForSingleObject(process, 0) == WAIT_OBJECT_0; }

constexpr DWORD looking = PROCESS_QUERY_LIMITED_INFORMATION | SYNCHRONIZE;

/// The system starts one for a process with a console, which ends with it.
bool servesTheConsole(const PROCESSENTRY32W& entry) {
    return ::_wcsicmp(entry.szExeFile, L"conhost.exe") == 0;
}

/// Posts the request to close to the windows of the process that `wanted` points to.
BOOL CALLBACK closeWindow(HWND window, LPARAM wanted) {
    DWORD owner = 0;
    ::GetWindowThreadProcessId(window, &owner);
    if (owner == static_cast<DWORD>(wanted)) ::PostMessageW(window, WM_CLOSE, 0, 0);
    return TRUE;
}

void askToEnd(std::uint32_t id) {
    const Owned stop(::OpenEventW(EVENT_MODIFY_STATE, FALSE, stopEventName(id).c_str()));
    if (stop) {
        ::SetEvent(stop.get());
    } else {
        ::EnumWindows(closeWindow, static_cast<LPARAM>(id));
    }
}

void endByForce(std::uint32_t id) {
    const Owned process(::OpenProcess(PROCESS_TERMINATE, FALSE, id));
    if (process) ::TerminateProcess(process.get(), 1);
}

/// Null until this process supervises; it goes with the process.
HANDLE familyJob = nullptr;

std::set<std::uint32_t> familyMembers() {
    std::set<std::uint32_t> result;
    if (!familyJob) return result;
    constexpr std::size_t most = 4096;
    static thread_local std::vector<std::uintptr_t> room(most);
    auto* const list = reinterpret_cast<JOBOBJECT_BASIC_PROCESS_ID_LIST*>(room.data());
    const auto size = static_cast<DWORD>(room.size() * sizeof room[0]);
    if (!::QueryInformationJobObject(familyJob, JobObjectBasicProcessIdList, list, size, nullptr)) {
        return result;
    }
    for (DWORD i = 0; i < list->NumberOfProcessIdsInList; ++i) {
        result.insert(static_cast<std::uint32_t>(list->ProcessIdList[i]));
    }
    return result;
}

struct Relative {
    std::uint32_t parent;
    std::uint64_t start;
};

/// Those that run and have been started by the user whom this process belongs to.
std::map<std::uint32_t, Relative> candidates() {
    std::map<std::uint32_t, Relative> result;
    visitProcesses([&](const PROCESSENTRY32W& entry) {
        const Owned process(::OpenProcess(looking, FALSE, entry.th32ProcessID));
        if (!process || hasEnded(process.get()) || servesTheConsole(entry)) return;
        result[entry.th32ProcessID] = {entry.th32ParentProcessID, startOf(process.get())};
    });
    return result;
}

} // namespace

void superviseDescendants() {
    ::SetEnvironmentVariableA(starterVariable, processMark(::GetCurrentProcessId()).c_str());
    if (familyJob) return;
    const HANDLE job = ::CreateJobObjectW(nullptr, nullptr);
    if (job && ::AssignProcessToJobObject(job, ::GetCurrentProcess())) {
        familyJob = job;
    } else if (job) {
        ::CloseHandle(job);
    }
}

std::vector<std::uint32_t> descendants() {
    const std::map<std::uint32_t, Relative> all = candidates();
    const std::set<std::uint32_t> members = familyMembers();
    const DWORD self = ::GetCurrentProcessId();
    std::vector<std::uint32_t> result;
    std::set<std::uint32_t> known{self};
    const auto isChildOf = [&](const Relative& relative, std::uint32_t parent) {
        const auto found = all.find(parent);
        return relative.parent == parent && found != all.end() &&
               found->second.start <= relative.start;
    };
    const auto addChildren = [&](std::uint32_t parent) {
        for (const auto& [id, relative] : all) {
            const bool isOurs = members.count(id) || isChildOf(relative, parent);
            if (isOurs && known.insert(id).second) result.push_back(id);
        }
    };
    addChildren(self);
    for (std::size_t i = 0; i < result.size(); ++i) addChildren(result[i]);
    return result;
}

void endProcess(std::uint32_t id, bool force) { force ? endByForce(id) : askToEnd(id); }

std::uint32_t parentProcessId() {
    const DWORD self = ::GetCurrentProcessId();
    std::uint32_t parent = 0;
    visitProcesses([&](const PROCESSENTRY32W& entry) {
        if (entry.th32ProcessID == self) parent = entry.th32ParentProcessID;
    });
    return parent;
}

bool isProcessAlive(std::uint32_t id) {
    const Owned process(::OpenProcess(looking, FALSE, id));
    if (!process) return ::GetLastError() == ERROR_ACCESS_DENIED;
    return !hasEnded(process.get());
}

std::string processMark(std::uint32_t id) {
    const Owned process(::OpenProcess(looking, FALSE, id));
    if (!process || hasEnded(process.get())) return {};
    return std::to_string(id) + '-' + std::to_string(startOf(process.get()));
}

namespace {

std::string toldStarter() {
    char mark[64] = {};
    const DWORD length = ::GetEnvironmentVariableA(starterVariable, mark, sizeof mark);
    return length < sizeof mark ? std::string(mark, length) : std::string();
}

/// Null when it has gone.
HANDLE openStarter(const std::string& mark) {
    const DWORD id = mark.empty() ? parentProcessId() : std::strtoul(mark.c_str(), nullptr, 10);
    const HANDLE starter = ::OpenProcess(looking, FALSE, id);
    // One that is younger than we are has got its number from the real parent.
    const bool isTheOne =
        starter && (mark.empty() ? startOf(starter) <= startOf(::GetCurrentProcess())
                                 : processMark(id) == mark);
    if (starter && !isTheOne) ::CloseHandle(starter);
    return isTheOne ? starter : nullptr;
}

} // namespace

void onParentDeath(std::function<void()> callback) {
    const HANDLE starter = openStarter(toldStarter());
    std::thread([starter, callback = std::move(callback)] {
        if (starter) ::WaitForSingleObject(starter, INFINITE);
        if (starter) ::CloseHandle(starter);
        callback();
    }).detach();
}

} // namespace platform
