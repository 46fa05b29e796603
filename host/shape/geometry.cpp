// SPDX-License-Identifier: Apache-2.0
// Record by record.
#include "host/shape/geometry.h"

#include <Geom_BSplineSurface.hxx>
#include <Geom_Circle.hxx>
#include <Geom_ConicalSurface.hxx>
#include <Geom_CylindricalSurface.hxx>
#include <Geom_Ellipse.hxx>
#include <Geom_Line.hxx>
#include <Geom_Plane.hxx>
#include <Geom_SphericalSurface.hxx>
#include <Geom_ToroidalSurface.hxx>
#include <TColStd_Array1OfInteger.hxx>
#include <TColStd_Array1OfReal.hxx>
#include <TColStd_Array2OfReal.hxx>
#include <TColgp_Array2OfPnt.hxx>
#include <gp_Ax2.hxx>

#include <algorithm>
#include <cmath>
#include <limits>

namespace host {
namespace {

constexpr double mm = millimetresPerMetre;

gp_Dir directionOf(const ZelVector3& v) { return gp_Dir(v.x, v.y, v.z); }

gp_Ax2 frameOf(const ZelVector3& origin, const ZelVector3& normal, const ZelVector3& direction) {
    return gp_Ax2(pointOf(origin), directionOf(normal), directionOf(direction));
}

gp_Ax3 frameOf(const FrameRecord& frame) {
    return gp_Ax3(frameOf(frame.origin, frame.normal, frame.uDirection));
}

struct CurveMaker {
    BoundedCurve operator()(const LineRecord& line) const {
        const gp_Pnt start = pointOf(line.start), end = pointOf(line.end);
        return {new Geom_Line(start, gp_Dir(gp_Vec(start, end))), 0.0, start.Distance(end)};
    }
    BoundedCurve operator()(const ArcRecord& arc) const {
        return {new Geom_Circle(frameOf(arc.center, arc.normal, arc.direction), arc.radius * mm),
                arc.startAngle, arc.endAngle};
    }
    BoundedCurve operator()(const EllipseRecord& ellipse) const {
        const double big = ellipse.bigHalfAxis * mm;
        const double little = std::min(ellipse.littleHalfAxis * mm, big);
        const gp_Ax2 frame = frameOf(ellipse.center, ellipse.normal, ellipse.direction);
        return {new Geom_Ellipse(frame, big, little), ellipse.startAngle, ellipse.endAngle};
    }
};

Range rising(const Range& range, double factor) {
    return {std::min(range[0], range[1]) * factor, std::max(range[0], range[1]) * factor};
}

FaceSurface bounded(const Handle(Geom_Surface) & surface, const FrameRecord& frame,
                    double factorV) {
    return {surface, frame.uRange[0] > frame.uRange[1], true, rising(frame.uRange, 1.0),
            rising(frame.vRange, factorV)};
}

/// Knots as the kernel wants them: each value once, with its multiplicity.
struct KnotTable {
    std::vector<double> values;
    std::vector<int> counts;

    /// Knots closer than the kernel tells apart become one.
    explicit KnotTable(const std::vector<double>& flat) {
        const double extent = flat.back() - flat.front();
        for (const double knot : flat) {
            const double apart = std::max(
                1e-14 * extent, 4.0 * std::abs(knot) * std::numeric_limits<double>::epsilon());
            if (values.empty() || knot - values.back() > apart) {
                values.push_back(knot);
                counts.push_back(0);
            }
            ++counts.back();
        }
    }
};

struct SurfaceMaker {
    FaceSurface operator()(const PlaneRecord& plane) const {
        return {new Geom_Plane(frameOf(plane)), false, true, rising(plane.uRange, mm),
                rising(plane.vRange, mm)};
    }
    FaceSurface operator()(const CylinderRecord& cylinder) const {
        return bounded(new Geom_CylindricalSurface(frameOf(cylinder), cylinder.radius * mm),
                       cylinder, mm);
    }
    /// The kernel's cone starts at a circle; it is put where the face begins, not at the apex.
    FaceSurface operator()(const ConeRecord& cone) const {
        const double start = std::max(0.0, std::min(cone.vRange[0], cone.vRange[1])) * mm;
        gp_Ax3 frame = frameOf(cone);
        frame.Translate(gp_Vec(frame.Direction()) * (start * std::cos(cone.halfAngle)));
        FaceSurface result = bounded(
            new Geom_ConicalSurface(frame, cone.halfAngle, start * std::sin(cone.halfAngle)), cone,
            mm);
        result.v = {result.v[0] - start, result.v[1] - start};
        return result;
    }
    FaceSurface operator()(const SphereRecord& sphere) const {
        return bounded(new Geom_SphericalSurface(frameOf(sphere), sphere.radius * mm), sphere, 1.0);
    }
    FaceSurface operator()(const TorusRecord& torus) const {
        return bounded(new Geom_ToroidalSurface(frameOf(torus), torus.majorRadius * mm,
                                                torus.minorRadius * mm),
                       torus, 1.0);
    }
    FaceSurface operator()(const NurbSurfaceRecord& nurb) const {
        TColgp_Array2OfPnt points(1, nurb.rows, 1, nurb.columns);
        TColStd_Array2OfReal weights(1, nurb.rows, 1, nurb.columns);
        for (int row = 0; row < nurb.rows; ++row) {
            for (int column = 0; column < nurb.columns; ++column) {
                const auto at = static_cast<std::size_t>(row) * nurb.columns + column;
                points.SetValue(row + 1, column + 1, pointOf(nurb.points[at]));
                weights.SetValue(row + 1, column + 1, nurb.rational ? nurb.weights[at] : 1.0);
            }
        }
        return {surfaceFrom(nurb, points, weights), false, false, {}, {}};
    }

private:
    static Handle(Geom_Surface)
        surfaceFrom(const NurbSurfaceRecord& nurb, const TColgp_Array2OfPnt& points,
                    const TColStd_Array2OfReal& weights) {
        const KnotTable u(nurb.knotsU), v(nurb.knotsV);
        const auto count = [](const auto& list) { return static_cast<int>(list.size()); };
        const TColStd_Array1OfReal knotsU(u.values.front(), 1, count(u.values));
        const TColStd_Array1OfReal knotsV(v.values.front(), 1, count(v.values));
        const TColStd_Array1OfInteger countsU(u.counts.front(), 1, count(u.counts));
        const TColStd_Array1OfInteger countsV(v.counts.front(), 1, count(v.counts));
        if (!nurb.rational) {
            return new Geom_BSplineSurface(points, knotsU, knotsV, countsU, countsV, nurb.degreeU,
                                           nurb.degreeV);
        }
        return new Geom_BSplineSurface(points, weights, knotsU, knotsV, countsU, countsV,
                                       nurb.degreeU, nurb.degreeV);
    }
};

} // namespace

gp_Pnt pointOf(const ZelVector3& metres) {
    return gp_Pnt(metres.x * mm, metres.y * mm, metres.z * mm);
}

BoundedCurve curveOf(const CurveRecord& record) { return std::visit(CurveMaker{}, record); }

FaceSurface surfaceOf(const SurfaceRecord& record) { return std::visit(SurfaceMaker{}, record); }

} // namespace host
