// SPDX-License-Identifier: Apache-2.0
// Lines, arcs and ellipses: points, tangents, boxes, distances.
#include "server/geometry/curvepiece.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace server {
namespace {

using std::numbers::pi;

gp_XYZ onFrame(const gp_Ax2& frame, double x, double y) {
    return frame.XDirection().XYZ() * x + frame.YDirection().XYZ() * y;
}

struct HalfAxes {
    const gp_Ax2& frame;
    double a, b, first, last;
};
HalfAxes halfAxes(const ArcPiece& p) { return {p.frame, p.radius, p.radius, p.first, p.last}; }
HalfAxes halfAxes(const EllipsePiece& p) { return {p.frame, p.major, p.minor, p.first, p.last}; }

gp_Pnt pointOn(const HalfAxes& c, double t) {
    return c.frame.Location().XYZ() + onFrame(c.frame, c.a * std::cos(t), c.b * std::sin(t));
}

gp_Pnt pointOn(const LinePiece& p, double t) {
    const double length = p.start.Distance(p.end);
    if (length == 0.0) return p.start;
    return p.start.XYZ() + (p.end.XYZ() - p.start.XYZ()) * (t / length);
}

/// The smallest t + k * period that isn't below `from`.
double broughtAbove(double t, double from, double period) {
    return t + std::ceil((from - t) / period) * period;
}

/// The extremes of an ellipse in each axis lie where the derivative of that coordinate is 0.
Bnd_Box conicBox(const HalfAxes& c) {
    Bnd_Box box;
    box.Add(pointOn(c, c.first));
    box.Add(pointOn(c, c.last));
    for (int axis = 1; axis <= 3; ++axis) {
        const double along = c.a * c.frame.XDirection().Coord(axis);
        const double across = c.b * c.frame.YDirection().Coord(axis);
        if (along == 0.0 && across == 0.0) continue;
        const double extreme = std::atan2(across, along);
        for (double t = broughtAbove(extreme, c.first, pi); t < c.last; t += pi) {
            box.Add(pointOn(c, t));
        }
    }
    return box;
}

gp_Vec offsetToLine(const LinePiece& piece, const gp_Pnt& point) {
    const gp_Vec along(piece.start, piece.end), to(point, piece.start);
    const double square = along.SquareMagnitude();
    const double share = square > 0.0 ? std::clamp(-to.Dot(along) / square, 0.0, 1.0) : 0.0;
    return to + along * share;
}

gp_Vec offsetToArc(const ArcPiece& piece, const gp_Pnt& point) {
    const gp_Vec to(piece.frame.Location(), point);
    const double x = to.Dot(piece.frame.XDirection()), y = to.Dot(piece.frame.YDirection());
    const double angle = broughtAbove(std::atan2(y, x), piece.first, 2.0 * pi);
    if (angle <= piece.last) {
        const double stretch = piece.radius / std::hypot(x, y);
        return gp_Vec(onFrame(piece.frame, x * stretch, y * stretch)) - to;
    }
    const gp_Vec toStart(point, startOf(piece)), toEnd(point, endOf(piece));
    return toStart.SquareMagnitude() < toEnd.SquareMagnitude() ? toStart : toEnd;
}

} // namespace

double firstParameter(const CurvePiece& piece) {
    if (std::holds_alternative<LinePiece>(piece)) return 0.0;
    const auto* arc = std::get_if<ArcPiece>(&piece);
    return arc ? arc->first : std::get<EllipsePiece>(piece).first;
}

double lastParameter(const CurvePiece& piece) {
    if (const auto* line = std::get_if<LinePiece>(&piece)) return line->start.Distance(line->end);
    const auto* arc = std::get_if<ArcPiece>(&piece);
    return arc ? arc->last : std::get<EllipsePiece>(piece).last;
}

gp_Pnt pointAt(const CurvePiece& piece, double parameter) {
    if (const auto* line = std::get_if<LinePiece>(&piece)) return pointOn(*line, parameter);
    const auto* arc = std::get_if<ArcPiece>(&piece);
    return pointOn(arc ? halfAxes(*arc) : halfAxes(std::get<EllipsePiece>(piece)), parameter);
}

gp_Pnt startOf(const CurvePiece& piece) { return pointAt(piece, firstParameter(piece)); }

gp_Pnt endOf(const CurvePiece& piece) {
    const auto* line = std::get_if<LinePiece>(&piece);
    return line ? line->end : pointAt(piece, lastParameter(piece));
}

gp_Vec tangentAt(const CurvePiece& piece, double parameter) {
    if (const auto* line = std::get_if<LinePiece>(&piece)) {
        return gp_Vec(line->start, line->end).Normalized();
    }
    const auto* arc = std::get_if<ArcPiece>(&piece);
    const HalfAxes c = arc ? halfAxes(*arc) : halfAxes(std::get<EllipsePiece>(piece));
    return gp_Vec(onFrame(c.frame, -c.a * std::sin(parameter), c.b * std::cos(parameter)))
        .Normalized();
}

Bnd_Box boxOf(const CurvePiece& piece) {
    const auto* line = std::get_if<LinePiece>(&piece);
    if (!line) {
        const auto* arc = std::get_if<ArcPiece>(&piece);
        return conicBox(arc ? halfAxes(*arc) : halfAxes(std::get<EllipsePiece>(piece)));
    }
    Bnd_Box box;
    box.Add(line->start);
    box.Add(line->end);
    return box;
}

gp_Vec offsetTo(const CurvePiece& piece, const gp_Pnt& point) {
    if (const auto* line = std::get_if<LinePiece>(&piece)) return offsetToLine(*line, point);
    return offsetToArc(std::get<ArcPiece>(piece), point);
}

} // namespace server
