// SPDX-License-Identifier: Apache-2.0
// The way out when an allocation has failed for good.
#pragma once

#include <cstdint>

/// What went wrong last.
constexpr std::int32_t zelSpillOpenFailed = -1;  ///< the temporary file couldn't be opened
constexpr std::int32_t zelSpillWriteFailed = -2; ///< the block couldn't be written to it
constexpr std::int32_t zelSpillReadFailed = -3;  ///< the block couldn't be read back
constexpr std::int32_t zelNoMemory = -4;

/// Tells the user that memory has run out, for codes from -5 to -1; silent for others. Always
/// false: the caller ends the process with status -1.
bool zelOutOfMemory(std::int32_t code);

/// Tells the user and ends the process.
[[noreturn]] void zelOutOfMemoryExit(std::int32_t code);

/// The end for a request of `bytes` that nobody could serve.
[[noreturn]] void zelReportOutOfMemory(std::int64_t bytes);
