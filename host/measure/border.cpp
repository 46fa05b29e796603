// SPDX-License-Identifier: Apache-2.0
// The kernel's own walk along a wire stops at the first edge that it can't follow, so the edges are
// taken as they stand, and their order is found from the ends of the curves where it is another.
#include "host/measure/border.h"

#include <BRep_Tool.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Iterator.hxx>

#include <algorithm>
#include <utility>

namespace host {
namespace {

BorderPiece pieceOf(const TopoDS_Edge& edge, const TopoDS_Face& face) {
    BorderPiece piece{BRepAdaptor_Curve2d(edge, face),
                      edge.Orientation() == TopAbs_FORWARD,
                      {},
                      {},
                      toleranceOf(edge)};
    piece.start = piece.curve.Value(piece.curve.FirstParameter());
    piece.end = piece.curve.Value(piece.curve.LastParameter());
    if (!piece.isAlong) std::swap(piece.start, piece.end);
    return piece;
}

} // namespace

double toleranceOf(const TopoDS_Edge& edge) {
    double tolerance = BRep_Tool::Tolerance(edge);
    for (TopoDS_Iterator walk(edge); walk.More(); walk.Next()) {
        tolerance = std::max(tolerance, BRep_Tool::Tolerance(TopoDS::Vertex(walk.Value())));
    }
    return tolerance;
}

std::vector<BorderPiece> borderOf(const TopoDS_Wire& wire, const TopoDS_Face& face) {
    std::vector<BorderPiece> pieces;
    for (TopoDS_Iterator walk(wire); walk.More(); walk.Next()) {
        if (!isBoundary(walk.Value())) continue;
        pieces.push_back(pieceOf(TopoDS::Edge(walk.Value()), face));
    }
    return pieces;
}

void followEnds(std::vector<BorderPiece>& border) {
    for (std::size_t i = 1; i < border.size(); ++i) {
        const gp_Pnt2d& end = border[i - 1].end;
        const auto next = border.begin() + static_cast<std::ptrdiff_t>(i);
        std::iter_swap(next, std::min_element(next, border.end(),
                                              [&end](const BorderPiece& a, const BorderPiece& b) {
                                                  return a.start.SquareDistance(end) <
                                                         b.start.SquareDistance(end);
                                              }));
    }
}

} // namespace host
