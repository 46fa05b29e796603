// SPDX-License-Identifier: Apache-2.0
// Variables over the runtime library.
#include "platform/environment.h"

#include "platform/posix/pathbytes.h"

#include <cstdlib>

namespace platform {

bool readEnvironment(const char16_t* name, std::u16string& value) {
    value.clear();
    const char* found = std::getenv(bytesOf(name).c_str());
    if (!found) return false;
    value = unitsOf(found);
    return true;
}

bool setEnvironment(const char16_t* name, const char16_t* value) {
    const std::string bytes = bytesOf(name);
    if (!value) return ::unsetenv(bytes.c_str()) == 0;
    return ::setenv(bytes.c_str(), bytesOf(value).c_str(), 1) == 0;
}

std::optional<std::string> getenv(const char* name) {
    const char* found = std::getenv(name);
    return found ? std::optional<std::string>(found) : std::nullopt;
}

} // namespace platform
