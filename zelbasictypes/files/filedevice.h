// SPDX-License-Identifier: Apache-2.0
/// @file
/// The platform's file descriptors as the streams of the library use them.
#pragma once

#include "platform/file.h"
#include "zelbasictypes/text/korstring.h"

namespace zeldevice {

/// The platform's flags for a mode of zelmode. A mode without direction fails an assertion and
/// gives -1.
std::int32_t flagsOf(std::int32_t mode);

/// Opens a file that others may open too. -1 on failure, for flags of -1 and for a null path.
/// @{
std::int32_t open(const KorString& path, std::int32_t flags,
                  std::int32_t permission = platform::readWritePermission);
std::int32_t open(const char* path, std::int32_t flags,
                  std::int32_t permission = platform::readWritePermission);
/// @}

/// Moves at most 0x7FFFFFFF bytes; a negative `count` is 0. The number of bytes moved, or -1.
/// @{
std::int64_t read(std::int32_t fd, void* buffer, std::int64_t count);
std::int64_t write(std::int32_t fd, const void* buffer, std::int64_t count);
/// @}
/// The wide form of a narrow path; null for null.
KorString widened(const char* path);
/// Moves the position; `origin` is the beginning (0), the current position (1) or the end (2). The
/// new position, or -1.
std::int64_t seek(std::int32_t fd, std::int64_t offset, std::int32_t origin);

} // namespace zeldevice
