// SPDX-License-Identifier: Apache-2.0
// The last line of a process that crashes, from a signal handler: only calls that are safe there.
#include "platform/process.h"

#include "platform/crashline.h"
#include "platform/posix/pathbytes.h"

#include <csignal>
#include <unistd.h>

namespace platform {
namespace {

CrashLine last;

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
    last.compose(nameOf(signal));
    [[maybe_unused]] const ssize_t put =
        ::write(STDERR_FILENO, last.text.c_str(), last.text.size());
    if (last.unlinkPath.size()) ::unlink(last.unlinkPath.c_str());
    ::_exit(last.exitCode);
}

void useAlternateStack() {
    static char stack[64 * 1024];
    stack_t alternate{};
    alternate.ss_sp = stack;
    alternate.ss_size = sizeof stack;
    ::sigaltstack(&alternate, nullptr);
}

} // namespace

void onCrash(const char* program, const char* (*describe)(), const std::string& unlinkPath,
             std::int32_t exitCode) {
    last.program.assign(program);
    last.unlinkPath.assign(unlinkPath.empty() ? "" : systemPath(unlinkPath.c_str()).c_str());
    last.describe = describe;
    last.exitCode = exitCode;
    useAlternateStack();
    struct sigaction action {};
    action.sa_handler = reportCrash;
    // A fault in the handler itself ends the process the plain way.
    action.sa_flags = SA_ONSTACK | static_cast<int>(SA_RESETHAND);
    for (const int signal : {SIGSEGV, SIGFPE, SIGBUS, SIGILL, SIGABRT, SIGXCPU}) {
        ::sigaction(signal, &action, nullptr);
    }
}

} // namespace platform
