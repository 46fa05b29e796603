// SPDX-License-Identifier: Apache-2.0
/// @file
/// Opening, copying and naming of files. Functions with a `char*` path behave as their wide
/// counterparts, through the system's narrow calls. Any thread may call these.
#pragma once

#include "platform/file.h"
#include "zelbasictypes/text/korstring.h"

#include <cstdint>
#include <cstdio>

/// Opens a stream of the runtime library, with a `mode` as of fopen of at most 255 characters. Null
/// for an empty path and on failure. The caller closes the stream.
[[nodiscard]] std::FILE* zelOpenFile(const KorString& path, const char* mode);
/// The same on an open stream, which is closed in any case.
std::FILE* zelReopenFile(const KorString& path, const char* mode, std::FILE* file);
/// Opens a file exclusively: nobody else may open it meanwhile, and it fails when somebody has it
/// open. The mode "w" overwrites from the start without truncating; any other mode reads.
///
/// When the file is in use or missing, a reader tries again every `retrySeconds` without limit,
/// unless that is 0 or less. A writer never waits. Null on failure, and at once for a null or empty
/// path. The caller closes the stream.
/// @{
[[nodiscard]] std::FILE* zelOpenFileRetry(const KorString& path, const char* mode,
                                          double retrySeconds);
[[nodiscard]] std::FILE* zelOpenFileRetry(const char* path, const char* mode, double retrySeconds);
/// @}

/// Results of the platform: 0 for yes or done, -1 otherwise. `mode` is 0 for existence, 2 for
/// writing, 4 for reading, 6 for both.
/// @{
std::int32_t accessPath(const KorString& path, std::int32_t mode);
std::int32_t statPath(const KorString& path, platform::FileStatus* record);
/// @}
/// Deletes a file; failure goes unnoticed.
void unlinkPath(const KorString& path);
/// Makes one directory. False when it exists already, which `makeDirectory` takes for a success.
/// @{
bool makeDirectoryOnce(const KorString& path);
bool makeDirectoryOnce(const char* path);
/// @}
/// Writes `total` bytes in pieces of at most `chunk`. False as soon as one write falls short, and
/// for a `chunk` below 1. True when there is nothing to write.
[[nodiscard]] bool writeChunked(const void* data, std::FILE* file, std::int64_t total,
                                std::int64_t chunk);

/// Copies a file over `to`. False only when one of the files can't be opened; a full disk goes
/// unnoticed. When `from` can't be read, `to` is left alone. A file copied onto itself stays as it
/// is.
[[nodiscard]] bool copyFile(const KorString& from, const KorString& to);
/// The same; also false for a null or empty path.
[[nodiscard]] bool copyFile(const char* from, const char* to);
/// Copies a file, or a directory and everything below it, into `to`, which is made when it is
/// missing. Existing files are overwritten; where the source has an entry that isn't a regular
/// file, a directory replaces an existing file. True when every copy succeeded, also for a path
/// that leads nowhere. A link that leads back into the source or to the target isn't followed.
/// @{
[[nodiscard]] bool copyTree(const KorString& from, const KorString& to);
[[nodiscard]] bool copyTree(const char* from, const char* to);
/// @}

/// Makes a path for a new file in the directory of the setting "Directories/Temp Directory", else
/// in the host's "temp" directory. Each call gives another name, made from the process number and a
/// counter. Nothing checks that the name is free. Always true.
bool makeTempName(KorString& out);
