// SPDX-License-Identifier: Apache-2.0
/// @file
/// Maps the error numbers that all systems share to platform::Error.
#pragma once

#include "platform/error.h"

#include <cerrno>

namespace platform {

/// The failure that `number`, a value of errno, stands for.
inline Error errorOf(int number) {
    switch (number) {
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
    case EROFS:
    case EISDIR:
        return Error::denied;
    case EBUSY:
    case EWOULDBLOCK:
    case ETXTBSY:
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
