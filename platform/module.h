// SPDX-License-Identifier: Apache-2.0
// Loading modules at run time.
#pragma once

#include <string>

namespace platform {

using Module = void*;

/// Null on failure. A path as in file.h; without any separator it is a name that the system looks
/// for on its own search path. A module loaded twice is one, and closed after the second close.
Module loadModule(const char16_t* path);
Module loadModule(const char* path);

/// Null when the module is null or has no such entry.
void* findEntry(Module module, const char* name);

/// Null is allowed. Nothing of the module may be in use any more.
void closeModule(Module module);

/// What the system says about the calling thread's last failure here, in one line; empty when
/// nothing failed.
std::string moduleError();

} // namespace platform
