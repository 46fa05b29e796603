// SPDX-License-Identifier: Apache-2.0
// Modules over dlopen.
#include "platform/module.h"

#include "platform/posix/pathbytes.h"

#include <dlfcn.h>

namespace platform {
namespace {

Module load(const std::string& path) { return ::dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL); }

} // namespace

Module loadModule(const char16_t* path) { return load(systemPath(path)); }
Module loadModule(const char* path) { return load(systemPath(path)); }

void* findEntry(Module module, const char* name) {
    return module ? ::dlsym(module, name) : nullptr;
}

void unloadModule(Module module) {
    if (module) ::dlclose(module);
}

std::string moduleError() {
    const char* text = ::dlerror();
    return text ? text : "";
}

} // namespace platform
