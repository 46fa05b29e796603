// SPDX-License-Identifier: Apache-2.0
// Time and process numbers.
#pragma once

#include <cstdint>

namespace platform {

/// A counter that never runs back, and its steps in a second.
std::int64_t performanceCounter();
std::int64_t performanceFrequency();
/// The processor time that all threads of this process have used.
std::int64_t processorTimeMs();
std::uint32_t processId();
void sleep(std::uint32_t milliseconds);

} // namespace platform
