// SPDX-License-Identifier: Apache-2.0
// A border of length L that strays by d on average changes the area by L d.
#include "server/geometry/borderlimit.h"

#include <BRepAdaptor_Curve.hxx>
#include <BRepAdaptor_Surface.hxx>
#include <BRepGProp.hxx>
#include <BRep_Tool.hxx>
#include <GProp_GProps.hxx>
#include <Geom2d_Curve.hxx>
#include <Standard_Failure.hxx>
#include <TopExp_Explorer.hxx>
#include <TopoDS.hxx>

#include <algorithm>
#include <cmath>

namespace server {
namespace {

gp_Vec normalOf(const BRepAdaptor_Surface& surface, const gp_Pnt2d& uv) {
    gp_Pnt ignored;
    gp_Vec alongU, alongV;
    surface.D1(uv.X(), uv.Y(), ignored, alongU, alongV);
    const gp_Vec normal = alongU.Crossed(alongV);
    const double length = normal.Magnitude();
    return length > 0.0 ? normal / length : gp_Vec();
}

double lengthOf(const TopoDS_Edge& edge) {
    constexpr int steps = 16;
    if (BRep_Tool::Degenerated(edge) || !BRep_Tool::IsGeometric(edge)) return 0.0;
    const BRepAdaptor_Curve curve(edge);
    const double first = curve.FirstParameter(), last = curve.LastParameter();
    double length = 0.0;
    gp_Pnt from = curve.Value(first);
    for (int i = 1; i <= steps; ++i) {
        const gp_Pnt to = curve.Value(first + (last - first) * i / steps);
        length += from.Distance(to);
        from = to;
    }
    return length;
}

double borderLengthOf(const TopoDS_Face& face) {
    double length = 0.0;
    for (TopExp_Explorer walk(face, TopAbs_EDGE); walk.More(); walk.Next()) {
        length += lengthOf(TopoDS::Edge(walk.Current()));
    }
    return length;
}

double areaOf(const TopoDS_Face& face) {
    GProp_GProps properties;
    BRepGProp::SurfaceProperties(face, properties);
    return std::abs(properties.Mass());
}

} // namespace

std::optional<BorderLimit> BorderLimit::of(const TopoDS_Edge& edge, const TopoDS_Face& face,
                                           double meanOffset) {
    BorderLimit limit;
    limit.meanOffset_ = meanOffset;
    const Handle(Geom2d_Curve) curve =
        BRep_Tool::CurveOnSurface(edge, face, limit.first_, limit.last_);
    if (curve.IsNull()) return std::nullopt;
    constexpr bool wholeSurface = false;
    const BRepAdaptor_Surface surface(face, wholeSurface);
    const int steps = surface.GetType() == GeomAbs_Plane ? 0 : 32;
    for (int i = 0; i <= steps; ++i) {
        const double share = steps > 0 ? static_cast<double>(i) / steps : 0.0;
        const double t = limit.first_ + share * (limit.last_ - limit.first_);
        limit.normals_.push_back(normalOf(surface, curve->Value(t)));
    }
    return limit;
}

gp_Vec BorderLimit::normalAt(double t) const {
    if (normals_.size() == 1) return normals_.front();
    const auto last = static_cast<double>(normals_.size() - 1);
    const double place = std::clamp(last * (t - first_) / (last_ - first_), 0.0, last);
    const auto before = std::min(static_cast<std::size_t>(place), normals_.size() - 2);
    const double share = place - static_cast<double>(before);
    return normals_[before] * (1.0 - share) + normals_[before + 1] * share;
}

std::vector<BorderLimit> BorderLimits::at(const TopoDS_Edge& edge,
                                          const std::vector<TopoDS_Face>& faces) {
    std::vector<BorderLimit> limits;
    for (const TopoDS_Face& face : faces) {
        try {
            const double offset = meanOffsetOf(face);
            if (offset <= 0.0) continue;
            if (auto limit = BorderLimit::of(edge, face, offset)) limits.push_back(*limit);
        } catch (const Standard_Failure&) {
            known_.Bind(face, 0.0);
        }
    }
    return limits;
}

double BorderLimits::meanOffsetOf(const TopoDS_Face& face) {
    if (const double* known = known_.Seek(face)) return *known;
    const double length = borderLengthOf(face);
    const double offset = length > 0.0 ? tolerances_.meanOffset(areaOf(face), length) : 0.0;
    known_.Bind(face, offset);
    return offset;
}

} // namespace server
