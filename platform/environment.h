// SPDX-License-Identifier: Apache-2.0
// The variables of the process environment, which child processes inherit.
//
// Where the environment is bytes, wide names and values are its UTF-8, with bytes that aren't
// UTF-8 as file.h has them in file names. Nothing guards the environment: a change while another
// thread reads it is a race.
#pragma once

#include <string>

namespace platform {

/// The value at any length. False, and an empty `value`, when the variable isn't set; a variable
/// may also be set to the empty text.
bool readEnvironment(const char16_t* name, std::u16string& value);

/// The empty text is a value; null takes the variable away. False for a name that is empty or holds
/// a "=", and when the system has no room.
bool setEnvironment(const char16_t* name, const char16_t* value);

/// Null when the variable isn't set. The text belongs to the platform and lasts until the calling
/// thread's next call or any change of the variable.
const char* getenv(const char* name);

} // namespace platform
