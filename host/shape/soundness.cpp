// SPDX-License-Identifier: Apache-2.0
// One function a kind; each gives the first fault that it finds.
#include "host/shape/soundness.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <span>

namespace host {
namespace {

constexpr int greatestDegree = 25;
constexpr double shortestDirection = 1e-12;
constexpr double leastSine = 1e-9;
constexpr double turn = 2.0 * std::numbers::pi;

bool isLength(double value) { return std::isfinite(value) && std::abs(value) <= greatestLengthM; }

bool isPoint(const ZelVector3& p) { return isLength(p.x) && isLength(p.y) && isLength(p.z); }

bool isRadius(double value) { return isLength(value) && value >= leastRadiusM; }

double norm(const ZelVector3& v) { return std::sqrt(dot(v, v)); }

bool isDirection(const ZelVector3& v) { return isPoint(v) && norm(v) >= shortestDirection; }

bool areIndependent(const ZelVector3& a, const ZelVector3& b) {
    return norm(cross(a * (1.0 / norm(a)), b * (1.0 / norm(b)))) >= leastSine;
}

std::string faultOfFrame(const ZelVector3& origin, const ZelVector3& normal,
                         const ZelVector3& direction) {
    if (!isPoint(origin)) return "its origin is no usable point";
    if (!isDirection(normal)) return "its normal has no direction";
    if (!isDirection(direction)) return "its direction in the plane has no direction";
    if (!areIndependent(normal, direction)) return "its two directions are parallel";
    return {};
}

std::string faultOfAngles(double start, double end) {
    if (!std::isfinite(start) || !std::isfinite(end) || std::abs(start) > 1e3 * turn) {
        return "its angles are no usable numbers";
    }
    if (end <= start) return "its end angle is not above its start angle";
    if (end - start > turn * (1.0 + 1e-9)) return "it runs round more than once";
    return {};
}

struct CurveFault {
    std::string operator()(const LineRecord& line) const {
        if (!isPoint(line.start) || !isPoint(line.end)) return "an end is no usable point";
        if (norm(line.end - line.start) < leastRadiusM) return "its ends are the same point";
        return {};
    }
    std::string operator()(const ArcRecord& arc) const {
        if (auto fault = faultOfFrame(arc.center, arc.normal, arc.direction); !fault.empty()) {
            return fault;
        }
        if (!isRadius(arc.radius)) return "its radius is not a positive length";
        return faultOfAngles(arc.startAngle, arc.endAngle);
    }
    std::string operator()(const EllipseRecord& ellipse) const {
        auto fault = faultOfFrame(ellipse.center, ellipse.normal, ellipse.direction);
        if (!fault.empty()) return fault;
        if (!isRadius(ellipse.bigHalfAxis) || !isRadius(ellipse.littleHalfAxis)) {
            return "a half axis is not a positive length";
        }
        if (ellipse.littleHalfAxis > ellipse.bigHalfAxis * (1.0 + 1e-9)) {
            return "its little half axis is the bigger one";
        }
        return faultOfAngles(ellipse.startAngle, ellipse.endAngle);
    }
};

std::string faultOfRanges(const FrameRecord& frame) {
    for (const double bound :
         {frame.uRange[0], frame.uRange[1], frame.vRange[0], frame.vRange[1]}) {
        if (!isLength(bound)) return "its ranges are no usable numbers";
    }
    return {};
}

std::string faultOfFrame(const FrameRecord& frame) {
    auto fault = faultOfFrame(frame.origin, frame.normal, frame.uDirection);
    return fault.empty() ? faultOfRanges(frame) : fault;
}

/// Flat knots: degree + 1 more than poles, never falling, no more than degree + 1 alike, and with
/// an extent between the ends of the valid range.
std::string faultOfKnots(std::span<const double> knots, std::int32_t degree, std::int32_t poles) {
    if (degree < 1 || degree > greatestDegree) return "its degree is out of bounds";
    if (poles <= degree) return "it has fewer control points than its degree asks for";
    if (knots.size() != static_cast<std::size_t>(poles) + degree + 1) {
        return "the number of its knots does not fit its degree and control points";
    }
    int alike = 0;
    for (std::size_t i = 0; i < knots.size(); ++i) {
        if (!std::isfinite(knots[i]) || std::abs(knots[i]) > 1e12) {
            return "a knot is no usable number";
        }
        if (i > 0 && knots[i] < knots[i - 1]) return "its knots descend";
        alike = i > 0 && knots[i] == knots[i - 1] ? alike + 1 : 1;
        if (alike > degree + 1) return "a knot is repeated too often";
    }
    const double first = knots[static_cast<std::size_t>(degree)];
    const double last = knots[static_cast<std::size_t>(poles)];
    if (last - first <= 1e-12 * std::max(1.0, std::abs(last))) return "its knots have no extent";
    return {};
}

std::string faultOfNet(const NurbSurfaceRecord& surface) {
    const auto count = static_cast<std::int64_t>(surface.rows) * surface.columns;
    if (static_cast<std::int64_t>(surface.points.size()) != count) {
        return "control points are missing";
    }
    if (!std::all_of(surface.points.begin(), surface.points.end(), isPoint)) {
        return "a control point is no usable point";
    }
    if (!surface.rational) return {};
    if (surface.weights.size() != surface.points.size()) return "weights are missing";
    const auto [least, greatest] =
        std::minmax_element(surface.weights.begin(), surface.weights.end());
    const auto isWeight = [](double w) { return std::isfinite(w) && w > 0.0; };
    if (!std::all_of(surface.weights.begin(), surface.weights.end(), isWeight)) {
        return "a weight is not positive";
    }
    if (*greatest / *least > 1e9) return "its weights are too far apart";
    return {};
}

struct SurfaceFault {
    std::string operator()(const PlaneRecord& plane) const { return faultOfFrame(plane); }
    template <class Round> std::string operator()(const Round& surface) const {
        auto fault = faultOfFrame(surface);
        if (!fault.empty()) return fault;
        return isRadius(surface.radius) ? "" : "its radius is not a positive length";
    }
    std::string operator()(const ConeRecord& cone) const {
        if (auto fault = faultOfFrame(cone); !fault.empty()) return fault;
        constexpr double least = 1e-9;
        const bool isUsable =
            cone.halfAngle >= least && cone.halfAngle <= std::numbers::pi / 2.0 - least;
        return isUsable ? "" : "its half angle is not between 0 and a right angle";
    }
    std::string operator()(const TorusRecord& torus) const {
        if (auto fault = faultOfFrame(torus); !fault.empty()) return fault;
        const bool areUsable = isRadius(torus.majorRadius) && isRadius(torus.minorRadius);
        return areUsable ? "" : "a radius is not a positive length";
    }
    std::string operator()(const NurbSurfaceRecord& surface) const {
        for (const auto* knots : {&surface.knotsU, &surface.knotsV}) {
            const bool isU = knots == &surface.knotsU;
            auto fault = faultOfKnots(*knots, isU ? surface.degreeU : surface.degreeV,
                                      isU ? surface.rows : surface.columns);
            if (!fault.empty()) return fault;
        }
        return faultOfNet(surface);
    }
};

} // namespace

std::string faultOf(const CurveRecord& curve) { return std::visit(CurveFault{}, curve); }

std::string faultOf(const SurfaceRecord& surface) { return std::visit(SurfaceFault{}, surface); }

} // namespace host
