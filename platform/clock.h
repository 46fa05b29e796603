// SPDX-License-Identifier: Apache-2.0
// Time and process numbers.
#pragma once

#include <cstdint>

namespace platform {

/// A counter that never runs back, and its steps in a second.
std::int64_t performanceCounter();
std::int64_t performanceFrequency();
std::uint32_t processId();
/// The processor time that this process, its threads and its children that have ended have used.
/// Windows doesn't count children.
double processorSeconds();
void sleep(std::uint32_t milliseconds);

} // namespace platform
