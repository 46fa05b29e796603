// SPDX-License-Identifier: Apache-2.0
/// @file
/// Files, in the vocabulary of the target system.
///
/// Wide paths are terminated UTF-16 texts. Narrow paths are bytes in the encoding of the system's
/// narrow calls, which is UTF-8 on a POSIX system. Both may use either separator and may begin with
/// a drive. On a POSIX system a backslash is a separator, and a drive "X:" stands for the directory
/// that the environment variable ZEL_DRIVE_X names, or else for the root.
///
/// File names on a POSIX system are bytes, usually UTF-8. Every such name has one wide form that
/// converts back to it:
/// - a byte that isn't part of valid UTF-8 becomes one of the code units 0xDC80 to 0xDCFF, and a
///   backslash within a name becomes 0xDC5C;
/// - any other unpaired surrogate becomes its three-byte form, ED A0 80 to ED BF BF, except where
///   two such forms would make a pair: then the first is converted byte by byte.
///
/// A wide name therefore survives the way there and back, unless a run of 0xDC80 to 0xDCFF in it
/// spells valid UTF-8. No directory listing yields such a name.
///
/// Failure, unless a call says otherwise: a count, offset or descriptor is -1, a bool is false, a
/// pointer is null, and lastError() tells why. Nothing here throws anything but std::bad_alloc.
/// Child processes don't inherit descriptors and streams. Any thread may call these functions; one
/// descriptor or stream serves one thread at a time.
///
/// On POSIX systems the text flag changes nothing. Share modes hold among the users of this header
/// only, and only on file systems that have locks. An open file can be unlinked and renamed. A
/// temporary file stays behind when its process dies.
#pragma once

#include "platform/error.h"

#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

