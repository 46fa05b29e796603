// SPDX-License-Identifier: Apache-2.0
// A curve is compared with the chord, then with the circle through three of its points.
#include "server/geometry/curverecognition.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

namespace server {
namespace {

using Points = std::vector<gp_Pnt>;

Points sampled(const Adaptor3d_Curve& curve, double first, double last) {
    const int steps = std::max(16, 4 * curve.NbIntervals(GeomAbs_C2));
    Points points;
    for (int i = 0; i <= steps; ++i)
        points.push_back(curve.Value(first + (last - first) * i / steps));
    return points;
}

std::optional<CurvePiece> asLine(const Points& points, double tolerance) {
    const gp_Vec chord(points.front(), points.back());
    const double length = chord.Magnitude();
    if (length <= tolerance) return std::nullopt;
    double reached = 0.0;
    for (const gp_Pnt& p : points) {
        const gp_Vec to(points.front(), p);
        const double along = to.Dot(chord) / length;
        if ((to - chord * (along / length)).Magnitude() > tolerance) return std::nullopt;
        if (along < reached - tolerance || along > length + tolerance) return std::nullopt;
        reached = std::max(reached, along);
    }
    return LinePiece{points.front(), points.back()};
}

/// The circle through the first point and those at one and two thirds, turning with the curve; X
/// points at the first point. It need not be a circle that the other points lie on.
std::optional<ArcPiece> circleThrough(const Points& points) {
    const gp_Pnt& origin = points.front();
    const gp_Vec b(origin, points[points.size() / 3]), c(origin, points[2 * points.size() / 3]);
    const gp_Vec normal = b.Crossed(c);
    const double square = normal.SquareMagnitude();
    if (square <= 1e-20 * b.SquareMagnitude() * c.SquareMagnitude() || square == 0.0) {
        return std::nullopt;
    }
    const gp_Vec toCentre =
        (normal.Crossed(b) * c.SquareMagnitude() + c.Crossed(normal) * b.SquareMagnitude()) /
        (2.0 * square);
    const gp_Pnt centre = origin.Translated(toCentre);
    return ArcPiece{gp_Ax2(centre, gp_Dir(normal), gp_Dir(-toCentre)), toCentre.Magnitude()};
}

/// Sets the end angle by walking along the points; false when one isn't on the circle, or when they
/// don't go steadily round it once at most.
bool followsCircle(const Points& points, double tolerance, ArcPiece& arc) {
    constexpr double turn = 2.0 * std::numbers::pi;
    const gp_Ax2& f = arc.frame;
    for (std::size_t i = 1; i < points.size(); ++i) {
        const gp_Vec to(f.Location(), points[i]);
        const double x = to.Dot(f.XDirection()), y = to.Dot(f.YDirection());
        const double off = std::hypot(std::hypot(x, y) - arc.radius, to.Dot(f.Direction()));
        if (off > tolerance) return false;
        double angle = std::atan2(y, x);
        if (angle < 0.0) angle += turn;
        if (i + 1 == points.size() && points[i].Distance(points[0]) <= tolerance) angle = turn;
        if (angle <= arc.last || angle - arc.last > turn / 4) return false;
        arc.last = angle;
    }
    return true;
}

} // namespace

std::optional<CurvePiece> recognise(const Adaptor3d_Curve& curve, double first, double last,
                                    double tolerance) {
    const Points points = sampled(curve, first, last);
    if (auto line = asLine(points, tolerance)) return line;
    std::optional<ArcPiece> arc = circleThrough(points);
    if (!arc || !followsCircle(points, tolerance, *arc)) return std::nullopt;
    return *arc;
}

} // namespace server
