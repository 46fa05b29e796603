// SPDX-License-Identifier: Apache-2.0
/// @file
/// Clocks, processor time and the process number. Any thread may call these.
#pragma once

#include <cstdint>

namespace platform {

/// A monotonic counter.
std::int64_t performanceCounter();
/// The steps that performanceCounter() makes in a second.
std::int64_t performanceFrequency();
/// The system's number of this process.
std::uint32_t processId();
/// The processor time used so far by this process, by all its threads, and by its children that
/// have ended and been waited for. Windows doesn't count children.
double processorSeconds();
/// Suspends the calling thread for at least this time; signals don't cut it short.
void sleep(std::uint32_t milliseconds);

} // namespace platform
