// SPDX-License-Identifier: Apache-2.0
// The border of a face in the parameters of its surface.
#pragma once

#include <BRepAdaptor_Curve2d.hxx>
#include <TopoDS_Edge.hxx>
#include <TopoDS_Face.hxx>
#include <TopoDS_Wire.hxx>
#include <gp_Pnt2d.hxx>

#include <vector>

namespace host {

/// One use of an edge: its curve in the parameters, run along from `start` or against to `end`.
struct BorderPiece {
    BRepAdaptor_Curve2d curve;
    bool isAlong = true;
    gp_Pnt2d start, end;
    double toleranceMm = 0.0; ///< of the edge and its vertices
};

/// Whether a face or an edge bounds what it belongs to, rather than lying inside of it.
inline bool isBoundary(const TopoDS_Shape& part) {
    return part.Orientation() == TopAbs_FORWARD || part.Orientation() == TopAbs_REVERSED;
}

/// The greatest tolerance of an edge and its vertices: where curves meet within a vertex only, a
/// border is that uncertain.
double toleranceOf(const TopoDS_Edge& edge);

/// Every edge of the wire that bounds the face, each once for every use, in the order in which they
/// stand there. `face` is oriented forward. May throw what the kernel throws for an edge without a
/// curve in the parameters.
std::vector<BorderPiece> borderOf(const TopoDS_Wire& wire, const TopoDS_Face& face);

/// Reorders the pieces so that each begins as near as possible to the end of the one before.
void followEnds(std::vector<BorderPiece>& border);

} // namespace host
