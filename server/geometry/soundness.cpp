// SPDX-License-Identifier: Apache-2.0
// Looks at the numbers only. Cubes of what passes are still numbers.
#include "server/geometry/soundness.h"

#include <BRep_Tool.hxx>
#include <TopExp_Explorer.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Vertex.hxx>

#include <cmath>
#include <initializer_list>

namespace server {
namespace {

constexpr double farthest = 1e50;

/// False for what is no number, too.
bool isNear(std::initializer_list<double> values) {
    for (const double value : values) {
        if (!(std::abs(value) < farthest)) return false;
    }
    return true;
}

bool isNear(const gp_Pnt& point) { return isNear({point.X(), point.Y(), point.Z()}); }

bool isNear(const gp_Ax2& frame) { return isNear(frame.Location()); }

struct PieceCheck {
    bool operator()(const LinePiece& line) const { return isNear(line.start) && isNear(line.end); }
    bool operator()(const ArcPiece& arc) const {
        return isNear(arc.frame) && isNear({arc.radius, arc.first, arc.last}) && arc.radius > 0 &&
               arc.last > arc.first;
    }
    bool operator()(const EllipsePiece& ellipse) const {
        return isNear(ellipse.frame) &&
               isNear({ellipse.major, ellipse.minor, ellipse.first, ellipse.last}) &&
               ellipse.minor > 0 && ellipse.last > ellipse.first;
    }
};

struct SurfaceCheck {
    bool operator()(std::monostate) const { return true; }
    bool operator()(const AnalyticSurface& surface) const {
        const ParameterBox& box = surface.bounds;
        return isNear(surface.frame) && isNear({surface.size, surface.tube}) &&
               isNear({box.u1, box.u2, box.v1, box.v2});
    }
    bool operator()(const Handle(Geom_BSplineSurface) & surface) const {
        for (int row = 1; row <= surface->NbUPoles(); ++row) {
            for (int column = 1; column <= surface->NbVPoles(); ++column) {
                if (!isNear(surface->Pole(row, column))) return false;
            }
        }
        return true;
    }
};

} // namespace

std::string faultOf(const TopoDS_Face& face) {
    if (BRep_Tool::Surface(face).IsNull()) return "it has no surface";
    for (TopExp_Explorer walk(face, TopAbs_VERTEX); walk.More(); walk.Next()) {
        const TopoDS_Vertex vertex = TopoDS::Vertex(walk.Current());
        if (!isNear(BRep_Tool::Pnt(vertex)) || !isNear({BRep_Tool::Tolerance(vertex)})) {
            return "a vertex lies beyond any place";
        }
    }
    for (TopExp_Explorer walk(face, TopAbs_EDGE); walk.More(); walk.Next()) {
        if (!isNear({BRep_Tool::Tolerance(TopoDS::Edge(walk.Current()))})) {
            return "an edge is as inexact as can be";
        }
    }
    return {};
}

std::string faultOf(const FaceSurface& surface) {
    if (std::holds_alternative<std::monostate>(surface.surface)) {
        return surface.from + " surface: " + surface.why;
    }
    const bool isSound = std::visit(SurfaceCheck(), surface.surface);
    return isSound ? std::string() : surface.from + " surface: its values are out of range";
}

std::string faultOf(const EdgeCurve& curve) {
    if (curve.pieces.empty()) return curve.why;
    for (const CurvePiece& piece : curve.pieces) {
        if (!std::visit(PieceCheck(), piece)) return curve.from + ": its values are out of range";
    }
    return {};
}

bool isWithinReach(const Bnd_Box& box) {
    return !box.IsVoid() && !box.IsOpen() && isNear(box.CornerMin()) && isNear(box.CornerMax());
}

} // namespace server
