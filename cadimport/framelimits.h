// SPDX-License-Identifier: Apache-2.0
/// @file
/// Limits for readers of frames. Clients and servers exchange short texts only, so that a large
/// count is an error.
#pragma once

#include <cstdint>

namespace CADImport {

/// A frame that is longer, or has a negative count, is rejected as garbage.
constexpr std::int32_t longestFrameBytes = 64 << 20;

/// Memory is allocated in steps of this size as the bytes arrive.
constexpr std::int32_t frameStepBytes = 1 << 20;

} // namespace CADImport
