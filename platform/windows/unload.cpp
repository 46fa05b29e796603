// SPDX-License-Identifier: Apache-2.0
// Telling an unloading from the end of the process, as the system's loader knows it.
#include "platform/module.h"

#include <windows.h>

namespace platform {
namespace {

using Callback = void (*)();
constinit Callback toCall = nullptr;

bool isProcessEnding() {
    using Query = BOOLEAN(NTAPI*)();
    const HMODULE loader = ::GetModuleHandleW(L"ntdll.dll");
    const auto query =
        reinterpret_cast<Query>(::GetProcAddress(loader, "RtlDllShutdownInProgress"));
    return !query || query();
}

/// A program is never unloaded, although its static objects go before the loader knows of its end.
bool isProgram() {
    HMODULE own = nullptr;
    constexpr DWORD how =
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
    ::GetModuleHandleExW(how, reinterpret_cast<LPCWSTR>(&toCall), &own);
    return own == ::GetModuleHandleW(nullptr);
}

struct Statics {
    ~Statics() {
        if (toCall && !isProgram() && !isProcessEnding()) toCall();
    }
};
const Statics statics;

} // namespace

void atUnload(void (*callback)()) { toCall = callback; }

} // namespace platform
