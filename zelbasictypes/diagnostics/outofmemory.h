// SPDX-License-Identifier: Apache-2.0
// The way out when an allocation has failed for good: first the memory log, then the message, then
// the end of the process with status -1.
//
// Whoever is on this way may allocate, and fail again: then the step at hand is given up and the
// next one taken, so that the process ends in any case.
#pragma once

#include <cstdint>

/// What went wrong last.
constexpr std::int32_t zelSpillOpenFailed = -1;  ///< the temporary file couldn't be opened
constexpr std::int32_t zelSpillWriteFailed = -2; ///< the block couldn't be written to it
constexpr std::int32_t zelSpillReadFailed = -3;  ///< the block couldn't be read back
constexpr std::int32_t zelNoMemory = -4;

/// Tells the user that memory has run out, for codes from -5 to -1; silent for others. The setting
/// "Memory/UseErrorService" sends the message to the host's error service, and then nothing is
/// shown where there is none; else it is a message box. The renderer rests meanwhile. Always false:
/// the caller ends the process with status -1.
bool zelOutOfMemory(std::int32_t code);

/// Tells the user and ends the process.
[[noreturn]] void zelOutOfMemoryExit(std::int32_t code);

/// The whole way, for a request of `bytes`.
[[noreturn]] void zelReportOutOfMemory(std::int64_t bytes, std::int32_t code = zelNoMemory);
