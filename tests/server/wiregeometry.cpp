// SPDX-License-Identifier: Apache-2.0
// Each formula is that of the page on the exchange, written down a second time.
#include "tests/server/wiregeometry.h"

#include <Geom_BSplineSurface.hxx>
#include <ShapeAnalysis_Surface.hxx>
#include <TColStd_Array1OfInteger.hxx>
#include <TColStd_Array1OfReal.hxx>
#include <TColStd_Array2OfReal.hxx>
#include <TColgp_Array2OfPnt.hxx>

#include <cmath>
#include <numbers>

namespace server::testing {
namespace {

using CADImport::Point3;
constexpr double pi = std::numbers::pi;

gp_Vec vec(const Point3& p) { return {p.x, p.y, p.z}; }
gp_Pnt pnt(const Point3& p) { return {p.x, p.y, p.z}; }

struct Conic {
    gp_Pnt centre;
    gp_Vec x, y;
    double first, last;
    gp_Pnt point(double share) const {
        const double t = first + share * (last - first);
        return centre.Translated(x * std::cos(t) + y * std::sin(t));
    }
    gp_Vec tangent(double share) const {
        const double t = first + share * (last - first);
        return (y * std::cos(t) - x * std::sin(t)).Normalized();
    }
};

Conic conic(const CADImport::CreateArc& a) {
    const gp_Vec d = vec(a.direction);
    return {pnt(a.center), d * a.radius, vec(a.normal).Crossed(d) * a.radius, a.startAngle,
            a.endAngle};
}
Conic conic(const CADImport::CreateEllipse& e) {
    const gp_Vec d = vec(e.direction);
    return {pnt(e.center), d * e.bigHalfAxis, vec(e.normal).Crossed(d) * e.littleHalfAxis,
            e.startAngle, e.endAngle};
}

/// The frame of an analytic surface and a point in its cylinder coordinates.
template <class Message> struct Local {
    Local(const Message& m, const gp_Pnt& p)
        : z(vec(m.normal)), to(pnt(m.origin), p), height(to.Dot(z)), planar(to - z * height),
          rho(planar.Magnitude()),
          u(std::atan2(planar.Dot(z.Crossed(vec(m.uDirection))), planar.Dot(vec(m.uDirection)))) {}
    gp_Vec z, to;
    double height;
    gp_Vec planar;
    double rho, u;
    gp_Vec radial() const { return planar.Normalized(); }
};

template <class Message>
SurfaceView turned(const Message& m, double distance, const gp_Vec& natural, double u, double v) {
    const bool opposite = m.uRange.first > m.uRange.last;
    return {std::abs(distance), opposite ? natural.Reversed() : natural, u, v};
}

SurfaceView view(const CADImport::CreatePlane& m, const gp_Pnt& p) {
    const Local local(m, p);
    const gp_Vec x = vec(m.uDirection);
    return {std::abs(local.height), local.z, local.to.Dot(x), local.to.Dot(local.z.Crossed(x))};
}
SurfaceView view(const CADImport::CreateCylinder& m, const gp_Pnt& p) {
    const Local local(m, p);
    return turned(m, local.rho - m.radius, local.radial(), local.u, local.height);
}
SurfaceView view(const CADImport::CreateCone& m, const gp_Pnt& p) {
    const Local local(m, p);
    const double c = std::cos(m.angle), s = std::sin(m.angle);
    if (local.rho < 1e-9) return turned(m, local.height, local.z.Reversed(), 0, local.height);
    return turned(m, local.rho * c - local.height * s, local.radial() * c - local.z * s, local.u,
                  local.rho * s + local.height * c);
}
SurfaceView view(const CADImport::CreateSphere& m, const gp_Pnt& p) {
    const Local local(m, p);
    return turned(m, local.to.Magnitude() - m.radius, local.to.Normalized(), local.u,
                  std::atan2(local.height, local.rho));
}
/// A tube thicker than its ring is wide runs through the axis to the far side.
SurfaceView view(const CADImport::CreateTorus& m, const gp_Pnt& p) {
    const Local local(m, p);
    const gp_Vec ring = local.radial() * m.majorRadius;
    const gp_Vec near = local.to - ring, far = local.to + ring;
    const double off = near.Magnitude() - m.minorRadius, farOff = far.Magnitude() - m.minorRadius;
    if (std::abs(off) <= std::abs(farOff)) {
        const double v = std::atan2(local.height, local.rho - m.majorRadius);
        return turned(m, off, near.Normalized(), local.u, v);
    }
    const double v = std::atan2(local.height, -local.rho - m.majorRadius);
    return turned(m, farOff, far.Normalized().Reversed(), local.u + pi, v);
}

/// Distinct knots with their multiplicities, out of a flat sequence.
struct Knots {
    explicit Knots(const QList<double>& flat) {
        for (const double knot : flat) {
            if (!values.empty() && values.back() == knot) {
                ++counts.back();
            } else {
                values.push_back(knot);
                counts.push_back(1);
            }
        }
    }
    TColStd_Array1OfReal knots() const {
        return {values.front(), 1, static_cast<int>(values.size())};
    }
    TColStd_Array1OfInteger multiplicities() const {
        return {counts.front(), 1, static_cast<int>(counts.size())};
    }
    std::vector<double> values;
    std::vector<int> counts;
};

Handle(Geom_BSplineSurface) rebuilt(const CADImport::CreateNURBSSurface& m) {
    const int rows = static_cast<int>(m.controlPoints.size());
    const int columns = static_cast<int>(m.controlPoints.first().size());
    TColgp_Array2OfPnt poles(1, rows, 1, columns);
    TColStd_Array2OfReal weights(1, rows, 1, columns);
    for (int i = 1; i <= rows; ++i) {
        for (int j = 1; j <= columns; ++j) {
            const auto& p = m.controlPoints[i - 1][j - 1];
            poles(i, j) = gp_Pnt(p.x, p.y, p.z);
            weights(i, j) = p.w;
        }
    }
    const Knots u(m.knotsU), v(m.knotsV);
    return new Geom_BSplineSurface(poles, weights, u.knots(), v.knots(), u.multiplicities(),
                                   v.multiplicities(), m.degreeU, m.degreeV);
}

SurfaceView view(const CADImport::CreateNURBSSurface& m, const gp_Pnt& p) {
    const Handle(Geom_BSplineSurface) surface = rebuilt(m);
    ShapeAnalysis_Surface analysis(surface);
    const gp_Pnt2d uv = analysis.ValueOfUV(p, 1e-9);
    SurfaceView result{analysis.Gap(), {}, uv.X(), uv.Y()};
    gp_Pnt point;
    gp_Vec alongU, alongV;
    surface->D1(result.u, result.v, point, alongU, alongV);
    const gp_Vec normal = alongU.Crossed(alongV);
    if (normal.Magnitude() > 1e-12) result.outward = normal.Normalized();
    return result;
}

} // namespace

gp_Pnt curvePoint(const CurveMessage& curve, double share) {
    if (const auto* line = std::get_if<CADImport::CreateLine>(&curve)) {
        const gp_Pnt start = pnt(line->startPoint);
        return start.Translated(gp_Vec(start, pnt(line->endPoint)) * share);
    }
    const auto* arc = std::get_if<CADImport::CreateArc>(&curve);
    return (arc ? conic(*arc) : conic(std::get<CADImport::CreateEllipse>(curve))).point(share);
}

gp_Vec curveTangent(const CurveMessage& curve, double share) {
    if (const auto* line = std::get_if<CADImport::CreateLine>(&curve)) {
        return gp_Vec(pnt(line->startPoint), pnt(line->endPoint)).Normalized();
    }
    const auto* arc = std::get_if<CADImport::CreateArc>(&curve);
    return (arc ? conic(*arc) : conic(std::get<CADImport::CreateEllipse>(curve))).tangent(share);
}

SurfaceView viewSurface(const SurfaceMessage& surface, const gp_Pnt& from) {
    return std::visit([&from](const auto& message) { return view(message, from); }, surface);
}

} // namespace server::testing
