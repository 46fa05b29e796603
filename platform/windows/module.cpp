// SPDX-License-Identifier: Apache-2.0
// Modules of the system. The reason of a failure is kept, since other calls would change it.
#include "platform/module.h"

#include "platform/windows/widetext.h"

#include <utility>
#include <windows.h>

namespace platform {
namespace {

constinit thread_local DWORD lastReason = ERROR_SUCCESS;

std::string describe(DWORD code) {
    char text[512] = {};
    constexpr DWORD kind = FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS;
    DWORD length = ::FormatMessageA(kind, nullptr, code, 0, text, sizeof text, nullptr);
    while (length > 0 && (text[length - 1] == '\n' || text[length - 1] == '\r')) --length;
    return length ? std::string(text, length) : "error " + std::to_string(code);
}

template <class Result> Result told(Result result) {
    if (!result) lastReason = ::GetLastError();
    return result;
}

} // namespace

Module loadModule(const char16_t* path) { return told(::LoadLibraryW(wide(path))); }
Module loadModule(const char* path) { return told(::LoadLibraryA(path)); }

void* findEntry(Module module, const char* name) {
    if (!module) return nullptr;
    return reinterpret_cast<void*>(told(::GetProcAddress(static_cast<HMODULE>(module), name)));
}

void unloadModule(Module module) {
    if (module) ::FreeLibrary(static_cast<HMODULE>(module));
}

std::string moduleError() {
    const DWORD reason = std::exchange(lastReason, ERROR_SUCCESS);
    return reason == ERROR_SUCCESS ? std::string() : describe(reason);
}

} // namespace platform
