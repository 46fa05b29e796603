// SPDX-License-Identifier: Apache-2.0
/// @file
/// How much a reader of frames believes of a count. What clients and servers say to each other is
/// words.
#pragma once

#include <cstdint>

namespace CADImport {

/// A longer frame, or one of a negative count, is taken for noise.
constexpr std::int32_t longestFrameBytes = 64 << 20;

/// Room is made in steps of this, as the bytes arrive.
constexpr std::int32_t frameStepBytes = 1 << 20;

} // namespace CADImport
