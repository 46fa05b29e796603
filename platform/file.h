// SPDX-License-Identifier: Apache-2.0
// Files, in the vocabulary of the target system.
//
// Wide paths are terminated UTF-16 texts; narrow ones are bytes as the system's narrow calls take
// them, UTF-8 on a POSIX system. Both may use either separator and the form "X:\...". On a POSIX
// system a backslash is a slash, and "X:" is the directory that the environment variable
// ZEL_DRIVE_X names, or else the root.
//
// Names there are bytes, UTF-8 as a rule, and every name has one wide form that leads back to it:
// - a byte that is no part of valid UTF-8 crosses as one of the code units 0xDC80 to 0xDCFF, and a
//   backslash within a name as 0xDC5C;
// - any other unpaired surrogate crosses as its three-byte form, ED A0 80 to ED BF BF, except where
//   two such forms would make a pair: then the first crosses byte by byte.
// So a wide name comes back as it was made, unless a run of 0xDC80 to 0xDCFF in it spells valid
// UTF-8, which no listing yields: it is another spelling of the name in plain UTF-8.
//
// Unless a call says otherwise: what counts or identifies is -1 on failure, what is bool is false,
// what is a pointer is null, and lastError() tells why. Nothing here throws but std::bad_alloc.
// Descriptors and streams are not passed on to child processes.
//
// Facts of POSIX systems: the text flag changes nothing; a share mode holds among the users of this
// header, and not on a file system that has no locks; an open file can be unlinked and renamed; a
// temporary file is left behind by a process that dies.
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
inline constexpr std::int32_t temporary = 0x40;  ///< gone when its descriptor is closed
inline constexpr std::int32_t create = 0x100;
inline constexpr std::int32_t truncate = 0x200;
inline constexpr std::int32_t exclusive = 0x400; ///< with create: fails when the file exists
inline constexpr std::int32_t text = 0x4000;
inline constexpr std::int32_t binary = 0x8000;
} // namespace open_flag

/// What other openings of the same file are let in.
namespace share {
inline constexpr std::int32_t denyReadWrite = 16; ///< none: a second opening fails as busy
inline constexpr std::int32_t denyNone = 64;
} // namespace share

/// Of a file that is made. Who else may use it is up to the user's own settings.
inline constexpr std::int32_t readWritePermission = 0x180;

/// A directory is denied.
Descriptor open(const char16_t* path, std::int32_t flags, std::int32_t sharing = share::denyNone,
                std::int32_t permission = readWritePermission);
Descriptor open(const char* path, std::int32_t flags, std::int32_t sharing = share::denyNone,
                std::int32_t permission = readWritePermission);
/// At most 0x7FFFFFFF bytes; the number moved, 0 at the end of a file, and less than asked for when
/// the disk gets full.
std::int64_t read(Descriptor file, void* buffer, std::uint64_t lengthBytes);
std::int64_t write(Descriptor file, const void* buffer, std::uint64_t lengthBytes);
/// `origin` is 0 for the beginning, 1 for the current position, 2 for the end.
std::int64_t seek(Descriptor file, std::int64_t offset, std::int32_t origin);
bool close(Descriptor file);
/// Moves what lies behind the position of `from` to the position of `to`, as far as the system does
/// that without the bytes coming by here, and both positions with it. The number of bytes moved,
/// which may be 0 or less than there are: the rest is for the caller to read and write.
std::int64_t moveRange(Descriptor from, Descriptor to);

/// Modes as of fopen; others may open the file too, but nobody who denies that. `reopenStream`
/// closes `stream` in any case. `streamOf` takes the descriptor over when it succeeds; a temporary
/// file loses its name then. A direction that the descriptor isn't open for fails when it is used.
std::FILE* openStream(const char16_t* path, const char16_t* mode);
std::FILE* openStream(const char* path, const char* mode);
std::FILE* reopenStream(const char16_t* path, const char16_t* mode, std::FILE* stream);
std::FILE* streamOf(Descriptor file, const char* mode);
/// Positions of 64 bits; `origin` as of `seek`. A stream that can't be moved, such as a pipe, has
/// none.
bool seekStream(std::FILE* stream, std::int64_t offset, std::int32_t origin);
std::int64_t tellStream(std::FILE* stream);
/// What a stream opened with the mode's letter c has been given goes to the disk; true once it is
/// there. What has no disk behind it, such as a pipe, gets it and that is all.
bool commitStream(std::FILE* stream);
/// The next offset, from `offset` on, where the file may hold anything but zeros: behind a hole of
/// a sparse file, and `offset` itself where the system doesn't tell. -1 when only a hole follows.
/// The stream stays where it is.
std::int64_t nextData(std::FILE* stream, std::int64_t offset);

/// Mode 0: exists, 2: may be written, 4: may be read, 6: both. 0 for yes, -1 for no.
std::int32_t access(const char16_t* path, std::int32_t mode);
std::int32_t access(const char* path, std::int32_t mode);

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

/// 0, or -1 with `status` left alone. Links are followed.
std::int32_t stat(const char16_t* path, FileStatus* status);
std::int32_t stat(const char* path, FileStatus* status);

/// What all paths to one file or directory have in common, as long as it is there.
struct FileIdentity {
    std::uint64_t device = 0;
    std::uint64_t number = 0;
    bool operator==(const FileIdentity&) const = default;
};
/// Links are followed. False, with `identity` left alone, where the path leads nowhere.
bool identify(const char16_t* path, FileIdentity* identity);
/// Whether the last name of the path is a link to something else, or to nothing.
bool isLink(const char16_t* path);
/// Whether both paths lead to one file or directory that is there, through links too.
bool isSameFile(const char16_t* a, const char16_t* b);
bool isSameFile(const char* a, const char* b);

/// A file, not a directory; `remove` is the same. 0 or -1, as those that follow.
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

/// In wide form with backslashes, of any length; empty on failure.
std::u16string currentDirectory();
std::int32_t changeDirectory(const char16_t* path);

/// A path in the library's form as programs of this system spell it: unchanged on the target,
/// with slashes and the drive resolved on a POSIX system.
std::u16string nativePath(std::u16string_view path);
/// The other way: as the library spells a path of this system.
std::u16string libraryPath(std::u16string_view path);
/// The wide form of a narrow path: leads to the same file.
std::u16string widePath(const char* path);

} // namespace platform
