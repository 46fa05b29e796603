// SPDX-License-Identifier: Apache-2.0
// Descriptors. A share mode is an advisory lock of the whole file: who refuses others holds it
// exclusively, everybody else shares it, and nobody waits.
#include "platform/boundedread.h"
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

/// 0 when the system doesn't tell.
mode_t kindOf(int file) {
    struct ::stat status {};
    return ::fstat(file, &status) == 0 ? status.st_mode & S_IFMT : 0;
}

bool isRefused(int file, std::int32_t sharing) {
    const int lock = sharing == share::denyReadWrite ? LOCK_EX : LOCK_SH;
    return ::flock(file, lock | LOCK_NB) != 0 && errno == EWOULDBLOCK;
}

std::int64_t readOnce(int file, void* buffer, std::uint64_t lengthBytes) {
    ssize_t got = 0;
    do {
        got = ::read(file, buffer, lengthBytes);
    } while (got < 0 && errno == EINTR);
    return got;
}

/// -1 for what isn't a regular file, and for the files of the system that don't tell their size.
std::int64_t leftBytes(Descriptor file) {
    struct ::stat status {};
    const off_t position = ::lseek(file, 0, SEEK_CUR);
    const bool isKnown = ::fstat(file, &status) == 0 && S_ISREG(status.st_mode) &&
                         status.st_size > 0 && position >= 0;
    return isKnown ? std::max<off_t>(status.st_size - position, 0) : -1;
}

} // namespace

/// A directory could be opened for reading here, but can't on the target. The truncation waits
/// until the lock is there, since a refused opening must leave the file alone; what is no regular
/// file, such as a device, has nothing to cut.
Descriptor openSystem(const std::string& path, std::int32_t flags, std::int32_t sharing,
                      std::int32_t permission) {
    const int file = ::open(path.c_str(), systemFlags(flags), systemPermission(permission, flags));
    if (file < 0) return -1;
    const mode_t kind = kindOf(file);
    if (kind == S_IFDIR) return refuse(file, EACCES);
    if (isRefused(file, sharing)) return refuse(file, EBUSY);
    const bool cuts = (flags & open_flag::truncate) && kind == S_IFREG;
    if (cuts && ::ftruncate(file, 0) != 0) return refuse(file, errno);
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

/// The system stops a page short of the limit, however much there is; the target doesn't.
std::int64_t read(Descriptor file, void* buffer, std::uint64_t lengthBytes) {
    constexpr std::uint64_t systemLimit = 0x7FFFF000;
    const std::uint64_t length =
        boundedRead(std::min(lengthBytes, transferLimit), [file] { return leftBytes(file); });
    const std::int64_t got = readOnce(file, buffer, std::min(length, systemLimit));
    if (length <= systemLimit || got != std::int64_t{systemLimit}) return got;
    const std::int64_t rest =
        readOnce(file, static_cast<char*>(buffer) + systemLimit, length - systemLimit);
    return got + std::max<std::int64_t>(rest, 0);
}

/// Stops at whatever goes wrong: the caller meets it again, or copies by other means.
std::int64_t moveRange(Descriptor from, Descriptor to) {
    std::int64_t moved = 0;
    for (;;) {
        const ssize_t step = ::copy_file_range(from, nullptr, to, nullptr, transferLimit, 0);
        if (step < 0 && errno == EINTR) continue;
        if (step <= 0) return moved;
        moved += step;
    }
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
