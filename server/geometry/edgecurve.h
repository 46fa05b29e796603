// SPDX-License-Identifier: Apache-2.0
// What an edge is sent as: one curve, or a chain of pieces.
#pragma once

#include "server/geometry/borderlimit.h"
#include "server/geometry/curvepiece.h"
#include "server/geometry/tolerances.h"

#include <TopoDS_Edge.hxx>

#include <functional>
#include <string>
#include <vector>

namespace server {

struct EdgeCurve {
    std::vector<CurvePiece> pieces; ///< in the direction of the curve; empty when there is no way
    std::string from;               ///< the kind of the original, as the report names it
    std::string to;                 ///< empty when the curve goes as it is
    std::string why;                ///< of a conversion, or of there being no pieces
    double deviation = 0.0;         ///< of a chain from the curve
};

/// The kind of an edge's curve: "Line", "Circle", "BSplineCurve" and so on; "Degenerated" for the
/// poles of closed surfaces, "none" without any.
std::string curveKind(const TopoDS_Edge& edge);

/// The direction is that of the edge's curve, whatever the edge's orientation. An edge without a
/// curve becomes the line between its vertices. `borders` is asked for the faces' limits when the
/// edge has to become a chain.
EdgeCurve edgeCurve(const TopoDS_Edge& edge, const Tolerances& tolerances,
                    const std::function<std::vector<BorderLimit>()>& borders);

/// Whether the edge has a place but no extent: flagged so, or shorter than `shortest`.
bool hasNoExtent(const TopoDS_Edge& edge, double shortest);

/// Whether edgeCurve has pieces for it: a bounded curve, or at least two vertices.
bool canBeSent(const TopoDS_Edge& edge);

} // namespace server
