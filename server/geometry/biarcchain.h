// SPDX-License-Identifier: Apache-2.0
// Replaces a free-form curve by arcs and lines that meet with a common tangent.
//
// A biarc joins two points with given tangents by two arcs. The chain takes as long a stretch of
// the curve into each biarc as the limits allow, and starts anew at each kink of the curve.
#pragma once

#include "server/geometry/borderlimit.h"
#include "server/geometry/curvepiece.h"

#include <Adaptor3d_Curve.hxx>

#include <optional>
#include <vector>

namespace server {

struct BiarcChain {
    std::vector<CurvePiece> pieces; ///< lines and arcs, in the direction of the curve
    double deviation = 0.0;         ///< the greatest distance seen between the curve and the chain
};

struct ChainLimits {
    double tolerance = 1e-4;          ///< how far any point of the curve may be from the chain
    std::vector<BorderLimit> borders; ///< of the faces that the curve bounds
};

/// The chain's ends are those of the curve. It is beyond its limits only where even stretches of a
/// ten-thousandth of the range don't come within them.
BiarcChain biarcChain(const Adaptor3d_Curve& curve, double first, double last,
                      const ChainLimits& limits);

/// The arc, or the line, that leaves `from` along the unit vector `tangent` and ends in `to`.
/// `from` and `to` differ.
CurvePiece arcAlong(const gp_Pnt& from, const gp_Vec& tangent, const gp_Pnt& to);

} // namespace server
