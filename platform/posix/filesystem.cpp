// SPDX-License-Identifier: Apache-2.0
// What is done to files and directories by their path.
#include "platform/file.h"

#include "platform/posix/filestatus.h"
#include "platform/posix/pathbytes.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {
namespace {

std::int32_t accessSystem(const std::string& path, std::int32_t mode) {
    static_assert(R_OK == 4 && W_OK == 2 && F_OK == 0);
    return ::access(path.c_str(), mode & (R_OK | W_OK));
}

std::int32_t statSystem(const std::string& path, FileStatus* status) {
    struct ::stat record {};
    if (::stat(path.c_str(), &record) != 0) return -1;
    *status = statusOf(record);
    return 0;
}

bool isSameSystem(const std::string& a, const std::string& b) {
    struct ::stat one {};
    struct ::stat other {};
    return ::stat(a.c_str(), &one) == 0 && ::stat(b.c_str(), &other) == 0 &&
           one.st_dev == other.st_dev && one.st_ino == other.st_ino;
}

bool exists(const std::string& path) {
    struct ::stat record {};
    return ::lstat(path.c_str(), &record) == 0;
}

/// For file systems that can't refuse to replace in one step.
std::int32_t renameChecked(const std::string& from, const std::string& to) {
    if (!exists(to)) return ::rename(from.c_str(), to.c_str());
    errno = exists(from) ? EEXIST : ENOENT;
    return -1;
}

std::int32_t renameSystem(const std::string& from, const std::string& to) {
    if (from == to) return ::rename(from.c_str(), to.c_str());
    if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return 0;
    return errno == EINVAL || errno == ENOSYS ? renameChecked(from, to) : -1;
}

} // namespace

std::int32_t access(const char16_t* path, std::int32_t mode) {
    return accessSystem(systemPath(path), mode);
}

std::int32_t access(const char* path, std::int32_t mode) {
    return accessSystem(systemPath(path), mode);
}

std::int32_t stat(const char16_t* path, FileStatus* status) {
    return statSystem(systemPath(path), status);
}

std::int32_t stat(const char* path, FileStatus* status) {
    return statSystem(systemPath(path), status);
}

bool identify(const char16_t* path, FileIdentity* identity) {
    struct ::stat record {};
    if (::stat(systemPath(path).c_str(), &record) != 0) return false;
    *identity = {record.st_dev, record.st_ino};
    return true;
}

bool isLink(const char16_t* path) {
    struct ::stat record {};
    return ::lstat(systemPath(path).c_str(), &record) == 0 && S_ISLNK(record.st_mode);
}

bool isSameFile(const char16_t* a, const char16_t* b) {
    return isSameSystem(systemPath(a), systemPath(b));
}

bool isSameFile(const char* a, const char* b) { return isSameSystem(systemPath(a), systemPath(b)); }

std::int32_t unlink(const char16_t* path) { return ::unlink(systemPath(path).c_str()); }
std::int32_t unlink(const char* path) { return ::unlink(systemPath(path).c_str()); }
std::int32_t remove(const char16_t* path) { return unlink(path); }
std::int32_t remove(const char* path) { return unlink(path); }

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
    std::u16string result = unitsOfPath(directory);
    std::free(directory);
    return result;
}

std::int32_t changeDirectory(const char16_t* path) { return ::chdir(systemPath(path).c_str()); }

} // namespace platform
