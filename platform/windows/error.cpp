// SPDX-License-Identifier: Apache-2.0
// The runtime library's error numbers as the layer's own. It calls an opening that another one
// refuses "access denied"; the system's own number beneath tells the two apart.
#include "platform/error.h"

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
    switch (errno) {
    case 0:
        return Error::none;
    case EEXIST:
    case ENOTEMPTY:
        return Error::exists;
    case ENOENT:
    case ENOTDIR:
        return Error::notFound;
    case EACCES:
    case EPERM:
        return isHeldByOthers(_doserrno) ? Error::busy : Error::denied;
    case EBUSY:
        return Error::busy;
    case ENOSPC:
    case EFBIG:
        return Error::noSpace;
    case EINVAL:
    case EBADF:
    case ENAMETOOLONG:
        return Error::invalid;
    default:
        return Error::other;
    }
}

} // namespace platform
