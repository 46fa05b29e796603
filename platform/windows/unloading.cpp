// SPDX-License-Identifier: Apache-2.0
// Telling an unloading from the end of the process, as the system's loader knows it.
#include "platform/unload.h"

#include <windows.h>

namespace platform {
namespace {

bool isProcessEnding() {
    using Query = BOOLEAN(NTAPI*)();
    const HMODULE loader = ::GetModuleHandleW(L"ntdll.dll");
    void* found = reinterpret_cast<void*>(::GetProcAddress(loader, "RtlDllShutdownInProgress"));
    return !found || reinterpret_cast<Query>(found)();
}

/// A program is never unloaded, although its static objects go before the loader knows of its end.
bool isProgram() {
    HMODULE own = nullptr;
    constexpr DWORD how =
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
    ::GetModuleHandleExW(how, reinterpret_cast<LPCWSTR>(&isProcessEnding), &own);
    return own == ::GetModuleHandleW(nullptr);
}

struct Statics {
    ~Statics() {
        if (!isProgram() && !isProcessEnding()) AtUnload::callAll();
    }
};
const Statics statics;

} // namespace

void AtUnload::watch() {}

} // namespace platform
