// SPDX-License-Identifier: Apache-2.0
// Descriptors. A share mode is an advisory lock of the whole file: who refuses others holds it
// exclusively, everybody else shares it, and nobody waits.
#include "platform/posix/openfile.h"
#include "platform/posix/pathbytes.h"
#include "platform/posix/temporaryfiles.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {
namespace {

constexpr std::uint64_t transferLimit = 0x7FFFFFFF;

int systemFlags(std::int32_t flags) {
    int result = O_CLOEXEC | (flags & 3);
    if (flags & open_flag::append) result |= O_APPEND;
    if (flags & open_flag::create) result |= O_CREAT;
    if (flags & open_flag::exclusive) result |= O_EXCL;
    return result;
}

/// On the target a file belongs to whom the directory says; here to whom the user's mask lets in.
/// What is temporary is nobody else's business.
mode_t systemPermission(std::int32_t permission, std::int32_t flags) {
    const mode_t owner = static_cast<mode_t>(permission) & 0600;
    return flags & open_flag::temporary ? owner : owner | owner >> 3 | owner >> 6;
}

/// Closes and keeps the reason why.
Descriptor refuse(int file, int reason) {
    ::close(file);
    errno = reason;
    return -1;
}

/// A directory can be opened for reading here, but not on the target.
bool isDirectory(int file) {
    struct ::stat status {};
    return ::fstat(file, &status) == 0 && S_ISDIR(status.st_mode);
}

bool isRefused(int file, std::int32_t sharing) {
    const int lock = sharing == share::denyReadWrite ? LOCK_EX : LOCK_SH;
    return ::flock(file, lock | LOCK_NB) != 0 && errno == EWOULDBLOCK;
}

} // namespace

/// The truncation waits until the lock is there: a refused opening must leave the file alone.
Descriptor openSystem(const std::string& path, std::int32_t flags, std::int32_t sharing,
                      std::int32_t permission) {
    const int file = ::open(path.c_str(), systemFlags(flags), systemPermission(permission, flags));
    if (file < 0) return -1;
    if (isDirectory(file)) return refuse(file, EACCES);
    if (isRefused(file, sharing)) return refuse(file, EBUSY);
    if ((flags & open_flag::truncate) && ::ftruncate(file, 0) != 0) return refuse(file, errno);
    if (flags & open_flag::sequential) ::posix_fadvise(file, 0, 0, POSIX_FADV_SEQUENTIAL);
    if (flags & open_flag::temporary) rememberTemporary(file, path);
    return file;
}

Descriptor open(const char16_t* path, std::int32_t flags, std::int32_t sharing,
                std::int32_t permission) {
    return openSystem(systemPath(path), flags, sharing, permission);
}

Descriptor open(const char* path, std::int32_t flags, std::int32_t sharing,
                std::int32_t permission) {
    return openSystem(systemPath(path), flags, sharing, permission);
}

std::int64_t read(Descriptor file, void* buffer, std::uint64_t lengthBytes) {
    ssize_t got = 0;
    do {
        got = ::read(file, buffer, std::min(lengthBytes, transferLimit));
    } while (got < 0 && errno == EINTR);
    return got;
}

/// The system may take less than it is given, also where there is room for the rest.
std::int64_t write(Descriptor file, const void* buffer, std::uint64_t lengthBytes) {
    const auto* bytes = static_cast<const char*>(buffer);
    const std::uint64_t length = std::min(lengthBytes, transferLimit);
    std::uint64_t done = 0;
    do {
        const ssize_t put = ::write(file, bytes + done, length - done);
        if (put < 0 && errno == EINTR) continue;
        if (put < 0 && done == 0) return -1;
        if (put <= 0) break;
        done += static_cast<std::uint64_t>(put);
    } while (done < length);
    return static_cast<std::int64_t>(done);
}

std::int64_t seek(Descriptor file, std::int64_t offset, std::int32_t origin) {
    static_assert(SEEK_SET == 0 && SEEK_CUR == 1 && SEEK_END == 2);
    return ::lseek(file, offset, origin);
}

bool close(Descriptor file) {
    unlinkTemporary(file);
    return ::close(file) == 0;
}

} // namespace platform
