// SPDX-License-Identifier: Apache-2.0
// A face reaches furthest on its border or where its normal is parallel to an axis. On a ruled
// surface the second never beats the first: along a ruling a coordinate is linear, and both ends of
// a ruling lie on the border.
#include "host/measure/boundingbox.h"

#include "host/measure/beziernet.h"

#include <BRepAdaptor_Curve.hxx>
#include <BRepAdaptor_Surface.hxx>
#include <BRepBndLib.hxx>
#include <BRepTools.hxx>
#include <BRepTopAdaptor_FClass2d.hxx>
#include <BRep_Tool.hxx>
#include <BndLib_Add3dCurve.hxx>
#include <ElSLib.hxx>
#include <GeomConvert.hxx>
#include <GeomConvert_BSplineCurveToBezierCurve.hxx>
#include <GeomConvert_BSplineSurfaceToBezierSurface.hxx>
#include <Geom_BSplineCurve.hxx>
#include <Geom_BSplineSurface.hxx>
#include <Geom_BezierCurve.hxx>
#include <Geom_BezierSurface.hxx>
#include <Geom_TrimmedCurve.hxx>
#include <Precision.hxx>
#include <TopExp_Explorer.hxx>
#include <TopoDS.hxx>
#include <gp_Sphere.hxx>
#include <gp_Torus.hxx>

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace host {
namespace {

constexpr double boxTolerance = 1e-6;

/// Lower and upper bounds; grown coordinate by coordinate, which the kernel's box doesn't offer.
struct Bounds {
    std::array<double, 3> low{}, high{};

    explicit Bounds(const Bnd_Box& box) {
        box.Get(low[0], low[1], low[2], high[0], high[1], high[2]);
    }
    double diagonal() const {
        return std::hypot(high[0] - low[0], high[1] - low[1], high[2] - low[2]);
    }
    Bnd_Box box() const {
        Bnd_Box result;
        result.Add(gp_Pnt(low[0], low[1], low[2]));
        result.Add(gp_Pnt(high[0], high[1], high[2]));
        return result;
    }
};

/// The control points and weights of a piece, row by row.
struct ControlNet {
    int rows = 0, columns = 0;
    std::vector<gp_Pnt> points;
    std::vector<double> weights;

    /// `sign` times one coordinate.
    BezierNet along(int axis, double sign) const {
        BezierNet net{rows, columns, {}, weights};
        for (std::size_t i = 0; i < points.size(); ++i) {
            net.products.push_back(sign * points[i].Coord(axis + 1) * weights[i]);
        }
        return net;
    }
};

ControlNet netOf(const Geom_BezierCurve& curve) {
    ControlNet net{curve.NbPoles(), 1, {}, {}};
    for (int i = 1; i <= curve.NbPoles(); ++i) {
        net.points.push_back(curve.Pole(i));
        net.weights.push_back(curve.Weight(i));
    }
    return net;
}

ControlNet netOf(const Geom_BezierSurface& surface) {
    ControlNet net{surface.NbUPoles(), surface.NbVPoles(), {}, {}};
    for (int i = 1; i <= net.rows; ++i) {
        for (int k = 1; k <= net.columns; ++k) {
            net.points.push_back(surface.Pole(i, k));
            net.weights.push_back(surface.Weight(i, k));
        }
    }
    return net;
}

/// Grows the bounds around the pieces, of which some points are within them already.
void include(const std::vector<ControlNet>& pieces, Bounds& bounds) {
    const double tolerance = boxTolerance * bounds.diagonal();
    const auto bound = [&](int axis, double sign, double known) {
        std::vector<BezierNet> nets;
        for (const ControlNet& piece : pieces) nets.push_back(piece.along(axis, sign));
        return upperBound(std::move(nets), known, tolerance);
    };
    for (int axis = 0; axis < 3; ++axis) {
        const auto place = static_cast<std::size_t>(axis);
        bounds.high[place] = bound(axis, 1.0, bounds.high[place]);
        bounds.low[place] = -bound(axis, -1.0, -bounds.low[place]);
    }
}

Bnd_Box splineBox(const BRepAdaptor_Curve& curve) {
    const Handle(Geom_Curve) whole =
        Handle(Geom_Curve)::DownCast(curve.Curve().Curve()->Transformed(curve.Trsf()));
    GeomConvert_BSplineCurveToBezierCurve split(GeomConvert::CurveToBSplineCurve(
        new Geom_TrimmedCurve(whole, curve.FirstParameter(), curve.LastParameter())));
    std::vector<ControlNet> pieces;
    for (int i = 1; i <= split.NbArcs(); ++i) pieces.push_back(netOf(*split.Arc(i)));
    Bnd_Box known;
    for (const ControlNet& piece : pieces) {
        known.Add(piece.points.front());
        known.Add(piece.points.back());
    }
    Bounds bounds(known);
    include(pieces, bounds);
    return bounds.box();
}

Bnd_Box borderBox(const TopoDS_Face& face) {
    Bnd_Box box;
    for (TopExp_Explorer walk(face, TopAbs_EDGE); walk.More(); walk.Next()) {
        box.Add(boxOf(TopoDS::Edge(walk.Current())));
    }
    return box;
}

/// Adds points of a surface at given parameters, as far as the face reaches there.
class ExtremePoints {
public:
    explicit ExtremePoints(const TopoDS_Face& face) : face_(face) {}

    void add(const gp_Pnt& point, double u, double v, Bnd_Box& box) const {
        if (!box.IsVoid() && !box.IsOut(point)) return;
        const BRepTopAdaptor_FClass2d face(face_, Precision::PConfusion());
        if (face.Perform(gp_Pnt2d(u, v)) != TopAbs_OUT) box.Add(point);
    }

private:
    const TopoDS_Face& face_;
};

std::vector<gp_Dir> axisDirections() {
    std::vector<gp_Dir> directions;
    for (const double sign : {1.0, -1.0}) {
        directions.emplace_back(sign, 0.0, 0.0);
        directions.emplace_back(0.0, sign, 0.0);
        directions.emplace_back(0.0, 0.0, sign);
    }
    return directions;
}

void addExtremes(const TopoDS_Face& face, const gp_Sphere& sphere, Bnd_Box& box) {
    const ExtremePoints extremes(face);
    for (const gp_Dir& direction : axisDirections()) {
        const gp_Pnt point = sphere.Location().Translated(gp_Vec(direction) * sphere.Radius());
        double u = 0.0, v = 0.0;
        ElSLib::Parameters(sphere, point, u, v);
        extremes.add(point, u, v, box);
    }
}

/// Only the outer side of a torus is convex: there the normal points away from the axis.
void addExtremes(const TopoDS_Face& face, const gp_Torus& torus, Bnd_Box& box) {
    const ExtremePoints extremes(face);
    const gp_Ax3& frame = torus.Position();
    for (const gp_Dir& direction : axisDirections()) {
        const double x = direction.Dot(frame.XDirection()), y = direction.Dot(frame.YDirection());
        const double u = std::atan2(y, x);
        const double v = std::atan2(direction.Dot(frame.Direction()), std::hypot(x, y));
        extremes.add(ElSLib::Value(u, v, torus), u, v, box);
    }
}

struct ParameterRanges {
    double u1 = 0.0, u2 = 0.0, v1 = 0.0, v2 = 0.0;
};

/// Cuts a spline surface to the ranges. One that they span wholly is opened at its seam.
void cutTo(ParameterRanges to, Geom_BSplineSurface& surface) {
    ParameterRanges own;
    surface.Bounds(own.u1, own.u2, own.v1, own.v2);
    const auto spans = [](double low, double high, double first, double last) {
        return high - low >= (last - first) * (1.0 - boxTolerance);
    };
    if (surface.IsUPeriodic() && spans(to.u1, to.u2, own.u1, own.u2)) surface.SetUNotPeriodic();
    if (surface.IsVPeriodic() && spans(to.v1, to.v2, own.v1, own.v2)) surface.SetVNotPeriodic();
    surface.Bounds(own.u1, own.u2, own.v1, own.v2);
    if (!surface.IsUPeriodic()) {
        to.u1 = std::max(to.u1, own.u1);
        to.u2 = std::min(to.u2, own.u2);
    }
    if (!surface.IsVPeriodic()) {
        to.v1 = std::max(to.v1, own.v1);
        to.v2 = std::min(to.v2, own.v2);
    }
    surface.Segment(to.u1, to.u2, to.v1, to.v2);
}

/// The stretch of a spline surface that the parameters of the face span, in Bezier pieces.
std::vector<ControlNet> patchesOf(const TopoDS_Face& face, const BRepAdaptor_Surface& surface) {
    ParameterRanges ranges;
    BRepTools::UVBounds(face, ranges.u1, ranges.u2, ranges.v1, ranges.v2);
    const Handle(Geom_BSplineSurface) cut =
        surface.GetType() == GeomAbs_BezierSurface
            ? GeomConvert::SurfaceToBSplineSurface(surface.Bezier())
            : Handle(Geom_BSplineSurface)::DownCast(surface.BSpline()->Copy());
    cutTo(ranges, *cut);
    GeomConvert_BSplineSurfaceToBezierSurface split(cut);
    std::vector<ControlNet> patches;
    for (int i = 1; i <= split.NbUPatches(); ++i) {
        for (int k = 1; k <= split.NbVPatches(); ++k) patches.push_back(netOf(*split.Patch(i, k)));
    }
    return patches;
}

Bnd_Box splineBox(const TopoDS_Face& face, const BRepAdaptor_Surface& surface, Bnd_Box known) {
    const std::vector<ControlNet> patches = patchesOf(face, surface);
    if (known.IsVoid()) known.Add(patches.front().points.front());
    Bounds bounds(known);
    include(patches, bounds);
    return bounds.box();
}

Bnd_Box optimalBox(const TopoDS_Shape& shape) {
    Bnd_Box box;
    BRepBndLib::AddOptimal(shape, box, false, false);
    if (!box.IsVoid()) box.SetGap(0.0);
    return box;
}

} // namespace

Bnd_Box boxOf(const TopoDS_Edge& edge) {
    Bnd_Box box;
    if (BRep_Tool::Degenerated(edge)) {
        for (TopExp_Explorer walk(edge, TopAbs_VERTEX); walk.More(); walk.Next()) {
            box.Add(BRep_Tool::Pnt(TopoDS::Vertex(walk.Current())));
        }
        return box;
    }
    const BRepAdaptor_Curve curve(edge);
    switch (curve.GetType()) {
    case GeomAbs_Line:
    case GeomAbs_Circle:
    case GeomAbs_Ellipse:
    case GeomAbs_Parabola:
    case GeomAbs_Hyperbola:
        BndLib_Add3dCurve::Add(curve, 0.0, box);
        return box;
    case GeomAbs_BezierCurve:
    case GeomAbs_BSplineCurve:
        if (curve.Is3DCurve()) return splineBox(curve);
        [[fallthrough]];
    default:
        return optimalBox(edge);
    }
}

Bnd_Box boxOf(const TopoDS_Face& face) {
    const BRepAdaptor_Surface surface(face, false);
    Bnd_Box box = borderBox(face);
    switch (surface.GetType()) {
    case GeomAbs_Plane:
    case GeomAbs_Cylinder:
    case GeomAbs_Cone:
    case GeomAbs_SurfaceOfExtrusion:
        return box.IsVoid() ? optimalBox(face) : box;
    case GeomAbs_Sphere:
        addExtremes(face, surface.Sphere(), box);
        return box;
    case GeomAbs_Torus:
        addExtremes(face, surface.Torus(), box);
        return box;
    case GeomAbs_BezierSurface:
    case GeomAbs_BSplineSurface:
        return splineBox(face, surface, box);
    default:
        return optimalBox(face);
    }
}

} // namespace host
