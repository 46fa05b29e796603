// SPDX-License-Identifier: Apache-2.0
// System errors as the layer's own.
#include "platform/error.h"

#include <cerrno>

namespace platform {

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
    case EROFS:
    case EISDIR:
        return Error::denied;
    case EBUSY:
    case EWOULDBLOCK:
    case ETXTBSY:
        return Error::busy;
    case ENOSPC:
    case EDQUOT:
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