namespace platform {

/// Identifies an open file; the caller closes it with close().
using Descriptor = std::int32_t;

/// How a file is opened; the numbers are those of the target's runtime library.
namespace open_flag {
inline constexpr std::int32_t readOnly = 0;      ///< this one or one of the next two, always
inline constexpr std::int32_t writeOnly = 1;     ///< without reading
inline constexpr std::int32_t readWrite = 2;     ///< both directions
inline constexpr std::int32_t append = 0x8;      ///< every write goes to the end
inline constexpr std::int32_t sequential = 0x20; ///< a hint: the file is read from front to back
inline constexpr std::int32_t temporary = 0x40;  ///< deleted when its descriptor is closed
inline constexpr std::int32_t create = 0x100;    ///< the file is made when it doesn't exist
inline constexpr std::int32_t truncate = 0x200;  ///< the content of a regular file is dropped
inline constexpr std::int32_t exclusive = 0x400; ///< with create: fails when the file exists
inline constexpr std::int32_t text = 0x4000;     ///< CR LF on disk, on Windows only
inline constexpr std::int32_t binary = 0x8000;   ///< the bytes as they are
} // namespace open_flag

/// Which other openings of the same file are allowed meanwhile.
namespace share {
inline constexpr std::int32_t denyReadWrite = 16; ///< none: a second opening fails as busy
inline constexpr std::int32_t denyNone = 64;      ///< all
} // namespace share

/// The permission of a new file: its owner reads and writes. On a POSIX system the user's file mode
/// mask decides who else may.
inline constexpr std::int32_t readWritePermission = 0x180;

/// Opens a file; `flags` combines those of open_flag. A directory can't be opened: that fails as
/// denied. A refused opening leaves the file as it is.
/// @{
Descriptor open(const char16_t* path, std::int32_t flags, std::int32_t sharing = share::denyNone,
                std::int32_t permission = readWritePermission);
Descriptor open(const char* path, std::int32_t flags, std::int32_t sharing = share::denyNone,
                std::int32_t permission = readWritePermission);
/// @}
/// Moves at most 0x7FFFFFFF bytes and returns their number: 0 at the end of the file, and less than
/// was asked for when the disk is full.
/// @{
std::int64_t read(Descriptor file, void* buffer, std::uint64_t lengthBytes);
std::int64_t write(Descriptor file, const void* buffer, std::uint64_t lengthBytes);
/// @}
/// Moves the position and returns it, counted from the beginning. `origin` is 0 for the beginning,
/// 1 for the current position, 2 for the end.
std::int64_t seek(Descriptor file, std::int64_t offset, std::int32_t origin);
/// Closes the descriptor, and deletes the file if it is a temporary one.
bool close(Descriptor file);
/// Copies everything after the position of `from` to the position of `to` within the system, as far
/// as that can do it, and advances both positions. Returns the number of bytes moved. It may be 0
/// or less than there are; the caller then reads and writes the rest.
std::int64_t moveRange(Descriptor from, Descriptor to);

/// Opens a stream; modes are those of fopen. Others may open the file meanwhile, but the call fails
/// when one of them denies that. The caller closes the stream.
/// @{
[[nodiscard]] std::FILE* openStream(const char16_t* path, const char16_t* mode);
[[nodiscard]] std::FILE* openStream(const char* path, const char* mode);
/// @}
/// As freopen: closes `stream` in any case, then opens `path` in its place.
std::FILE* reopenStream(const char16_t* path, const char16_t* mode, std::FILE* stream);
/// Makes a stream of a descriptor. On success the stream owns the descriptor, and a temporary file
/// loses its name; on failure the caller keeps it. Using a direction for which the descriptor isn't
/// open fails at that call.
[[nodiscard]] std::FILE* streamOf(Descriptor file, const char* mode);
/// Positions of 64 bits; `origin` as for seek(). Fails for a stream without positions, such as a
/// pipe.
/// @{
bool seekStream(std::FILE* stream, std::int64_t offset, std::int32_t origin);
std::int64_t tellStream(std::FILE* stream);
/// @}
/// Writes what the stream has buffered to the disk and returns true once it is there; the stream
/// must have been opened with the letter c in its mode. Where there is no disk, such as for a pipe,
/// only the buffer is written out.
[[nodiscard]] bool commitStream(std::FILE* stream);
/// The next offset, from `offset` on, at which the file may hold anything but zeros. This skips the
/// holes of sparse files; it is `offset` itself when the system doesn't tell. -1 when only a hole
/// follows. The position of the stream doesn't change.
std::int64_t nextData(std::FILE* stream, std::int64_t offset);

/// Checks a path; mode 0: it exists, 2: it may be written, 4: it may be read, 6: both. Returns 0
/// for yes and -1 for no.
/// @{
std::int32_t access(const char16_t* path, std::int32_t mode);
std::int32_t access(const char* path, std::int32_t mode);
/// @}

/// The bits of FileStatus::mode.
namespace file_mode {
inline constexpr std::uint32_t regular = 0x8000;   ///< an ordinary file
inline constexpr std::uint32_t directory = 0x4000; ///< a directory
inline constexpr std::uint32_t type = 0xF000;      ///< mask of the bits that hold the kind
} // namespace file_mode

/// What stat() tells about a file.
struct FileStatus {
    std::uint32_t mode = 0; ///< bits of file_mode and the permissions
    std::int64_t size = 0;  ///< bytes
    /// Seconds since 1970. `createdTime` is the last change of status on a POSIX system.
    /// @{
    std::int64_t modifiedTime = 0;
    std::int64_t accessedTime = 0;
    std::int64_t createdTime = 0;
    /// @}
};

/// Fills `status` and returns 0, or returns -1 and leaves it alone. Links are followed.
/// @{
std::int32_t stat(const char16_t* path, FileStatus* status);
std::int32_t stat(const char* path, FileStatus* status);
/// @}

/// Identifies a file or directory whatever path leads to it, for as long as it exists.
struct FileIdentity {
    /// The system's numbers; only their equality means something.
    /// @{
    std::uint64_t device = 0;
    std::uint64_t number = 0;
    /// @}
    /// Whether both are the same file.
    bool operator==(const FileIdentity&) const = default;
};
/// Stores the identity of what the path leads to; links are followed. False, with `identity` left
/// alone, when the path leads nowhere.
bool identify(const char16_t* path, FileIdentity* identity);
/// Whether the last name of the path is a symbolic link, even a dangling one.
bool isLink(const char16_t* path);
/// Whether both paths lead to the same existing file or directory; links are followed.
/// @{
bool isSameFile(const char16_t* a, const char16_t* b);
bool isSameFile(const char* a, const char* b);
/// @}

/// Deletes a file, not a directory; both names do the same. 0, or -1.
/// @{
std::int32_t unlink(const char16_t* path);
std::int32_t unlink(const char* path);
std::int32_t remove(const char16_t* path);
std::int32_t remove(const char* path);
/// @}
/// Renames a file or directory; fails with Error::exists when `to` is there already. 0, or -1.
/// @{
std::int32_t rename(const char16_t* from, const char16_t* to);
std::int32_t rename(const char* from, const char* to);
/// @}
/// Makes one directory, or removes an empty one. 0, or -1.
/// @{
std::int32_t makeDirectory(const char16_t* path);
std::int32_t makeDirectory(const char* path);
std::int32_t removeDirectory(const char16_t* path);
std::int32_t removeDirectory(const char* path);
/// @}

/// The working directory of the process in wide form with backslashes, of any length; empty on
/// failure.
std::u16string currentDirectory();
/// Changes the working directory of the whole process. 0, or -1.
std::int32_t changeDirectory(const char16_t* path);

/// Converts a path from the library's form to the one that programs of this system use: unchanged
/// on Windows, with slashes and the drive resolved on a POSIX system.
std::u16string nativePath(std::u16string_view path);
/// The reverse of nativePath(): converts a path of this system to the library's form.
std::u16string libraryPath(std::u16string_view path);
/// The wide form of a narrow path; both lead to the same file.
std::u16string widePath(const char* path);

} // namespace platform
