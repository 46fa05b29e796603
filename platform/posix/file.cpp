// SPDX-License-Identifier: Apache-2.0
// Files over descriptors. A share mode is an advisory lock of the whole file: who refuses others
// holds it exclusively, everybody else shares it, and nobody waits.
#include "platform/file.h"

#include "platform/posix/pathbytes.h"

#include <algorithm>
#include <cerrno>
#include <climits>
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

/// The truncation waits until the lock is there: a refused opening must leave the file alone.
Descriptor openSystem(const std::string& path, std::int32_t flags, std::int32_t sharing,
                      std::int32_t permission) {
    const int file = ::open(path.c_str(), systemFlags(flags), static_cast<mode_t>(permission));
    if (file < 0) return -1;
    if (isDirectory(file)) return refuse(file, EACCES);
    const int lock = sharing == share::denyReadWrite ? LOCK_EX : LOCK_SH;
    if (::flock(file, lock | LOCK_NB) != 0 && errno == EWOULDBLOCK) return refuse(file, EBUSY);
    if ((flags & open_flag::truncate) && ::ftruncate(file, 0) != 0) return refuse(file, errno);
    if (flags & open_flag::temporary) ::unlink(path.c_str());
    return file;
}

std::int32_t statSystem(const std::string& path, FileStatus* status) {
    struct ::stat record {};
    if (::stat(path.c_str(), &record) != 0) return -1;
    std::uint32_t type = record.st_mode & S_IFMT;
    status->mode = type | (record.st_mode & 0x1FFu);
    status->size = record.st_size;
    status->modifiedTime = record.st_mtime;
    status->accessedTime = record.st_atime;
    status->createdTime = record.st_ctime;
    return 0;
}

std::int32_t renameSystem(const std::string& from, const std::string& to) {
    struct ::stat record {};
    if (::lstat(to.c_str(), &record) == 0 && from != to) {
        errno = EEXIST;
        return -1;
    }
    return ::rename(from.c_str(), to.c_str());
}

} // namespace

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

std::int64_t write(Descriptor file, const void* buffer, std::uint64_t lengthBytes) {
    ssize_t put = 0;
    do {
        put = ::write(file, buffer, std::min(lengthBytes, transferLimit));
    } while (put < 0 && errno == EINTR);
    return put;
}

std::int64_t seek(Descriptor file, std::int64_t offset, std::int32_t origin) {
    static_assert(SEEK_SET == 0 && SEEK_CUR == 1 && SEEK_END == 2);
    return ::lseek(file, offset, origin);
}

bool close(Descriptor file) { return ::close(file) == 0; }

std::FILE* openStream(const char16_t* path, const char16_t* mode) {
    return std::fopen(systemPath(path).c_str(), bytesOf(mode).c_str());
}

std::FILE* openStream(const char* path, const char* mode) {
    return std::fopen(systemPath(path).c_str(), mode);
}

std::FILE* reopenStream(const char16_t* path, const char16_t* mode, std::FILE* stream) {
    return std::freopen(systemPath(path).c_str(), bytesOf(mode).c_str(), stream);
}

std::FILE* streamOf(Descriptor file, const char* mode) { return ::fdopen(file, mode); }

std::int32_t access(const char16_t* path, std::int32_t mode) {
    const int wanted = ((mode & 4) ? R_OK : 0) | ((mode & 2) ? W_OK : 0);
    return ::access(systemPath(path).c_str(), wanted ? wanted : F_OK);
}

std::int32_t stat(const char16_t* path, FileStatus* status) {
    return statSystem(systemPath(path), status);
}

std::int32_t stat(const char* path, FileStatus* status) {
    return statSystem(systemPath(path), status);
}

std::int32_t unlink(const char16_t* path) { return ::unlink(systemPath(path).c_str()); }
std::int32_t unlink(const char* path) { return ::unlink(systemPath(path).c_str()); }
std::int32_t remove(const char16_t* path) { return std::remove(systemPath(path).c_str()); }
std::int32_t remove(const char* path) { return std::remove(systemPath(path).c_str()); }

std::int32_t rename(const char16_t* from, const char16_t* to) {
    return renameSystem(systemPath(from), systemPath(to));
}

std::int32_t rename(const char* from, const char* to) {
    return renameSystem(systemPath(from), systemPath(to));
}

std::int32_t makeDirectory(const char16_t* path) { return ::mkdir(systemPath(path).c_str(), 0777); }

std::int32_t makeDirectory(const char* path) { return ::mkdir(systemPath(path).c_str(), 0777); }
std::int32_t removeDirectory(const char16_t* path) { return ::rmdir(systemPath(path).c_str()); }
std::int32_t removeDirectory(const char* path) { return ::rmdir(systemPath(path).c_str()); }

std::u16string currentDirectory() {
    char* directory = ::getcwd(nullptr, 0);
    if (!directory) return {};
    std::u16string result = libraryPath(unitsOf(directory));
    std::free(directory);
    return result;
}

} // namespace platform
