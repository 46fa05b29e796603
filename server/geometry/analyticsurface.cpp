// SPDX-License-Identifier: Apache-2.0
// Left-handed frames turn the direction of one parameter; the rest is a matter of names.
#include "server/geometry/analyticsurface.h"

#include <Geom_ConicalSurface.hxx>
#include <Geom_CylindricalSurface.hxx>
#include <Geom_Plane.hxx>
#include <Geom_SphericalSurface.hxx>
#include <Geom_ToroidalSurface.hxx>

#include <cmath>
#include <numbers>
#include <utility>

namespace server {
namespace {

void negate(double& low, double& high) {
    low = -low;
    high = -high;
    std::swap(low, high);
}

/// Z and X of the source. A left-handed source has its Y on the other side, so that u turns round.
AnalyticSurface onFrameOf(const gp_Ax3& position, const ParameterBox& box, AnalyticKind kind) {
    AnalyticSurface result;
    result.kind = kind;
    result.frame = gp_Ax2(position.Location(), position.Direction(), position.XDirection());
    result.bounds = box;
    if (!position.Direct()) negate(result.bounds.u1, result.bounds.u2);
    return result;
}

/// Z becomes the outward normal, so that here it is v that may turn round.
AnalyticSurface fromPlane(const gp_Ax3& position, const ParameterBox& box, bool reversed) {
    AnalyticSurface result;
    gp_Dir normal = position.XDirection().Crossed(position.YDirection());
    if (reversed) normal.Reverse();
    result.frame = gp_Ax2(position.Location(), normal, position.XDirection());
    result.bounds = box;
    if (reversed) negate(result.bounds.v1, result.bounds.v2);
    return result;
}

/// With w the length from the apex and s the sign of the radial share of the generatrix on the
/// nappe, the source is A + |w| (cos a N + sin a s (cos u X + sin u Y)): X is s X of the source.
std::optional<AnalyticSurface> fromCone(const Geom_ConicalSurface& cone, const ParameterBox& box) {
    const gp_Ax3& position = cone.Position();
    const double angle = cone.SemiAngle();
    const double apex = -cone.RefRadius() / std::sin(angle);
    double near = box.v1 - apex, far = box.v2 - apex;
    const double slack = 1e-7 * (far - near);
    if (near < -slack && far > slack) return std::nullopt;
    const bool below = near + far < 0.0;
    if (below) negate(near, far);
    AnalyticSurface result;
    result.kind = AnalyticKind::cone;
    result.size = std::abs(angle);
    const gp_Dir z = position.Direction();
    const gp_Dir x = position.XDirection();
    result.frame =
        gp_Ax2(cone.Apex(), below ? z.Reversed() : z, (angle < 0.0) != below ? x.Reversed() : x);
    result.bounds = {box.u1, box.u2, std::max(near, 0.0), far};
    if (position.Direct() == below) negate(result.bounds.u1, result.bounds.u2);
    return result;
}

std::optional<AnalyticSurface> inNewTerms(const Handle(Geom_Surface) & surface,
                                          const ParameterBox& box, bool reversed) {
    if (auto plane = Handle(Geom_Plane)::DownCast(surface)) {
        return fromPlane(plane->Position(), box, reversed);
    }
    if (auto cone = Handle(Geom_ConicalSurface)::DownCast(surface)) return fromCone(*cone, box);
    AnalyticSurface result;
    if (auto cylinder = Handle(Geom_CylindricalSurface)::DownCast(surface)) {
        result = onFrameOf(cylinder->Position(), box, AnalyticKind::cylinder);
        result.size = cylinder->Radius();
    } else if (auto sphere = Handle(Geom_SphericalSurface)::DownCast(surface)) {
        result = onFrameOf(sphere->Position(), box, AnalyticKind::sphere);
        result.size = sphere->Radius();
    } else if (auto torus = Handle(Geom_ToroidalSurface)::DownCast(surface)) {
        result = onFrameOf(torus->Position(), box, AnalyticKind::torus);
        result.size = torus->MajorRadius();
        result.tube = torus->MinorRadius();
    } else {
        return std::nullopt;
    }
    return result;
}

gp_Vec awayFromAxis(const gp_Ax2& frame, const gp_Pnt& point) {
    const gp_Vec to(frame.Location(), point), z(frame.Direction());
    return to - z * to.Dot(z);
}

/// Away from the middle of the tube; where the tube has passed the axis, u runs the other way and
/// the natural side with it.
gp_Vec torusSide(const AnalyticSurface& torus, const gp_Pnt& point) {
    const gp_Vec radial = awayFromAxis(torus.frame, point);
    if (radial.Magnitude() <= gp::Resolution()) return gp_Vec(torus.frame.Direction());
    const gp_Vec toRing = radial.Normalized() * torus.size;
    const gp_Vec to(torus.frame.Location(), point);
    const gp_Vec near = to - toRing, far = to + toRing;
    const bool isNear =
        std::abs(near.Magnitude() - torus.tube) <= std::abs(far.Magnitude() - torus.tube);
    return isNear ? near : far.Reversed();
}

} // namespace

gp_Vec naturalSide(const AnalyticSurface& surface, const gp_Pnt& point) {
    switch (surface.kind) {
    case AnalyticKind::plane:
        return surface.frame.Direction();
    case AnalyticKind::sphere:
        return gp_Vec(surface.frame.Location(), point);
    case AnalyticKind::torus:
        return torusSide(surface, point);
    default:
        return awayFromAxis(surface.frame, point);
    }
}

std::optional<AnalyticSurface> analyticSurface(const Handle(Geom_Surface) & surface,
                                               const ParameterBox& box, bool reversed) {
    auto result = inNewTerms(surface, box, reversed);
    if (!result || result->kind == AnalyticKind::plane) return result;
    gp_Pnt point;
    gp_Vec alongU, alongV;
    surface->D1(0.5 * (box.u1 + box.u2), 0.5 * (box.v1 + box.v2), point, alongU, alongV);
    const bool natural = alongU.Crossed(alongV).Dot(naturalSide(*result, point)) > 0.0;
    if (natural == reversed) std::swap(result->bounds.u1, result->bounds.u2);
    return result;
}

} // namespace server
