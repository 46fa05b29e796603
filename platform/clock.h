// SPDX-License-Identifier: Apache-2.0
// The fine counter, the process's number, and waiting.
#pragma once

#include <cstdint>

namespace platform {

/// Ticks since some moment in the past; never runs backwards.
std::uint64_t performanceCounter();
/// Ticks of `performanceCounter` a second.
std::uint64_t performanceFrequency();

std::uint32_t processId();

/// At least that long, whatever signals arrive.
void sleepMs(std::uint32_t milliseconds);

} // namespace platform
