// SPDX-License-Identifier: Apache-2.0
// What the runtime library does to files and directories by their path.
#include "platform/file.h"

#include "platform/windows/widetext.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <direct.h>
#include <io.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <windows.h>

namespace platform {
namespace {

std::int32_t take(std::int32_t result, const struct _stat64& record, FileStatus* status) {
    static_assert(file_mode::regular == _S_IFREG && file_mode::directory == _S_IFDIR);
    if (result != 0) return -1;
    status->mode = record.st_mode;
    status->size = record.st_size;
    status->modifiedTime = record.st_mtime;
    status->accessedTime = record.st_atime;
    status->createdTime = record.st_ctime;
    return 0;
}

/// A file or directory, opened for nothing but being asked who it is.
class Identity {
public:
    explicit Identity(const char16_t* path)
        : handle(::CreateFileW(wide(path), 0,
                               FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                               OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr)) {
        known = handle != INVALID_HANDLE_VALUE && ::GetFileInformationByHandle(handle, &record);
    }
    Identity(const Identity&) = delete;
    Identity& operator=(const Identity&) = delete;
    ~Identity() {
        if (handle != INVALID_HANDLE_VALUE) ::CloseHandle(handle);
    }

    bool isKnown() const { return known; }
    FileIdentity value() const {
        const std::uint64_t high = record.nFileIndexHigh;
        return {record.dwVolumeSerialNumber, high << 32 | record.nFileIndexLow};
    }

private:
    HANDLE handle;
    BY_HANDLE_FILE_INFORMATION record{};
    bool known = false;
};

} // namespace

bool identify(const char16_t* path, FileIdentity* identity) {
    const Identity opened(path);
    if (opened.isKnown()) *identity = opened.value();
    return opened.isKnown();
}

bool isLink(const char16_t* path) {
    const DWORD attributes = ::GetFileAttributesW(wide(path));
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_REPARSE_POINT);
}

/// Both are open at once, since a file that isn't open may change its number.
bool isSameFile(const char16_t* a, const char16_t* b) {
    const Identity one(a), other(b);
    return one.isKnown() && other.isKnown() && one.value() == other.value();
}

bool isSameFile(const char* a, const char* b) {
    return isSameFile(widePath(a).c_str(), widePath(b).c_str());
}

std::int32_t access(const char16_t* path, std::int32_t mode) {
    return ::_waccess(wide(path), mode);
}

std::int32_t access(const char* path, std::int32_t mode) { return ::_access(given(path), mode); }

std::int32_t stat(const char16_t* path, FileStatus* status) {
    struct _stat64 record {};
    return take(::_wstat64(wide(path), &record), record, status);
}

std::int32_t stat(const char* path, FileStatus* status) {
    struct _stat64 record {};
    return take(::_stat64(given(path), &record), record, status);
}

std::int32_t unlink(const char16_t* path) { return ::_wunlink(wide(path)); }
std::int32_t unlink(const char* path) { return ::_unlink(given(path)); }
std::int32_t remove(const char16_t* path) { return ::_wremove(wide(path)); }
std::int32_t remove(const char* path) { return std::remove(given(path)); }

std::int32_t rename(const char16_t* from, const char16_t* to) {
    return ::_wrename(wide(from), wide(to));
}

std::int32_t rename(const char* from, const char* to) {
    return std::rename(given(from), given(to));
}

std::int32_t makeDirectory(const char16_t* path) { return ::_wmkdir(wide(path)); }
std::int32_t makeDirectory(const char* path) { return ::_mkdir(given(path)); }
std::int32_t removeDirectory(const char16_t* path) { return ::_wrmdir(wide(path)); }
std::int32_t removeDirectory(const char* path) { return ::_rmdir(given(path)); }

std::u16string currentDirectory() {
    wchar_t* directory = ::_wgetcwd(nullptr, 0);
    if (!directory) return {};
    std::u16string result = units(directory);
    std::free(directory);
    return result;
}

std::int32_t changeDirectory(const char16_t* path) { return ::_wchdir(wide(path)); }

std::u16string nativePath(std::u16string_view path) { return std::u16string(path); }

std::u16string libraryPath(std::u16string_view path) {
    std::u16string result(path);
    std::replace(result.begin(), result.end(), u'/', u'\\');
    return result;
}

/// In the code page that the runtime library's narrow calls go by.
std::u16string widePath(const char* narrow) {
    const char* path = given(narrow);
    const UINT page = ::AreFileApisANSI() ? CP_ACP : CP_OEMCP;
    const int length = ::MultiByteToWideChar(page, 0, path, -1, nullptr, 0);
    if (length <= 0) return {};
    std::u16string result(static_cast<std::size_t>(length), u'\0');
    ::MultiByteToWideChar(page, 0, path, -1, wide(result.data()), length);
    result.pop_back();
    return result;
}

} // namespace platform
