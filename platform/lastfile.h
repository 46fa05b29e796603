// SPDX-License-Identifier: Apache-2.0
/// @file
/// Writes a file from a process that is crashing or out of memory.
#pragma once

#include <cstddef>

namespace platform {

/// Writes a new file in place of any that has the same name. `path` is terminated and in the
/// system's own form. It uses neither locks nor the heap, so a signal handler may call it. False
/// when the file couldn't be written completely.
bool leaveFile(const char* path, const char* bytes, std::size_t length) noexcept;

} // namespace platform
