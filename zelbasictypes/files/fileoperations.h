// SPDX-License-Identifier: Apache-2.0
// Opening, copying and naming files.
//
// Those that take a `char*` path behave as their wide twins, through the system's narrow calls.
#pragma once

#include "platform/file.h"
#include "zelbasictypes/text/korstring.h"

#include <cstdint>
#include <cstdio>

/// A stream of the runtime library, with `mode` as of fopen, at most 255 characters. Null for an
/// empty path and on failure. The caller closes it.
std::FILE* zelOpenFile(const KorString& path, const char* mode);
/// The same on a stream that is open, which is closed in any case.
std::FILE* zelReopenFile(const KorString& path, const char* mode, std::FILE* file);
/// Opens a file that nobody else then may open, and none that somebody else has open. "w" writes
/// over what is there without cutting it, anything else reads. A reader who finds the file in use,
/// or missing, tries again after `retrySeconds`, for as long as it takes, unless that is 0 or less;
/// a writer never waits. Null on failure, and at once for a null or empty path. The caller closes
/// the stream.
std::FILE* zelOpenFileRetry(const KorString& path, const char* mode, double retrySeconds);
std::FILE* zelOpenFileRetry(const char* path, const char* mode, double retrySeconds);

/// The platform's results: 0 for yes and done, -1 otherwise. `mode` is 0 for existence, 2 for
/// writing, 4 for reading, 6 for both.
std::int32_t accessPath(const KorString& path, std::int32_t mode);
std::int32_t statPath(const KorString& path, platform::FileStatus* record);
void unlinkPath(const KorString& path);
/// False also where the directory exists already; `makeDirectory` takes that for a success.
bool makeDirectoryOnce(const KorString& path);
bool makeDirectoryOnce(const char* path);
/// Writes `total` bytes, at most `chunk` of them at a time. False as soon as one write falls short,
/// and for a `chunk` below 1; true when there is nothing to write.
bool writeChunked(const void* data, std::FILE* file, std::int64_t total, std::int64_t chunk);

/// False only when one of the files can't be opened; a disk that is full doesn't show. What can't
/// be opened for reading leaves `to` alone, and a file copied onto itself stays as it is.
bool copyFile(const KorString& from, const KorString& to);
/// Here also false for a null or empty path.
bool copyFile(const char* from, const char* to);
/// Copies a file, or a directory with all that is below it into `to`, which is made where it is
/// missing. Files that are there are written over, and where the source has something else than a
/// file a directory takes their place. True when all copies gave true, also for a path that leads
/// nowhere. A link that leads back to where the copy came from or goes to isn't followed.
bool copyTree(const KorString& from, const KorString& to);
bool copyTree(const char* from, const char* to);

/// A path for a file that the caller then makes: in the directory that the settings name
/// ("Directories/Temp Directory"), else in the host's "temp" directory. Each call makes a new name
/// from the process and a counter; nothing looks whether it is free. Always true.
bool makeTempName(KorString& out);
