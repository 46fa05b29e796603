// SPDX-License-Identifier: Apache-2.0
// The last line of a process that crashes, from the filter that the system asks before it ends the
// process, and from the runtime library's abort.
#include "platform/process.h"

#include <csignal>
#include <cstdlib>
#include <iterator>
#include <windows.h>

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
FixedText<4096> fileToDelete;
FixedText<1024> lastLine;
const char* (*description)() = nullptr;
UINT crashExitCode = 1;

const char* nameOf(DWORD code) {
    switch (code) {
    case EXCEPTION_ACCESS_VIOLATION:
    case EXCEPTION_STACK_OVERFLOW:
        return "invalid memory access";
    case EXCEPTION_INT_DIVIDE_BY_ZERO:
    case EXCEPTION_INT_OVERFLOW:
    case EXCEPTION_FLT_DIVIDE_BY_ZERO:
    case EXCEPTION_FLT_INVALID_OPERATION:
        return "arithmetic fault";
    case EXCEPTION_IN_PAGE_ERROR:
    case EXCEPTION_DATATYPE_MISALIGNMENT:
        return "bus error";
    case EXCEPTION_ILLEGAL_INSTRUCTION:
    case EXCEPTION_PRIV_INSTRUCTION:
        return "illegal instruction";
    default:
        return "abort";
    }
}

[[noreturn]] void reportCrash(const char* kind) {
    lastLine.append(programName.c_str());
    lastLine.append(": crashed (");
    lastLine.append(kind);
    lastLine.append(")");
    const char* doing = description ? description() : nullptr;
    if (doing) {
        lastLine.append(" while ");
        lastLine.append(doing);
    }
    lastLine.append("\n");
    DWORD written = 0;
    ::WriteFile(::GetStdHandle(STD_ERROR_HANDLE), lastLine.c_str(),
                static_cast<DWORD>(lastLine.size()), &written, nullptr);
    if (fileToDelete.size()) ::DeleteFileA(fileToDelete.c_str());
    ::TerminateProcess(::GetCurrentProcess(), crashExitCode);
    std::abort();
}

LONG WINAPI filterException(EXCEPTION_POINTERS* fault) {
    reportCrash(nameOf(fault->ExceptionRecord->ExceptionCode));
}

void handleSignal(int signal) {
    switch (signal) {
    case SIGSEGV:
        reportCrash("invalid memory access");
    case SIGFPE:
        reportCrash("arithmetic fault");
    case SIGILL:
        reportCrash("illegal instruction");
    default:
        reportCrash("abort");
    }
}

} // namespace

void onCrash(const char* program, const char* (*describe)(), const std::string& unlinkPath,
             std::int32_t exitCode) {
    programName.clear();
    programName.append(program);
    fileToDelete.clear();
    fileToDelete.append(unlinkPath.c_str());
    description = describe;
    crashExitCode = static_cast<UINT>(exitCode);
    // What the filter needs when the stack is used up.
    ULONG reserved = 64 * 1024;
    ::SetThreadStackGuarantee(&reserved);
    ::SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX);
    ::SetUnhandledExceptionFilter(filterException);
    for (const int signal : {SIGABRT, SIGSEGV, SIGFPE, SIGILL}) std::signal(signal, handleSignal);
}

} // namespace platform
