// SPDX-License-Identifier: Apache-2.0
// Files by descriptor, stream and path, with the flags, share modes and mode bits of the target.
//
// Returns: descriptors are -1, streams null and the other calls -1 (0 is success) on failure;
// `lastError` then tells why, for the calling thread, until its next call. Nothing here throws but
// std::bad_alloc. Descriptors and streams are not passed on to child processes.
//
// Paths have backslashes; slashes serve as well. Wide ones are UTF-16, narrow ones go to the system
// byte by byte. Where the system has no drives, "X:" at the start stands for the directory that the
// environment variable ZEL_DRIVE_X names, in the system's own form and with a capital X, and for
// the root when there is none. Letter case is the file system's own matter.
//
// File names that aren't Unicode. Where the system's names are bytes, they are UTF-8, and every
// name has exactly one wide form that leads back to it:
// - a byte from 0x80 to 0xFF that isn't part of well-formed UTF-8 is the lone surrogate
//   U+DC00 + byte, and a backslash byte within a name is U+DC5C;
// - any other lone surrogate is its three-byte form (ED A0 80 to ED BF BF), unless it would form a
//   pair with what follows; then its three bytes are lone surrogates as above.
// Wide names that no listing can yield, such as U+DCC3 U+DCA9, are refused as `Error::other`.
// On the target itself lone surrogates in a name pass unchanged.
//
// Where a system can't do a thing, this is what happens instead:
// - POSIX: text mode changes nothing; `permissionReadWrite` gives what the user's mask allows;
//   a temporary file stays behind when the process dies; share modes hold among users of this
//   header and of flock, and are not enforced on file systems without such locks.
#pragma once

#include <cstdint>
#include <cstdio>
#include <string>

namespace platform {

using OpenFlags = std::int32_t;
constexpr OpenFlags openReadOnly = 0;
constexpr OpenFlags openWriteOnly = 0x1;
constexpr OpenFlags openReadWrite = 0x2;
constexpr OpenFlags openAppend = 0x8;
constexpr OpenFlags openSequential = 0x20; ///< a hint: the file is read from front to back
constexpr OpenFlags openTemporary = 0x40;  ///< the file goes when its descriptor is closed
constexpr OpenFlags openCreate = 0x100;    ///< makes a missing file
constexpr OpenFlags openTruncate = 0x200;
constexpr OpenFlags openExclusive = 0x400; ///< with `openCreate`: an existing file is an error
constexpr OpenFlags openText = 0x4000;
constexpr OpenFlags openBinary = 0x8000;

/// What other openers of the file may do meanwhile.
using ShareMode = std::int32_t;
constexpr ShareMode shareNone = 16; ///< no other opening at all, neither before nor after
constexpr ShareMode shareAll = 64;

/// Of a file that the call makes.
using Permission = std::int32_t;
constexpr Permission permissionRead = 0x100;
constexpr Permission permissionReadWrite = 0x180;

enum class Error {
    none,
    exists,
    notFound, ///< also a directory of the path that is missing
    denied,
    busy, ///< another opener holds it
    other,
};
/// Of the calling thread's last failed call of this header or of directory.h.
Error lastError();

/// A directory can't be opened.
int openFile(const char16_t* path, OpenFlags flags, ShareMode share = shareAll,
             Permission permission = permissionReadWrite);
int openFile(const char* path, OpenFlags flags, ShareMode share = shareAll,
             Permission permission = permissionReadWrite);
/// Bytes read, 0 at the end, -1 on failure. A count is cut to 0x7FFFFFFF.
std::int64_t readFile(int descriptor, void* buffer, std::int64_t countBytes);
/// Bytes written, which is less than asked for on a full disk; -1 on failure.
std::int64_t writeFile(int descriptor, const void* data, std::int64_t countBytes);
/// `origin` is 0 from the start, 1 from the present place, 2 from the end. The new place from the
/// start, or -1.
std::int64_t seekFile(int descriptor, std::int64_t offsetBytes, int origin);
int closeFile(int descriptor);

/// `mode` as for fopen ("rb", "w"). Sharing is allowed. The caller closes with fclose.
std::FILE* openStream(const char16_t* path, const char16_t* mode);
std::FILE* openStream(const char* path, const char* mode);
/// Closes `stream` in any case, as freopen does.
std::FILE* reopenStream(const char16_t* path, const char16_t* mode, std::FILE* stream);
/// The stream owns the descriptor from then on; on failure it stays the caller's.
std::FILE* streamOf(int descriptor, const char* mode);

/// `mode` is 0 for existence, 2 for writing, 4 for reading, 6 for both.
int accessFile(const char16_t* path, int mode);
int accessFile(const char* path, int mode);

constexpr std::uint32_t modeTypeMask = 0xF000;
constexpr std::uint32_t modeRegular = 0x8000;
constexpr std::uint32_t modeDirectory = 0x4000;

struct FileStatus {
    std::uint32_t mode = 0;
    std::int64_t sizeBytes = 0;
    // Seconds since the start of 1970, UTC.
    std::int64_t accessTime = 0;
    std::int64_t modificationTime = 0;
    std::int64_t changeTime = 0; ///< of the state; on the target, when the file was made

    bool isRegular() const { return (mode & modeTypeMask) == modeRegular; }
    bool isDirectory() const { return (mode & modeTypeMask) == modeDirectory; }
};
/// `status` stays as it was on failure. Links are followed.
int statFile(const char16_t* path, FileStatus& status);
int statFile(const char* path, FileStatus& status);

/// Removes a file, not a directory. `removeFile` and `unlinkFile` are one.
int unlinkFile(const char16_t* path);
int unlinkFile(const char* path);
int removeFile(const char16_t* path);
int removeFile(const char* path);
/// Never replaces an existing target.
int renameFile(const char16_t* from, const char16_t* to);
int renameFile(const char* from, const char* to);

int makeDirectory(const char16_t* path);
int makeDirectory(const char* path);
/// An empty one only.
int removeDirectory(const char16_t* path);
int removeDirectory(const char* path);

/// Absolute, with backslashes, of any length; empty when it can't be told.
std::u16string currentDirectory();
int changeDirectory(const char16_t* path);

} // namespace platform
