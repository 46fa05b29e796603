// SPDX-License-Identifier: Apache-2.0
// The kernel's own walk along a wire stops at the first edge that it can't follow, so the order is
// found here, from the ends of the curves.
#include "host/measure/border.h"

#include <TopoDS.hxx>
#include <TopoDS_Iterator.hxx>

#include <algorithm>
#include <utility>

namespace host {
namespace {

BorderPiece pieceOf(const TopoDS_Edge& edge, const TopoDS_Face& face) {
    BorderPiece piece{
        BRepAdaptor_Curve2d(edge, face), edge.Orientation() == TopAbs_FORWARD, {}, {}};
    piece.start = piece.curve.Value(piece.curve.FirstParameter());
    piece.end = piece.curve.Value(piece.curve.LastParameter());
    if (!piece.isAlong) std::swap(piece.start, piece.end);
    return piece;
}

std::vector<BorderPiece> asStored(const TopoDS_Wire& wire, const TopoDS_Face& face) {
    std::vector<BorderPiece> pieces;
    for (TopoDS_Iterator walk(wire); walk.More(); walk.Next()) {
        const TopAbs_Orientation side = walk.Value().Orientation();
        if (side != TopAbs_FORWARD && side != TopAbs_REVERSED) continue;
        pieces.push_back(pieceOf(TopoDS::Edge(walk.Value()), face));
    }
    return pieces;
}

} // namespace

std::vector<BorderPiece> borderOf(const TopoDS_Wire& wire, const TopoDS_Face& face) {
    std::vector<BorderPiece> pieces = asStored(wire, face);
    for (std::size_t i = 1; i < pieces.size(); ++i) {
        const gp_Pnt2d& end = pieces[i - 1].end;
        const auto next = pieces.begin() + static_cast<std::ptrdiff_t>(i);
        if (next->start.SquareDistance(end) == 0.0) continue;
        std::iter_swap(next, std::min_element(next, pieces.end(),
                                              [&end](const BorderPiece& a, const BorderPiece& b) {
                                                  return a.start.SquareDistance(end) <
                                                         b.start.SquareDistance(end);
                                              }));
    }
    return pieces;
}

} // namespace host
