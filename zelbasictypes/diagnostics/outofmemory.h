// SPDX-License-Identifier: Apache-2.0
/// @file
/// What happens when an allocation has finally failed: the memory log is written, the user is told,
/// and the process ends with status -1.
///
/// Each of these steps may allocate and fail again. Then that step is given up and the next one
/// taken, so that the process ends in any case.
#pragma once

#include <cstdint>

constexpr std::int32_t zelSpillOpenFailed = -1;  ///< the temporary file couldn't be opened
constexpr std::int32_t zelSpillWriteFailed = -2; ///< the block couldn't be written to it
constexpr std::int32_t zelSpillReadFailed = -3;  ///< the block couldn't be read back
constexpr std::int32_t zelNoMemory = -4;         ///< any other failed allocation

/// Tells the user that memory has run out, for the codes from -5 to -1; other codes are silent. The
/// message is a message box while the renderer is suspended. With the setting
/// "Memory/UseErrorService" it goes to the host's error service instead, and nowhere when there is
/// none. Always false: the caller ends the process with status -1.
bool zelOutOfMemory(std::int32_t code);

/// Tells the user and ends the process.
[[noreturn]] void zelOutOfMemoryExit(std::int32_t code);

/// Does all of it, for a failed request of `bytes`.
[[noreturn]] void zelReportOutOfMemory(std::int64_t bytes, std::int32_t code = zelNoMemory);
