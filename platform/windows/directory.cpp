// SPDX-License-Identifier: Apache-2.0
// A directory search over the system's.
#include "platform/directory.h"

#include "platform/windows/systemerror.h"
#include "platform/windows/widetext.h"

#include <windows.h>

namespace platform {

struct DirectorySearch {
    HANDLE handle;
};

namespace {

/// Two backslashes at the start would be the name of another machine.
std::u16string patternFor(std::u16string_view directory) {
    const bool separated =
        !directory.empty() && (directory.back() == u'\\' || directory.back() == u'/');
    return std::u16string(directory) + (separated ? u"*.*" : u"\\*.*");
}

} // namespace

DirectorySearch* findFirst(const char16_t* directory, std::u16string& name) {
    const std::u16string pattern = patternFor(directory);
    WIN32_FIND_DATAW found{};
    const HANDLE handle = ::FindFirstFileW(wide(pattern.c_str()), &found);
    if (handle == INVALID_HANDLE_VALUE) {
        takeSystemError();
        return nullptr;
    }
    name = units(found.cFileName);
    return new DirectorySearch{handle};
}

bool findNext(DirectorySearch* search, std::u16string& name) {
    WIN32_FIND_DATAW found{};
    if (!::FindNextFileW(search->handle, &found)) {
        takeSystemError();
        return false;
    }
    name = units(found.cFileName);
    return true;
}

void findClose(DirectorySearch* search) {
    if (!search) return;
    ::FindClose(search->handle);
    delete search;
}

} // namespace platform
