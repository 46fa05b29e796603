// SPDX-License-Identifier: Apache-2.0
// Kin, limits and the end of the process.
#include "platform/process.h"

#include "platform/posix/pathbytes.h"

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <dirent.h>
#include <fstream>
#include <iterator>
#include <poll.h>
#include <sstream>
#include <sys/resource.h>
#include <thread>
#include <unistd.h>
#include <utility>

// The address sanitizer keeps terabytes of addresses for itself, so that a limit would leave none.
#if defined(__SANITIZE_ADDRESS__)
#define ADDRESS_SPACE_IS_TAKEN
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define ADDRESS_SPACE_IS_TAKEN
#endif
#endif

namespace platform {
namespace {

struct ProcessState {
    char state = 0; ///< 0 when there is no such process, Z when it ended but wasn't collected
    pid_t parent = 0;
};

/// The program's name stands in brackets in front and may hold anything.
ProcessState stateOf(const std::string& process) {
    ProcessState result;
    std::ifstream file("/proc/" + process + "/stat");
    const std::string text(std::istreambuf_iterator<char>(file), {});
    const std::size_t bracket = text.rfind(')');
    if (bracket == text.npos) return result;
    std::istringstream rest(text.substr(bracket + 1));
    rest >> result.state >> result.parent;
    return result;
}

bool isRunningChild(const std::string& process) {
    const ProcessState found = stateOf(process);
    return found.parent == ::getpid() && found.state != 'Z';
}

bool setLimit(int resource, rlim_t value) {
    rlimit limit{};
    const auto which = static_cast<__rlimit_resource>(resource);
    if (::getrlimit(which, &limit) != 0) return false;
    limit.rlim_cur = value;
    return ::setrlimit(which, &limit) == 0;
}

} // namespace

std::vector<std::uint32_t> childProcesses() {
    std::vector<std::uint32_t> result;
    DIR* processes = ::opendir("/proc");
    if (!processes) return result;
    while (const dirent* entry = ::readdir(processes)) {
        const int process = std::atoi(entry->d_name);
        if (process > 0 && isRunningChild(entry->d_name)) {
            result.push_back(static_cast<std::uint32_t>(process));
        }
    }
    ::closedir(processes);
    return result;
}

std::int32_t terminateChildren(bool force) {
    const std::vector<std::uint32_t> found = childProcesses();
    for (const std::uint32_t child : found) {
        ::kill(static_cast<pid_t>(child), force ? SIGKILL : SIGTERM);
    }
    return static_cast<std::int32_t>(found.size());
}

std::uint32_t parentProcessId() { return static_cast<std::uint32_t>(::getppid()); }

bool isProcessAlive(std::uint32_t id) {
    const char state = stateOf(std::to_string(id)).state;
    return state != 0 && state != 'Z' && state != 'X';
}

void onParentDeath(std::function<void()> callback) {
    const pid_t parent = ::getppid();
    std::thread([parent, callback = std::move(callback)] {
        while (::getppid() == parent) std::this_thread::sleep_for(std::chrono::milliseconds(100));
        callback();
    }).detach();
}

#ifdef ADDRESS_SPACE_IS_TAKEN
bool limitMemory(std::uint64_t) { return true; }
#else
bool limitMemory(std::uint64_t bytes) { return !bytes || setLimit(RLIMIT_AS, bytes); }
#endif
bool limitProcessorTime(std::uint32_t seconds) { return !seconds || setLimit(RLIMIT_CPU, seconds); }

void exitNow(std::int32_t exitCode) { ::_exit(exitCode); }

std::u16string executablePath() {
    std::string path(4096, '\0');
    const ssize_t length = ::readlink("/proc/self/exe", path.data(), path.size());
    if (length <= 0) return {};
    path.resize(static_cast<std::size_t>(length));
    return unitsOfPath(path);
}

bool isInputTerminal() { return ::isatty(STDIN_FILENO) == 1; }

bool waitForInput(std::uint32_t milliseconds) {
    pollfd input{STDIN_FILENO, POLLIN, 0};
    return ::poll(&input, 1, static_cast<int>(milliseconds)) > 0;
}

} // namespace platform
