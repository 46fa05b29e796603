// SPDX-License-Identifier: Apache-2.0
// System calls only.
#include "platform/lastfile.h"

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace platform {

bool leaveFile(const char* path, const char* bytes, std::size_t length) noexcept {
    ::unlink(path);
    const int file = ::open(path, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (file < 0) return false;
    while (length > 0) {
        const ssize_t written = ::write(file, bytes, length);
        if (written < 0 && errno != EINTR) break;
        if (written <= 0) continue;
        bytes += written;
        length -= static_cast<std::size_t>(written);
    }
    return ::close(file) == 0 && length == 0;
}

} // namespace platform
