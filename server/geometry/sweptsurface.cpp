// SPDX-License-Identifier: Apache-2.0
// Each form keeps the parameters of the sweep, so that a frame may come out left-handed.
#include "server/geometry/sweptsurface.h"

#include <Geom_Circle.hxx>
#include <Geom_ConicalSurface.hxx>
#include <Geom_CylindricalSurface.hxx>
#include <Geom_Line.hxx>
#include <Geom_Plane.hxx>
#include <Geom_SphericalSurface.hxx>
#include <Geom_SurfaceOfLinearExtrusion.hxx>
#include <Geom_SurfaceOfRevolution.hxx>
#include <Geom_ToroidalSurface.hxx>
#include <Geom_TrimmedCurve.hxx>
#include <Precision.hxx>

#include <cmath>
#include <numbers>

namespace server {
namespace {

constexpr double angular = 1e-9;
using std::numbers::pi;

Handle(Geom_Curve) untrimmed(Handle(Geom_Curve) curve) {
    while (auto trimmed = Handle(Geom_TrimmedCurve)::DownCast(curve)) curve = trimmed->BasisCurve();
    return curve;
}

bool isNone(double length) { return std::abs(length) < Precision::Confusion(); }

gp_Ax3 frame(const gp_Pnt& origin, const gp_Dir& z, const gp_Dir& x, const gp_Dir& y) {
    gp_Ax3 result(origin, z, x);
    if (result.YDirection().Dot(y) < 0.0) result.YReverse();
    return result;
}

ElementaryForm extruded(const Geom_SurfaceOfLinearExtrusion& surface) {
    const Handle(Geom_Curve) profile = untrimmed(surface.BasisCurve());
    const gp_Dir along = surface.Direction();
    if (auto line = Handle(Geom_Line)::DownCast(profile)) {
        const gp_Dir x = line->Position().Direction();
        if (!x.IsNormal(along, angular)) return {};
        const gp_Pnt origin = line->Position().Location();
        return {new Geom_Plane(frame(origin, x.Crossed(along), x, along))};
    }
    if (auto circle = Handle(Geom_Circle)::DownCast(profile)) {
        const gp_Ax2& position = circle->Position();
        if (!position.Direction().IsParallel(along, angular)) return {};
        return {new Geom_CylindricalSurface(
            frame(position.Location(), along, position.XDirection(), position.YDirection()),
            circle->Radius())};
    }
    return {};
}

/// The axis of a revolution and a point of its profile's plane.
struct Meridian {
    gp_Pnt foot; ///< of `point` on the axis
    gp_Dir axis;
    gp_Vec radial; ///< from the foot to the point
    bool onAxis() const { return isNone(radial.Magnitude()); }
};

Meridian meridian(const Geom_SurfaceOfRevolution& surface, const gp_Pnt& point) {
    const gp_Dir axis = surface.Direction();
    const gp_Vec to(surface.Location(), point);
    const gp_Pnt foot = surface.Location().Translated(gp_Vec(axis) * to.Dot(gp_Vec(axis)));
    return {foot, axis, gp_Vec(foot, point)};
}

/// A line in a plane with the axis. A line across the axis would give a plane in polar parameters,
/// which isn't taken.
ElementaryForm revolvedLine(const Geom_SurfaceOfRevolution& surface, const Geom_Line& line) {
    const gp_Dir direction = line.Position().Direction();
    const Meridian m = meridian(surface, line.Position().Location());
    const double along = direction.Dot(m.axis);
    const gp_Vec outward = gp_Vec(direction) - gp_Vec(m.axis) * along;
    if (std::abs(along) < 1e-6 || (m.onAxis() && outward.Magnitude() < angular)) return {};
    const gp_Dir x = m.onAxis() ? gp_Dir(outward) : gp_Dir(m.radial);
    if (std::abs(direction.Dot(m.axis.Crossed(x))) > angular) return {};
    const gp_Dir z = along < 0.0 ? m.axis.Reversed() : m.axis;
    const gp_Ax3 position = frame(m.foot, z, x, m.axis.Crossed(x));
    const double sine = direction.Dot(x);
    const double radius = m.onAxis() ? 0.0 : m.radial.Magnitude();
    if (std::abs(sine) < angular) return {new Geom_CylindricalSurface(position, radius)};
    return {new Geom_ConicalSurface(position, std::asin(sine), radius)};
}

/// A circle in a plane with the axis: a torus, or a sphere when it is centred on the axis.
ElementaryForm revolvedCircle(const Geom_SurfaceOfRevolution& surface, const Geom_Circle& circle,
                              const ParameterBox& box) {
    const gp_Ax2& ring = circle.Position();
    const Meridian m = meridian(surface, ring.Location());
    const double radius = circle.Radius(), distance = m.radial.Magnitude();
    if (!ring.Direction().IsNormal(m.axis, angular)) return {};
    if (!m.onAxis() && (distance <= radius + Precision::Confusion() ||
                        !ring.Direction().IsNormal(gp_Dir(m.radial), angular))) {
        return {};
    }
    const double middle = 0.5 * (box.v1 + box.v2);
    const Meridian used = meridian(surface, circle.Value(middle));
    if (m.onAxis() && used.onAxis()) return {};
    const gp_Dir x = m.onAxis() ? gp_Dir(used.radial) : gp_Dir(m.radial);
    const double turned = std::atan2(x.Dot(ring.YDirection()), x.Dot(ring.XDirection()));
    const gp_Dir z = ring.Direction().Crossed(x);
    const gp_Ax3 position = frame(m.foot, z, x, m.axis.Crossed(x));
    if (!m.onAxis()) return {new Geom_ToroidalSurface(position, distance, radius), -turned};
    const double shift = -turned - 2.0 * pi * std::round((middle - turned) / (2.0 * pi));
    if (box.v1 + shift < -pi / 2 - 1e-6 || box.v2 + shift > pi / 2 + 1e-6) return {};
    return {new Geom_SphericalSurface(position, radius), shift};
}

} // namespace

ElementaryForm elementaryForm(const Handle(Geom_Surface) & surface, const ParameterBox& box) {
    if (auto extrusion = Handle(Geom_SurfaceOfLinearExtrusion)::DownCast(surface)) {
        return extruded(*extrusion);
    }
    auto revolution = Handle(Geom_SurfaceOfRevolution)::DownCast(surface);
    if (revolution.IsNull()) return {};
    const Handle(Geom_Curve) profile = untrimmed(revolution->BasisCurve());
    if (auto line = Handle(Geom_Line)::DownCast(profile)) return revolvedLine(*revolution, *line);
    if (auto circle = Handle(Geom_Circle)::DownCast(profile)) {
        return revolvedCircle(*revolution, *circle, box);
    }
    return {};
}

} // namespace server
