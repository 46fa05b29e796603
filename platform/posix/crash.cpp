// SPDX-License-Identifier: Apache-2.0
// The last line of a process that crashes. Everything is prepared beforehand: in the handler only
// plain memory is read, and only the calls that are safe there are made.
#include "platform/process.h"

#include "platform/posix/pathbytes.h"

#include <csignal>
#include <cstring>
#include <unistd.h>

namespace platform {
namespace {

/// A text of fixed room, cut at its end.
template <std::size_t room> class FixedText {
public:
    void clear() { length = 0; }
    void append(const char* more) {
        while (*more && length < room - 1) text[length++] = *more++;
        text[length] = '\0';
    }
    const char* c_str() const { return text; }
    std::size_t size() const { return length; }

private:
    char text[room] = {};
    std::size_t length = 0;
};

FixedText<128> programName;
FixedText<4096> fileToUnlink;
FixedText<1024> lastLine;
const char* (*description)() = nullptr;
int crashExitCode = 1;

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
    lastLine.append(programName.c_str());
    lastLine.append(": crashed (");
    lastLine.append(nameOf(signal));
    lastLine.append(")");
    const char* doing = description ? description() : nullptr;
    if (doing) {
        lastLine.append(" while ");
        lastLine.append(doing);
    }
    lastLine.append("\n");
    [[maybe_unused]] const ssize_t put = ::write(STDERR_FILENO, lastLine.c_str(), lastLine.size());
    if (fileToUnlink.size()) ::unlink(fileToUnlink.c_str());
    ::_exit(crashExitCode);
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
    programName.clear();
    programName.append(program);
    fileToUnlink.clear();
    if (!unlinkPath.empty()) fileToUnlink.append(systemPath(unlinkPath.c_str()).c_str());
    description = describe;
    crashExitCode = exitCode;
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
