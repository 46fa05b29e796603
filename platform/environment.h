// SPDX-License-Identifier: Apache-2.0
// The environment of the process. It is shared by all threads and guarded by nobody, and child
// processes inherit it. Where it is made of bytes, wide texts map to them as names do in file.h.
#pragma once

#include <optional>
#include <string>

namespace platform {

/// The value of a variable, whatever its length; false, with `value` empty, when it isn't set. An
/// empty value is a value.
bool readEnvironment(const char16_t* name, std::u16string& value);
/// Sets a variable, to the empty text too; null takes it away. False for a name that is empty or
/// holds a "=".
bool setEnvironment(const char16_t* name, const char16_t* value);
/// The narrow value.
std::optional<std::string> getenv(const char* name);

} // namespace platform
