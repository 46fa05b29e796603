// SPDX-License-Identifier: Apache-2.0
// Who started whom, from the system's table of processes.
#include "platform/process.h"

#include "platform/starter.h"

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <dirent.h>
#include <fstream>
#include <map>
#include <sstream>
#include <sys/prctl.h>
#include <thread>
#include <unistd.h>
#include <utility>

namespace platform {
namespace {

struct ProcessRecord {
    char state = 0; ///< 0 when there is no such process, Z when it ended but wasn't collected
    pid_t parent = 0;
    std::string start; ///< in ticks since the system's own

    bool isAlive() const { return state != 0 && state != 'Z' && state != 'X'; }
};

/// The program's name stands in brackets in front and may hold anything.
ProcessRecord recordOf(const std::string& process) {
    constexpr int betweenParentAndStart = 17;
    constexpr std::size_t longestRecord = 4096;
    ProcessRecord result;
    std::ifstream file("/proc/" + process + "/stat");
    // Of a process that goes between the two, the stream throws but for a reading like this.
    std::string text(longestRecord, '\0');
    file.read(text.data(), static_cast<std::streamsize>(text.size()));
    text.resize(static_cast<std::size_t>(file.gcount()));
    const std::size_t bracket = text.rfind(')');
    if (bracket == text.npos) return result;
    std::istringstream rest(text.substr(bracket + 1));
    rest >> result.state >> result.parent;
    for (int i = 0; i <= betweenParentAndStart; ++i) rest >> result.start;
    return result;
}

/// The living processes by their parents.
std::multimap<pid_t, pid_t> childrenOfAll() {
    std::multimap<pid_t, pid_t> result;
    DIR* processes = ::opendir("/proc");
    if (!processes) return result;
    while (const dirent* entry = ::readdir(processes)) {
        const int process = std::atoi(entry->d_name);
        if (process <= 0) continue;
        const ProcessRecord record = recordOf(entry->d_name);
        if (record.isAlive()) result.emplace(record.parent, process);
    }
    ::closedir(processes);
    return result;
}

} // namespace

void superviseDescendants() {
    ::prctl(PR_SET_CHILD_SUBREAPER, 1, 0, 0, 0);
    const std::string mark = processMark(static_cast<std::uint32_t>(::getpid()));
    ::setenv(starterVariable, mark.c_str(), 1);
}

std::vector<std::uint32_t> descendants() {
    const std::multimap<pid_t, pid_t> children = childrenOfAll();
    std::vector<std::uint32_t> result;
    const auto addChildren = [&](pid_t parent) {
        const auto [first, last] = children.equal_range(parent);
        for (auto i = first; i != last; ++i) {
            result.push_back(static_cast<std::uint32_t>(i->second));
        }
    };
    addChildren(::getpid());
    for (std::size_t i = 0; i < result.size(); ++i) addChildren(static_cast<pid_t>(result[i]));
    return result;
}

void endProcess(std::uint32_t id, bool force) {
    const auto process = static_cast<pid_t>(id);
    ::kill(process, force ? SIGKILL : SIGTERM);
    if (!force) ::kill(process, SIGCONT);
}

std::uint32_t parentProcessId() { return static_cast<std::uint32_t>(::getppid()); }

bool isProcessAlive(std::uint32_t id) { return recordOf(std::to_string(id)).isAlive(); }

std::string processMark(std::uint32_t id) {
    const std::string number = std::to_string(id);
    const ProcessRecord record = recordOf(number);
    return record.isAlive() ? number + '-' + record.start : std::string();
}

void onParentDeath(std::function<void()> callback) {
    const char* const told = std::getenv(starterVariable);
    const auto isThere = [starter = std::string(told ? told : ""), parent = ::getppid()] {
        return starter.empty() ? ::getppid() == parent : isMarkAlive(starter);
    };
    std::thread([isThere, callback = std::move(callback)] {
        while (isThere()) std::this_thread::sleep_for(std::chrono::milliseconds(100));
        callback();
    }).detach();
}

} // namespace platform
