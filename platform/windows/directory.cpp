// SPDX-License-Identifier: Apache-2.0
// A directory search over the system's.
#include "platform/directory.h"

#include "platform/windows/systemerror.h"
#include "platform/windows/widetext.h"

#include <windows.h>

namespace platform {

struct DirectorySearch {
    HANDLE handle;
    std::u16string path;      ///< of the entry found last
    std::size_t prefixLength; ///< of the directory and its separator in `path`
};

namespace {

/// Two backslashes at the start would be the name of another machine.
std::u16string prefixFor(std::u16string_view directory) {
    const bool separated =
        !directory.empty() && (directory.back() == u'\\' || directory.back() == u'/');
    return std::u16string(directory) + (separated ? u"" : u"\\");
}

void take(DirectorySearch& search, const WIN32_FIND_DATAW& found, std::u16string& name) {
    name = units(found.cFileName);
    search.path.replace(search.prefixLength, std::u16string::npos, name);
}

} // namespace

DirectorySearch* findFirst(const char16_t* directory, std::u16string& name) {
    const std::u16string prefix = prefixFor(directory);
    const std::u16string pattern = prefix + u"*.*";
    WIN32_FIND_DATAW found{};
    const HANDLE handle = ::FindFirstFileW(wide(pattern.c_str()), &found);
    if (handle == INVALID_HANDLE_VALUE) {
        takeSystemError();
        return nullptr;
    }
    auto* search = new DirectorySearch{handle, prefix, prefix.size()};
    take(*search, found, name);
    return search;
}

bool findNext(DirectorySearch* search, std::u16string& name) {
    WIN32_FIND_DATAW found{};
    if (!::FindNextFileW(search->handle, &found)) {
        takeSystemError();
        return false;
    }
    take(*search, found, name);
    return true;
}

std::int32_t statFound(DirectorySearch* search, FileStatus* status) {
    return stat(search->path.c_str(), status);
}

void findClose(DirectorySearch* search) {
    if (!search) return;
    ::FindClose(search->handle);
    delete search;
}

} // namespace platform
