// SPDX-License-Identifier: Apache-2.0
// A directory search over readdir.
#include "platform/directory.h"

#include "platform/posix/filestatus.h"
#include "platform/posix/pathbytes.h"

#include <dirent.h>
#include <fcntl.h>

namespace platform {

struct DirectorySearch {
    DIR* handle;
    const dirent* found; ///< in the handle's own memory, until the next is read
};

DirectorySearch* findFirst(const char16_t* directory, std::u16string& name) {
    DIR* handle = ::opendir((systemPath(directory) + '/').c_str());
    if (!handle) return nullptr;
    auto* search = new DirectorySearch{handle, nullptr};
    if (findNext(search, name)) return search;
    findClose(search);
    return nullptr;
}

bool findNext(DirectorySearch* search, std::u16string& name) {
    const dirent* entry = ::readdir(search->handle);
    if (!entry) return false;
    search->found = entry;
    readUnitsOfPath(entry->d_name, name);
    return true;
}

std::int32_t statFound(DirectorySearch* search, FileStatus* status) {
    struct ::stat record {};
    if (::fstatat(::dirfd(search->handle), search->found->d_name, &record, 0) != 0) return -1;
    *status = statusOf(record);
    return 0;
}

void findClose(DirectorySearch* search) {
    if (!search) return;
    ::closedir(search->handle);
    delete search;
}

} // namespace platform
