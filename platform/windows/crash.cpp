// SPDX-License-Identifier: Apache-2.0
// The last line of a process that crashes, from the filter that the system asks before it ends the
// process, and from the runtime library's abort.
#include "platform/process.h"

#include "platform/crashline.h"

#include <csignal>
#include <cstdlib>
#include <iterator>
#include <windows.h>

namespace platform {
namespace {

CrashLine last;

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
    last.compose(kind);
    DWORD written = 0;
    ::WriteFile(::GetStdHandle(STD_ERROR_HANDLE), last.text.c_str(),
                static_cast<DWORD>(last.text.size()), &written, nullptr);
    if (last.unlinkPath.size()) ::DeleteFileA(last.unlinkPath.c_str());
    ::TerminateProcess(::GetCurrentProcess(), static_cast<UINT>(last.exitCode));
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
    last.program.assign(program);
    last.unlinkPath.assign(unlinkPath.c_str());
    last.describe = describe;
    last.exitCode = exitCode;
    // What the filter needs when the stack is used up.
    ULONG reserved = 64 * 1024;
    ::SetThreadStackGuarantee(&reserved);
    ::SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX);
    ::SetUnhandledExceptionFilter(filterException);
    for (const int signal : {SIGABRT, SIGSEGV, SIGFPE, SIGILL}) std::signal(signal, handleSignal);
}

} // namespace platform
