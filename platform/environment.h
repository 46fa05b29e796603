// SPDX-License-Identifier: Apache-2.0
/// @file
/// The environment variables of this process. They are shared by all threads without any lock, and
/// child processes inherit them. On a system whose environment is made of bytes, wide texts are
/// converted in the way that file.h describes for names.
#pragma once

#include <optional>
#include <string>

namespace platform {

/// Reads a variable of any length. Answers false, and clears `value`, when it isn't set. A variable
/// set to the empty text is set.
bool readEnvironment(const char16_t* name, std::u16string& value);
/// Sets a variable; the empty text is a value, and null removes the variable. False for a name that
/// is empty or contains "=".
bool setEnvironment(const char16_t* name, const char16_t* value);
/// The value in the system's narrow encoding; nothing when the variable isn't set.
std::optional<std::string> getenv(const char* name);

} // namespace platform
