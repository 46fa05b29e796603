// SPDX-License-Identifier: Apache-2.0
// Files, in the vocabulary of the target system.
//
// Wide paths are terminated UTF-16 texts, narrow ones UTF-8. Both may use either separator and the
// form "X:\...". On a POSIX system a backslash is a slash, and "X:" is the directory that the
// environment variable ZEL_DRIVE_X names, or else the root. Names there are bytes: what is no valid
// UTF-8 crosses as the code units 0xDC80 to 0xDCFF, one for each such byte, and comes back the
// same; an unpaired surrogate that stands for no byte crosses as its three-byte form.
//
// Unless a call says otherwise: what counts or identifies is -1 on failure, what is bool is false,
// what is a pointer is null, and lastError() tells why. Nothing here throws.
#pragma once

#include "platform/error.h"

#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

namespace platform {

using Descriptor = std::int32_t;

/// How a file is opened; the numbers are those of the target's runtime library.
namespace open_flag {
inline constexpr std::int32_t readOnly = 0;
inline constexpr std::int32_t writeOnly = 1;
inline constexpr std::int32_t readWrite = 2;
inline constexpr std::int32_t append = 0x8;
inline constexpr std::int32_t sequential = 0x20; ///< read front to back, a hint
inline constexpr std::int32_t temporary = 0x40;  ///< gone when its last descriptor is closed
inline constexpr std::int32_t create = 0x100;
inline constexpr std::int32_t truncate = 0x200;
inline constexpr std::int32_t exclusive = 0x400; ///< with create: fails when the file exists
inline constexpr std::int32_t text = 0x4000;     ///< changes nothing on a POSIX system
inline constexpr std::int32_t binary = 0x8000;
} // namespace open_flag

/// What other openings of the same file are let in.
namespace share {
inline constexpr std::int32_t denyReadWrite = 16; ///< none: a second opening fails as busy
inline constexpr std::int32_t denyNone = 64;
} // namespace share

inline constexpr std::int32_t readWritePermission = 0x180;

Descriptor open(const char16_t* path, std::int32_t flags, std::int32_t sharing = share::denyNone,
                std::int32_t permission = readWritePermission);
Descriptor open(const char* path, std::int32_t flags, std::int32_t sharing = share::denyNone,
                std::int32_t permission = readWritePermission);
/// At most 0x7FFFFFFF bytes; the number moved, 0 at the end of a file.
std::int64_t read(Descriptor file, void* buffer, std::uint64_t lengthBytes);
std::int64_t write(Descriptor file, const void* buffer, std::uint64_t lengthBytes);
/// `origin` is 0 for the beginning, 1 for the current position, 2 for the end.
std::int64_t seek(Descriptor file, std::int64_t offset, std::int32_t origin);
bool close(Descriptor file);

/// Modes as of fopen. The descriptor form takes the descriptor over when it succeeds.
std::FILE* openStream(const char16_t* path, const char16_t* mode);
std::FILE* openStream(const char* path, const char* mode);
std::FILE* reopenStream(const char16_t* path, const char16_t* mode, std::FILE* stream);
std::FILE* streamOf(Descriptor file, const char* mode);

/// Mode 0: exists, 2: may be written, 4: may be read, 6: both. 0 for yes, -1 for no.
std::int32_t access(const char16_t* path, std::int32_t mode);

namespace file_mode {
inline constexpr std::uint32_t regular = 0x8000;
inline constexpr std::uint32_t directory = 0x4000;
inline constexpr std::uint32_t type = 0xF000;
} // namespace file_mode

struct FileStatus {
    std::uint32_t mode = 0;
    std::int64_t size = 0;         ///< bytes
    std::int64_t modifiedTime = 0; ///< seconds since 1970, as the two that follow
    std::int64_t accessedTime = 0;
    std::int64_t createdTime = 0; ///< of the last change of state on a POSIX system
};

/// 0, or -1 with `status` left alone.
std::int32_t stat(const char16_t* path, FileStatus* status);
std::int32_t stat(const char* path, FileStatus* status);

/// A file or, for `remove`, an empty directory on a POSIX system. 0 or -1, as those that follow.
std::int32_t unlink(const char16_t* path);
std::int32_t unlink(const char* path);
std::int32_t remove(const char16_t* path);
std::int32_t remove(const char* path);
/// Fails with `exists` when `to` is there already.
std::int32_t rename(const char16_t* from, const char16_t* to);
std::int32_t rename(const char* from, const char* to);
std::int32_t makeDirectory(const char16_t* path);
std::int32_t makeDirectory(const char* path);
std::int32_t removeDirectory(const char16_t* path);
std::int32_t removeDirectory(const char* path);

/// In wide form with backslashes; empty on failure.
std::u16string currentDirectory();

/// A path in the library's form as programs of this system spell it: unchanged on the target,
/// with slashes and the drive resolved on a POSIX system.
std::u16string nativePath(std::u16string_view path);
/// The other way: as the library spells a path of this system.
std::u16string libraryPath(std::u16string_view path);

} // namespace platform
