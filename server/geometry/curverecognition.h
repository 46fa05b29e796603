// SPDX-License-Identifier: Apache-2.0
// Tells when a free-form curve is a line or a circle after all. About four in ten are.
#pragma once

#include "server/geometry/curvepiece.h"

#include <Adaptor3d_Curve.hxx>

#include <optional>

namespace server {

/// The line or arc that the curve between `first` and `last` follows within `tolerance`, run
/// through in the same direction; nothing when it is neither. Judged by 17 points at least and by
/// four for each span of the curve.
std::optional<CurvePiece> recognise(const Adaptor3d_Curve& curve, double first, double last,
                                    double tolerance);

} // namespace server
