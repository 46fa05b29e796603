// SPDX-License-Identifier: Apache-2.0
// A directory search over readdir.
#include "platform/directory.h"

#include "platform/posix/pathbytes.h"

#include <dirent.h>

namespace platform {

struct DirectorySearch {
    DIR* handle;
};

DirectorySearch* findFirst(const char16_t* directory, std::u16string& name) {
    DIR* handle = ::opendir((systemPath(directory) + '/').c_str());
    if (!handle) return nullptr;
    auto* search = new DirectorySearch{handle};
    if (findNext(search, name)) return search;
    findClose(search);
    return nullptr;
}

bool findNext(DirectorySearch* search, std::u16string& name) {
    const dirent* entry = ::readdir(search->handle);
    if (!entry) return false;
    name = unitsOfPath(entry->d_name);
    return true;
}

void findClose(DirectorySearch* search) {
    if (!search) return;
    ::closedir(search->handle);
    delete search;
}

} // namespace platform
