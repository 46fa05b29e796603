// SPDX-License-Identifier: Apache-2.0
// The platform's files as the streams use them.
#pragma once

#include "platform/file.h"
#include "zelbasictypes/text/korstring.h"

namespace zeldevice {

/// The platform's flags for a mode of zelmode. A mode without direction is an assertion, and then
/// -1.
std::int32_t flagsOf(std::int32_t mode);

/// Others may open the file too. -1 on failure, for flags of -1 and for a null path.
std::int32_t open(const KorString& path, std::int32_t flags,
                  std::int32_t permission = platform::readWritePermission);
std::int32_t open(const char* path, std::int32_t flags,
                  std::int32_t permission = platform::readWritePermission);

/// `count` is cut to 0x7FFFFFFF bytes, a negative one is 0. The number moved, or -1.
std::int64_t read(std::int32_t fd, void* buffer, std::int64_t count);
std::int64_t write(std::int32_t fd, const void* buffer, std::int64_t count);
/// The wide form of a narrow path; null for null.
KorString widened(const char* path);
/// From the beginning (0), the current position (1) or the end (2); the new position, or -1.
std::int64_t seek(std::int32_t fd, std::int64_t offset, std::int32_t origin);

} // namespace zeldevice
