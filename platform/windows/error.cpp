// SPDX-License-Identifier: Apache-2.0
// The runtime library's error numbers as the layer's own. It calls an opening that another one
// refuses "access denied"; the system's own number beneath tells the two apart.
#include "platform/errornumber.h"

#include "platform/windows/systemerror.h"

#include <cerrno>
#include <cstdlib>
#include <windows.h>

namespace platform {
namespace {

bool isHeldByOthers(unsigned long system) {
    return system == ERROR_SHARING_VIOLATION || system == ERROR_LOCK_VIOLATION;
}

int numberOf(unsigned long system) {
    switch (system) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_NO_MORE_FILES:
    case ERROR_DIRECTORY:
    case ERROR_INVALID_NAME:
        return ENOENT;
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
        return EACCES;
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS:
        return EEXIST;
    default:
        return EIO;
    }
}

} // namespace

void takeSystemError() {
    const unsigned long system = ::GetLastError();
    _doserrno = system;
    errno = numberOf(system);
}

Error lastError() {
    return errno == EACCES && isHeldByOthers(_doserrno) ? Error::busy : errorOf(errno);
}

} // namespace platform
