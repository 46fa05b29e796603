// SPDX-License-Identifier: Apache-2.0
// Loadable modules.
#pragma once

#include <string>

namespace platform {

using Module = void*;

/// Loads a module with all that it needs; null on failure, and moduleError() says why.
Module loadModule(const char16_t* path);
Module loadModule(const char* path);
/// The address of an exported entry, or null.
void* findEntry(Module module, const char* name);
/// The module's code and statics must not be used any more.
void unloadModule(Module module);
/// The reason of the last failure on this thread, in the system's words.
std::string moduleError();

} // namespace platform
