// SPDX-License-Identifier: Apache-2.0
// The environment of the process. It is shared by all threads and guarded by nobody.
#pragma once

#include <string>

namespace platform {

/// The value of a variable, whatever its length; false, with `value` empty, when it isn't set. An
/// empty value is a value.
bool readEnvironment(const char16_t* name, std::u16string& value);
/// Sets a variable, to the empty text too.
bool setEnvironment(const char16_t* name, const char16_t* value);
/// The narrow value, borrowed until the environment changes; null when it isn't set.
const char* getenv(const char* name);

} // namespace platform
