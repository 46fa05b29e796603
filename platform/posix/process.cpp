// SPDX-License-Identifier: Apache-2.0
// Signals, children and limits.
#include "platform/process.h"

#include "platform/file.h"
#include "platform/posix/pathbytes.h"

#include <atomic>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <fstream>
#include <mutex>
#include <sstream>
#include <sys/resource.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace platform {
namespace {

struct InterruptWatch {
    int pipeEnds[2] = {-1, -1};
    std::mutex lock;
    std::function<void()> callback;
};

InterruptWatch& interruptWatch() {
    static auto* const watch = new InterruptWatch;
    return *watch;
}

/// All that a handler may do here is to write: the thread at the other end does the rest.
void passInterruptOn(int) {
    const int saved = errno;
    const char byte = 0;
    if (::write(interruptWatch().pipeEnds[1], &byte, 1) < 0) errno = saved;
    errno = saved;
}

void runCallback() {
    std::function<void()> callback;
    {
        const std::lock_guard hold(interruptWatch().lock);
        callback = interruptWatch().callback;
    }
    if (callback) callback();
}

void watchPipe() {
    char byte = 0;
    for (;;) {
        const ssize_t got = ::read(interruptWatch().pipeEnds[0], &byte, 1);
        if (got == 1) runCallback();
        if (got == 0 || (got < 0 && errno != EINTR)) return;
    }
}

void installHandlers() {
    struct sigaction action {};
    action.sa_handler = passInterruptOn;
    action.sa_flags = SA_RESTART;
    ::sigaction(SIGINT, &action, nullptr);
    ::sigaction(SIGTERM, &action, nullptr);
    ::sigaction(SIGHUP, &action, nullptr);
}

/// The parent of a process, 0 when it has gone. Its name stands in brackets and may hold anything.
pid_t parentOf(const char* process) {
    std::ifstream file(std::string("/proc/") + process + "/stat");
    std::string line;
    std::getline(file, line);
    const std::size_t bracket = line.rfind(')');
    if (bracket == std::string::npos) return 0;
    std::istringstream rest(line.substr(bracket + 1));
    char state = 0;
    pid_t parent = 0;
    rest >> state >> parent;
    return state == 'Z' ? 0 : parent;
}

std::vector<pid_t> children() {
    std::vector<pid_t> result;
    DIR* processes = ::opendir("/proc");
    if (!processes) return result;
    while (const dirent* entry = ::readdir(processes)) {
        const pid_t process = std::atoi(entry->d_name);
        if (process > 0 && parentOf(entry->d_name) == ::getpid()) result.push_back(process);
    }
    ::closedir(processes);
    return result;
}

struct CrashReport {
    const char* program = "";
    const char* (*describe)() = nullptr;
    std::string unlinkPath;
    int exitCode = 1;
};

CrashReport& crashReport() {
    static auto* const report = new CrashReport;
    return *report;
}

void say(const char* text) {
    if (::write(STDERR_FILENO, text, std::strlen(text)) < 0) return;
}

const char* nameOf(int signal) {
    switch (signal) {
    case SIGSEGV:
        return "invalid memory access";
    case SIGFPE:
        return "arithmetic fault";
    case SIGBUS:
        return "bus error";
    case SIGILL:
        return "illegal instruction";
    case SIGXCPU:
        return "processor time used up";
    default:
        return "abort";
    }
}

void reportCrash(int signal) {
    const CrashReport& report = crashReport();
    say(report.program);
    say(": crashed (");
    say(nameOf(signal));
    say(")");
    if (report.describe) {
        say(" while ");
        say(report.describe());
    }
    say("\n");
    if (!report.unlinkPath.empty()) ::unlink(report.unlinkPath.c_str());
    ::_exit(report.exitCode);
}

void useAlternateStack() {
    static char stack[64 * 1024];
    stack_t alternate{};
    alternate.ss_sp = stack;
    alternate.ss_size = sizeof stack;
    ::sigaltstack(&alternate, nullptr);
}

bool setLimit(int resource, rlim_t value) {
    rlimit limit{};
    if (::getrlimit(static_cast<__rlimit_resource>(resource), &limit) != 0) return false;
    limit.rlim_cur = value;
    return ::setrlimit(static_cast<__rlimit_resource>(resource), &limit) == 0;
}

} // namespace

void onInterrupt(std::function<void()> callback) {
    InterruptWatch& watch = interruptWatch();
    const std::lock_guard hold(watch.lock);
    watch.callback = std::move(callback);
    if (watch.pipeEnds[0] >= 0 || ::pipe2(watch.pipeEnds, O_CLOEXEC) != 0) return;
    std::thread(watchPipe).detach();
    installHandlers();
}

std::int32_t terminateChildren(bool force) {
    const std::vector<pid_t> found = children();
    for (pid_t child : found) ::kill(child, force ? SIGKILL : SIGTERM);
    return static_cast<std::int32_t>(found.size());
}

std::uint32_t parentProcessId() { return static_cast<std::uint32_t>(::getppid()); }

bool isProcessAlive(std::uint32_t id) {
    return ::kill(static_cast<pid_t>(id), 0) == 0 || errno == EPERM;
}

void onParentDeath(std::function<void()> callback) {
    const pid_t parent = ::getppid();
    std::thread([parent, callback = std::move(callback)] {
        while (::getppid() == parent) std::this_thread::sleep_for(std::chrono::milliseconds(100));
        callback();
    }).detach();
}

void onCrash(const char* program, const char* (*describe)(), const std::string& unlinkPath,
             std::int32_t exitCode) {
    crashReport() = {program, describe, systemPath(unlinkPath.c_str()), exitCode};
    useAlternateStack();
    struct sigaction action {};
    action.sa_handler = reportCrash;
    action.sa_flags = SA_ONSTACK | SA_RESETHAND;
    for (int signal : {SIGSEGV, SIGFPE, SIGBUS, SIGILL, SIGABRT, SIGXCPU}) {
        ::sigaction(signal, &action, nullptr);
    }
}

bool limitMemory(std::uint64_t bytes) { return !bytes || setLimit(RLIMIT_AS, bytes); }
bool limitProcessorTime(std::uint32_t seconds) { return !seconds || setLimit(RLIMIT_CPU, seconds); }

void exitNow(std::int32_t exitCode) { ::_exit(exitCode); }

std::u16string executablePath() {
    std::string path(4096, '\0');
    const ssize_t length = ::readlink("/proc/self/exe", path.data(), path.size());
    if (length <= 0) return {};
    path.resize(static_cast<std::size_t>(length));
    return libraryPath(unitsOf(path));
}

bool isInputTerminal() { return ::isatty(STDIN_FILENO) == 1; }

} // namespace platform
