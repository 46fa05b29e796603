// SPDX-License-Identifier: Apache-2.0
// The system's variables. The runtime library has a copy of its own, which doesn't know the empty
// value and doesn't follow; it is not used here.
#include "platform/environment.h"

#include "platform/windows/widetext.h"

#include <windows.h>

namespace platform {
namespace {

/// Room for most values; the system answers with the room it needs when this is too small.
constexpr DWORD firstRoom = 80;

/// Reads through `get(buffer, room)`. An empty value and none give the same count.
template <class Text, class Get> bool readGrowing(Text& value, Get get) {
    value.resize(firstRoom);
    for (;;) {
        ::SetLastError(ERROR_SUCCESS);
        const DWORD length = get(value.data(), static_cast<DWORD>(value.size()));
        if (length == 0 && ::GetLastError() == ERROR_ENVVAR_NOT_FOUND) break;
        const bool fits = length < value.size();
        value.resize(length);
        if (fits) return true;
    }
    value.clear();
    return false;
}

} // namespace

bool readEnvironment(const char16_t* name, std::u16string& value) {
    return readGrowing(value, [name](char16_t* buffer, DWORD room) {
        return ::GetEnvironmentVariableW(wide(name), wide(buffer), room);
    });
}

bool setEnvironment(const char16_t* name, const char16_t* value) {
    if (!*name || std::u16string_view(name).find(u'=') != std::u16string_view::npos) return false;
    if (::SetEnvironmentVariableW(wide(name), value ? wide(value) : nullptr)) return true;
    return !value && ::GetLastError() == ERROR_ENVVAR_NOT_FOUND;
}

std::optional<std::string> getenv(const char* name) {
    std::string value;
    const bool found = readGrowing(value, [name](char* buffer, DWORD room) {
        return ::GetEnvironmentVariableA(name, buffer, room);
    });
    return found ? std::optional(value) : std::nullopt;
}

} // namespace platform
