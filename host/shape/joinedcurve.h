// SPDX-License-Identifier: Apache-2.0
// Free-form edges arrive as chains of arcs and lines. One smooth curve through the joints of a
// chain is nearer to the original than the chain is.
#pragma once

#include "host/shape/geometry.h"

#include <optional>
#include <vector>

namespace host {

struct JoinedCurve {
    BoundedCurve curve;
    double deviation = 0.0; ///< the greatest distance seen from the pieces, in millimetres
};

/// Whether `next` goes on where `piece` ends, in the same direction.
bool continues(const BoundedCurve& piece, const BoundedCurve& next, double toleranceMm);

/// A spline along pieces that continue each other. It strays from them by `toleranceMm` where two
/// arcs become one stretch; nothing when it strays more than twice that far.
std::optional<JoinedCurve> joined(const std::vector<BoundedCurve>& pieces, double toleranceMm);

} // namespace host
