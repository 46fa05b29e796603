// SPDX-License-Identifier: Apache-2.0
// Parent and children, from a snapshot of all processes. The system gives the numbers of processes
// that ended to new ones, so kin must also be of the right age.
#include "platform/process.h"

#include "platform/windows/stopevent.h"

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

bool isRunningSince(std::uint32_t id, std::uint64_t earliest) {
    const Owned process(::OpenProcess(looking, FALSE, id));
    return process && !hasEnded(process.get()) && startOf(process.get()) >= earliest;
}

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

} // namespace

std::vector<std::uint32_t> childProcesses() {
    const DWORD self = ::GetCurrentProcessId();
    const std::uint64_t ownStart = startOf(::GetCurrentProcess());
    std::vector<std::uint32_t> result;
    visitProcesses([&](const PROCESSENTRY32W& entry) {
        if (entry.th32ParentProcessID != self || servesTheConsole(entry)) return;
        if (isRunningSince(entry.th32ProcessID, ownStart)) result.push_back(entry.th32ProcessID);
    });
    return result;
}

std::int32_t terminateChildren(bool force) {
    const std::vector<std::uint32_t> found = childProcesses();
    for (const std::uint32_t child : found) force ? endByForce(child) : askToEnd(child);
    return static_cast<std::int32_t>(found.size());
}

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

void onParentDeath(std::function<void()> callback) {
    const HANDLE parent = ::OpenProcess(looking, FALSE, parentProcessId());
    // One that is younger than we are has got its number from the real parent.
    const bool isOurs = parent && startOf(parent) <= startOf(::GetCurrentProcess());
    std::thread([parent, isOurs, callback = std::move(callback)] {
        if (isOurs) ::WaitForSingleObject(parent, INFINITE);
        if (parent) ::CloseHandle(parent);
        callback();
    }).detach();
}

} // namespace platform
