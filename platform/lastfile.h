// SPDX-License-Identifier: Apache-2.0
// A file that a process leaves when it can't do much else any more.
#pragma once

#include <cstddef>

namespace platform {

/// Writes a new file; what bears its name goes first. The path is terminated and in the system's
/// own form. Touches no lock and no heap, so that a signal handler may call it. False when it can't
/// be written to the end.
bool leaveFile(const char* path, const char* bytes, std::size_t length) noexcept;

} // namespace platform
