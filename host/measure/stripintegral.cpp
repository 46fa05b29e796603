// SPDX-License-Identifier: Apache-2.0
// One function for each way to integrate.
#include "host/measure/stripintegral.h"

#include <TColStd_Array1OfReal.hxx>
#include <gp_Ax3.hxx>
#include <gp_Cone.hxx>
#include <gp_Cylinder.hxx>
#include <gp_Sphere.hxx>
#include <gp_Torus.hxx>
#include <gp_Vec.hxx>

#include <algorithm>
#include <cmath>

namespace host {
namespace {

constexpr double relativeTolerance = 1e-8;
constexpr std::int64_t mostEvaluations = 50'000'000;

/// A circle's radius and its height on the axis, with their derivatives by v.
struct Profile {
    gp_Ax3 frame;
    double radius = 0.0, height = 0.0, radiusSpeed = 0.0, heightSpeed = 0.0;
};

bool isRound(GeomAbs_SurfaceType type) {
    return type == GeomAbs_Cylinder || type == GeomAbs_Cone || type == GeomAbs_Sphere ||
           type == GeomAbs_Torus;
}

Profile profileOf(const BRepAdaptor_Surface& surface, double v) {
    switch (surface.GetType()) {
    case GeomAbs_Cylinder: {
        const gp_Cylinder cylinder = surface.Cylinder();
        return {cylinder.Position(), cylinder.Radius(), v, 0.0, 1.0};
    }
    case GeomAbs_Cone: {
        const gp_Cone cone = surface.Cone();
        const double sine = std::sin(cone.SemiAngle()), cosine = std::cos(cone.SemiAngle());
        return {cone.Position(), cone.RefRadius() + v * sine, v * cosine, sine, cosine};
    }
    case GeomAbs_Sphere: {
        const gp_Sphere sphere = surface.Sphere();
        const double r = sphere.Radius(), sine = std::sin(v), cosine = std::cos(v);
        return {sphere.Position(), r * cosine, r * sine, -r * sine, r * cosine};
    }
    default: {
        const gp_Torus torus = surface.Torus();
        const double r = torus.MinorRadius(), sine = std::sin(v), cosine = std::cos(v);
        return {torus.Position(), torus.MajorRadius() + r * cosine, r * sine, -r * sine,
                r * cosine};
    }
    }
}

} // namespace

StripIntegral::StripIntegral(const BRepAdaptor_Surface& surface, const gp_Pnt& reference)
    : surface_(surface), reference_(reference),
      start_(0.5 * (surface.FirstUParameter() + surface.LastUParameter())),
      budget_(mostEvaluations) {
    TColStd_Array1OfReal knots(1, surface.NbUIntervals(GeomAbs_CN) + 1);
    surface.UIntervals(knots, GeomAbs_CN);
    knots_.assign(knots.begin(), knots.end());
    settleTolerances();
}

void StripIntegral::settleTolerances() {
    constexpr int steps = 6;
    const double u1 = surface_.FirstUParameter(), u2 = surface_.LastUParameter();
    const double v1 = surface_.FirstVParameter(), v2 = surface_.LastVParameter();
    double area = 0.0, distance = 0.0;
    for (int i = 0; i < steps; ++i) {
        for (int k = 0; k < steps; ++k) {
            const double u = u1 + (u2 - u1) * (i + 0.5) / steps;
            const double v = v1 + (v2 - v1) * (k + 0.5) / steps;
            area += density(u, v).area / (steps * steps);
            distance = std::max(distance, reference_.Distance(surface_.Value(u, v)));
        }
    }
    const Measures mean = Measures{area, area * distance / 3.0} * relativeTolerance;
    stripTolerance_ = mean * (u2 - u1);
    faceTolerance_ = stripTolerance_ * (v2 - v1);
}

Measures StripIntegral::density(double u, double v) const {
    budget_.spendOne();
    gp_Pnt point;
    gp_Vec alongU, alongV;
    surface_.D1(u, v, point, alongU, alongV);
    const gp_Vec normal = alongU.Crossed(alongV);
    return {normal.Magnitude(), gp_Vec(reference_, point).Dot(normal) / 3.0};
}

Measures StripIntegral::to(double u, double v) const {
    if (surface_.GetType() == GeomAbs_Plane) return ofPlane(u, v);
    return isRound(surface_.GetType()) ? ofRevolution(u, v) : byQuadrature(u, v);
}

Measures StripIntegral::ofPlane(double u, double v) const { return density(u, v) * (u - start_); }

/// With the frame O, X, Y, Z, the radius r(v), the height h(v), D = O - R and s = 1 in a
/// right-handed frame, -1 in a left-handed one:
///     P = O + r (cos u X + sin u Y) + h Z
///     N = s r (h' (cos u X + sin u Y) - r' Z)
///     (P - R) . N = s r (h' (D.X cos u + D.Y sin u + r) - r' (D.Z + h))
Measures StripIntegral::ofRevolution(double u, double v) const {
    const Profile p = profileOf(surface_, v);
    const gp_Vec offset(reference_, p.frame.Location());
    const double turn = u - start_;
    const double alongX = offset.Dot(p.frame.XDirection()) * (std::sin(u) - std::sin(start_));
    const double alongY = offset.Dot(p.frame.YDirection()) * (std::cos(start_) - std::cos(u));
    const double alongZ = (offset.Dot(p.frame.Direction()) + p.height) * turn;
    const double sign = p.frame.Direct() ? 1.0 : -1.0;
    return {std::abs(p.radius) * std::hypot(p.radiusSpeed, p.heightSpeed) * turn,
            sign * p.radius / 3.0 *
                (p.heightSpeed * (alongX + alongY + p.radius * turn) - p.radiusSpeed * alongZ)};
}

Measures StripIntegral::byQuadrature(double u, double v) const {
    Measures sum;
    const double low = std::min(u, start_), high = std::max(u, start_);
    double from = low;
    const auto f = [&](double at) { return density(at, v); };
    for (const double knot : knots_) {
        if (knot <= from || knot >= high) continue;
        sum += quadrature(shortRule, f, from, knot, stripTolerance_);
        from = knot;
    }
    sum += quadrature(shortRule, f, from, high, stripTolerance_);
    return sum * (u < start_ ? -1.0 : 1.0);
}

} // namespace host
