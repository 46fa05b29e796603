// SPDX-License-Identifier: Apache-2.0
/// @file
/// Loading of shared libraries at run time.
#pragma once

#include <string>

namespace platform {

/// A loaded module; null is none.
using Module = void*;

/// Loads a module and everything it needs. Null on failure; moduleError() says why.
/// @{
[[nodiscard]] Module loadModule(const char16_t* path);
[[nodiscard]] Module loadModule(const char* path);
/// @}
/// The address of an exported symbol, or null.
void* findEntry(Module module, const char* name);
/// Unloads a module. Nothing may use its code or its static objects from here on.
void unloadModule(Module module);
/// The reason of the last failure on this thread, in the system's own words.
std::string moduleError();

} // namespace platform
