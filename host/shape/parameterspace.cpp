// SPDX-License-Identifier: Apache-2.0
// Elementary surfaces are asked by formula, splines by a search that is refined by Newton's method.
#include "host/shape/parameterspace.h"

#include <ElSLib.hxx>
#include <gp_Vec.hxx>

#include <algorithm>
#include <cmath>

namespace host {
namespace {

/// Two points nearer than this are the same. In millimetres.
constexpr double same = 1e-7;

/// Of the angle between the two directions, below which a share of either says nothing.
constexpr double leastSquareSine = 1e-4;

double near(double value, double wanted, double period) {
    return period > 0.0 ? value + period * std::round((wanted - value) / period) : value;
}

/// First and second derivatives of half the squared distance.
struct Slope {
    double u, v, uu, uv, vv;

    double determinant() const { return uu * vv - uv * uv; }
    bool isBowl() const { return uu > 0.0 && vv > 0.0 && determinant() > 1e-12 * uu * vv; }

    /// To the lowest place, with a parameter held or not.
    gp_Vec2d step(bool holdsU, bool holdsV) const {
        constexpr double least = 1e-300;
        if (!holdsU && !holdsV && isBowl()) {
            return gp_Vec2d(v * uv - u * vv, u * uv - v * uu) / determinant();
        }
        // Along one parameter only: the one that is free, else the one that moves the point more.
        const bool takesU = !holdsU && (holdsV || uu > vv);
        if (takesU) return uu > least ? gp_Vec2d(-u / uu, 0.0) : gp_Vec2d();
        return !holdsV && vv > least ? gp_Vec2d(0.0, -v / vv) : gp_Vec2d();
    }
};

} // namespace

ParameterSpace::ParameterSpace(const Handle(Geom_Surface) & surface)
    : surface_(surface), adaptor_(surface) {
    const GeomAbs_SurfaceType type = adaptor_.GetType();
    isPlane_ = type == GeomAbs_Plane;
    isElementary_ = type <= GeomAbs_Torus;
    surface->Bounds(least_[0], greatest_[0], least_[1], greatest_[1]);
    if (surface->IsUPeriodic()) periods_[0] = surface->UPeriod();
    if (surface->IsVPeriodic()) periods_[1] = surface->VPeriod();
    if (!isElementary_) measureSpline();
}

void ParameterSpace::measureSpline() {
    search_ = new ShapeAnalysis_Surface(surface_);
    constexpr int steps = 8;
    bool isClosedU = true, isClosedV = true;
    for (int i = 0; i <= steps; ++i) {
        const double u = least_[0] + (greatest_[0] - least_[0]) * i / steps;
        const double v = least_[1] + (greatest_[1] - least_[1]) * i / steps;
        isClosedU &=
            surface_->Value(least_[0], v).Distance(surface_->Value(greatest_[0], v)) < same;
        isClosedV &=
            surface_->Value(u, least_[1]).Distance(surface_->Value(u, greatest_[1])) < same;
        for (int k = 0; k <= steps; ++k) {
            gp_Pnt point;
            gp_Vec alongU, alongV;
            const double across = least_[1] + (greatest_[1] - least_[1]) * k / steps;
            surface_->D1(u, across, point, alongU, alongV);
            greatestSpeed_[0] = std::max(greatestSpeed_[0], alongU.Magnitude());
            greatestSpeed_[1] = std::max(greatestSpeed_[1], alongV.Magnitude());
        }
    }
    closed_ = {isClosedU, isClosedV};
}

gp_Pnt2d ParameterSpace::elementaryFoot(const gp_Pnt& point) const {
    double u = 0.0, v = 0.0;
    switch (adaptor_.GetType()) {
    case GeomAbs_Plane:
        ElSLib::Parameters(adaptor_.Plane(), point, u, v);
        break;
    case GeomAbs_Cylinder:
        ElSLib::Parameters(adaptor_.Cylinder(), point, u, v);
        break;
    case GeomAbs_Cone:
        ElSLib::Parameters(adaptor_.Cone(), point, u, v);
        break;
    case GeomAbs_Sphere:
        ElSLib::Parameters(adaptor_.Sphere(), point, u, v);
        break;
    default:
        ElSLib::Parameters(adaptor_.Torus(), point, u, v);
        break;
    }
    return gp_Pnt2d(u, v);
}

gp_Pnt2d ParameterSpace::foot(const gp_Pnt& point) const {
    return isElementary_ ? elementaryFoot(point) : refined(point, search_->ValueOfUV(point, same));
}

gp_Pnt2d ParameterSpace::foot(const gp_Pnt& point, const gp_Pnt2d& wanted) const {
    if (isElementary_) {
        const gp_Pnt2d uv = elementaryFoot(point);
        return gp_Pnt2d(near(uv.X(), wanted.X(), periods_[0]),
                        near(uv.Y(), wanted.Y(), periods_[1]));
    }
    const gp_Pnt2d uv = refined(point, wanted);
    const double distance = this->point(uv).Distance(point);
    if (distance <= suspicious_) return uv;
    const gp_Pnt2d found = foot(point);
    if (this->point(found).Distance(point) < 0.5 * distance) return found;
    suspicious_ = 2.0 * distance;
    return uv;
}

/// Newton's method on the squared distance, kept between the borders; a parameter that is pushed
/// against its border stays there while the other one goes on.
gp_Pnt2d ParameterSpace::refined(const gp_Pnt& point, gp_Pnt2d uv) const {
    constexpr int mostSteps = 30;
    constexpr double settled = 1e-11;
    for (int i = 0; i < mostSteps; ++i) {
        gp_Pnt at;
        gp_Vec u, v, uu, vv, across;
        adaptor_.D2(uv.X(), uv.Y(), at, u, v, uu, vv, across);
        const gp_Vec off(point, at);
        const Slope slope{off.Dot(u), off.Dot(v), u.SquareMagnitude() + off.Dot(uu),
                          u.Dot(v) + off.Dot(across), v.SquareMagnitude() + off.Dot(vv)};
        const Slope flat{slope.u, slope.v, u.SquareMagnitude(), u.Dot(v), v.SquareMagnitude()};
        const gp_Vec2d step = (slope.isBowl() ? slope : flat)
                                  .step(isPushedOut(uv, 0, slope.u), isPushedOut(uv, 1, slope.v));
        const gp_Pnt2d next(std::clamp(uv.X() + step.X(), least_[0], greatest_[0]),
                            std::clamp(uv.Y() + step.Y(), least_[1], greatest_[1]));
        const double moved = std::abs(next.X() - uv.X()) * u.Magnitude() +
                             std::abs(next.Y() - uv.Y()) * v.Magnitude();
        uv = next;
        if (moved < settled) break;
    }
    return uv;
}

bool ParameterSpace::isPushedOut(const gp_Pnt2d& uv, int direction, double slope) const {
    const double value = uv.Coord(direction + 1);
    return (value <= least(direction) && slope > 0.0) ||
           (value >= greatest(direction) && slope < 0.0);
}

std::optional<gp_Vec2d> ParameterSpace::speed(const gp_Pnt2d& uv, const gp_Vec& along) const {
    gp_Pnt at;
    gp_Vec u, v;
    adaptor_.D1(uv.X(), uv.Y(), at, u, v);
    const double a = u.SquareMagnitude(), b = u.Dot(v), c = v.SquareMagnitude();
    const double determinant = a * c - b * b;
    if (determinant <= leastSquareSine * a * c || a * c <= 0.0) return std::nullopt;
    const double x = u.Dot(along), y = v.Dot(along);
    return gp_Vec2d((x * c - y * b) / determinant, (y * a - x * b) / determinant);
}

bool ParameterSpace::isSingular(const gp_Pnt2d& uv, int direction) const {
    gp_Pnt at;
    std::array<gp_Vec, 2> along;
    adaptor_.D1(uv.X(), uv.Y(), at, along[0], along[1]);
    const auto index = static_cast<std::size_t>(direction);
    const double other = along[1 - index].Magnitude();
    // Radii of elementary surfaces are lengths, so that angles compare by what a turn moves.
    const double usual = isElementary_ ? std::max(other, 1e-2) : greatestSpeed_[index];
    return along[index].Magnitude() < 1e-5 * usual;
}

} // namespace host
