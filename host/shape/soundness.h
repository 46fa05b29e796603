// SPDX-License-Identifier: Apache-2.0
// Looks at the numbers of a record before the geometry kernel sees them. The kernel divides by
// radii, normalises directions and walks knots without asking first, so that a bad number can end
// its process.
#pragma once

#include "host/modelling/record.h"

#include <string>

namespace host {

/// What is wrong with a curve or a surface, as the end of a sentence; empty when it is sound.
std::string faultOf(const CurveRecord& curve);
std::string faultOf(const SurfaceRecord& surface);

/// No coordinate or length of a record may exceed it: beyond, doubles no longer tell points a
/// micrometre apart. In metres.
inline constexpr double greatestLengthM = 1e6;

/// Radii and half axes below it are no curves. In metres.
inline constexpr double leastRadiusM = 1e-10;

} // namespace host
