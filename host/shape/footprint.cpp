// SPDX-License-Identifier: Apache-2.0
// Feet of points on the edge, taken from its middle outwards so that each is near the one before,
// joined by cubics whose number grows until they keep to the surface's feet.
#include "host/shape/footprint.h"

#include <Geom2d_BSplineCurve.hxx>
#include <Geom2d_Line.hxx>
#include <Geom_BSplineCurve.hxx>
#include <TColStd_Array1OfInteger.hxx>
#include <TColStd_Array1OfReal.hxx>
#include <TColgp_Array1OfPnt2d.hxx>
#include <gp_Vec.hxx>

#include <algorithm>
#include <cmath>
#include <optional>
#include <vector>

namespace host {
namespace {

constexpr double straightToleranceMm = 2e-8;
constexpr double cubicToleranceMm = 2e-8;
/// Of its distance from the surface: how exactly an edge that is off is followed.
constexpr double shareOfOffset = 0.01;
constexpr std::size_t greatestNodeCount = 400;
constexpr int firstIntervals = 12;

/// An edge this near to the border of a surface lies on it; on a closed surface, where there is
/// nothing behind the border, already at the second; a seam at this share of the range.
constexpr double borderToleranceMm = 1e-6;
constexpr double closedBorderToleranceMm = 2e-3;
constexpr double seamShare = 0.02;

using Node = Trace::Node;

/// Traces that stray further are compared with the straight line.
constexpr double suspiciousMm = 1e-3;

Trace straightBetween(Node a, Node b) {
    a.speed = b.speed = gp_Vec2d(a.uv, b.uv) / (b.parameter - a.parameter);
    return {{a, b}, true};
}

class Tracer {
public:
    Tracer(const ParameterSpace& space, const BoundedCurve& edge, bool isSeam)
        : space_(space), edge_(edge), isSeam_(isSeam) {}

    Trace trace(bool along) {
        takeFeet();
        settleEnds();
        settleBorders(along);
        if (isStraight()) return straightBetween(trace_.nodes.front(), trace_.nodes.back());
        findSpeeds();
        if (space_.isPlane()) return std::move(trace_);
        tolerance_ = std::max(cubicToleranceMm, shareOfOffset * greatestOffset());
        refine();
        return std::move(trace_);
    }

private:
    gp_Pnt point(double t) const { return edge_.curve->Value(t); }

    /// Even steps, and the places where a spline's pieces meet.
    std::vector<double> parameters() const {
        std::vector<double> result;
        const double extent = edge_.last - edge_.first;
        for (int i = 0; i <= firstIntervals; ++i) {
            result.push_back(edge_.first + extent * i / firstIntervals);
        }
        result.back() = edge_.last;
        if (const auto spline = Handle(Geom_BSplineCurve)::DownCast(edge_.curve);
            !spline.IsNull()) {
            for (int i = 2; i < spline->NbKnots(); ++i) result.push_back(spline->Knot(i));
        }
        std::sort(result.begin(), result.end());
        const auto close = [extent](double a, double b) { return b - a < 1e-6 * extent; };
        result.erase(std::unique(result.begin(), result.end() - 1, close), result.end() - 1);
        return result;
    }

    void takeFeet() {
        const std::vector<double> ts = parameters();
        trace_.nodes.resize(ts.size());
        const std::size_t middle = ts.size() / 2;
        trace_.nodes[middle] = {ts[middle], space_.foot(point(ts[middle])), {}};
        for (std::size_t i = middle + 1; i < ts.size(); ++i) takeFoot(i, ts[i], i - 1);
        for (std::size_t i = middle; i-- > 0;) takeFoot(i, ts[i], i + 1);
    }
    void takeFoot(std::size_t i, double t, std::size_t from) {
        trace_.nodes[i] = {t, space_.foot(point(t), trace_.nodes[from].uv), {}};
    }

    /// At a pole one parameter is anything: there it is what the edge comes in with.
    void settleEnds() {
        settleEnd(trace_.nodes.front(), trace_.nodes[1]);
        settleEnd(trace_.nodes.back(), trace_.nodes[trace_.nodes.size() - 2]);
    }
    void settleEnd(Node& end, const Node& inner) const {
        for (int direction = 0; direction < 2; ++direction) {
            if (!space_.isSingular(end.uv, direction)) continue;
            const double step = 1e-3 * (inner.parameter - end.parameter);
            const gp_Pnt2d far = space_.foot(point(end.parameter + 2.0 * step), inner.uv);
            const gp_Pnt2d close = space_.foot(point(end.parameter + step), far);
            const int coordinate = direction + 1;
            end.uv.SetCoord(coordinate, 2.0 * close.Coord(coordinate) - far.Coord(coordinate));
        }
    }

    /// An edge along a border of the surface lies exactly on it. Where the two borders coincide, it
    /// lies on the one that has the material on the edge's left.
    void settleBorders(bool along) {
        for (int direction = 0; direction < 2; ++direction) {
            if (!space_.isBounded(direction) || !liesOnBorder(direction)) continue;
            const double border = space_.isClosed(direction) ? borderOfSide(direction, along)
                                                             : nearestBorder(direction, middle());
            for (Node& node : trace_.nodes) node.uv.SetCoord(direction + 1, border);
            border_ = {direction + 1, border};
        }
    }
    double borderOfSide(int direction, bool along) const {
        const int other = 2 - direction;
        const double change = trace_.end().Coord(other) - trace_.start().Coord(other);
        const bool rises = (change > 0.0) == along;
        return rises == (direction == 0) ? space_.greatest(direction) : space_.least(direction);
    }
    const Node& middle() const { return trace_.nodes[trace_.nodes.size() / 2]; }
    double nearestBorder(int direction, const Node& node) const {
        const double low = space_.least(direction), high = space_.greatest(direction);
        const double value = node.uv.Coord(direction + 1);
        return value - low < high - value ? low : high;
    }
    /// A seam need not lie exactly where the surface closes, but where else should it be?
    bool liesOnBorder(int direction) const {
        const bool isClosed = space_.isClosed(direction);
        const double range = space_.greatest(direction) - space_.least(direction);
        return std::all_of(trace_.nodes.begin(), trace_.nodes.end(), [&](const Node& node) {
            gp_Pnt2d border = node.uv;
            border.SetCoord(direction + 1, nearestBorder(direction, isClosed ? node : middle()));
            const double off = node.uv.Distance(border);
            if (isClosed && isSeam_) return off <= seamShare * range;
            return space_.point(node.uv).Distance(space_.point(border)) <=
                   (isClosed ? closedBorderToleranceMm : borderToleranceMm);
        });
    }

    gp_Pnt2d foot(double t, const gp_Pnt2d& near) const {
        gp_Pnt2d uv = space_.foot(point(t), near);
        if (border_.coordinate) uv.SetCoord(border_.coordinate, border_.value);
        return uv;
    }

    bool isStraight() const {
        const Node& a = trace_.nodes.front();
        const Node& b = trace_.nodes.back();
        const gp_Vec2d across(a.uv, b.uv);
        return std::all_of(trace_.nodes.begin(), trace_.nodes.end(), [&](const Node& node) {
            const double share = (node.parameter - a.parameter) / (b.parameter - a.parameter);
            const gp_Pnt2d uv = a.uv.Translated(across * share);
            return space_.point(uv).Distance(space_.point(node.uv)) <= straightToleranceMm;
        });
    }

    void findSpeeds() {
        const std::size_t last = trace_.nodes.size() - 1;
        for (std::size_t i = 0; i <= last; ++i) {
            const Node& before = trace_.nodes[i == 0 ? 0 : i - 1];
            const Node& after = trace_.nodes[i == last ? last : i + 1];
            const gp_Vec2d secant =
                gp_Vec2d(before.uv, after.uv) / (after.parameter - before.parameter);
            trace_.nodes[i].speed = speedAt(trace_.nodes[i], secant);
        }
    }
    gp_Vec2d speedAt(const Node& node, const gp_Vec2d& secant) const {
        if (space_.isSingular(node.uv, 0) || space_.isSingular(node.uv, 1)) return secant;
        gp_Pnt ignored;
        gp_Vec along;
        edge_.curve->D1(node.parameter, ignored, along);
        gp_Vec2d speed = space_.speed(node.uv, along).value_or(secant);
        if (border_.coordinate == 1) speed.SetX(0.0);
        if (border_.coordinate == 2) speed.SetY(0.0);
        return speed;
    }

    double greatestOffset() const {
        double worst = 0.0;
        for (const Node& node : trace_.nodes) {
            worst = std::max(worst, space_.point(node.uv).Distance(point(node.parameter)));
        }
        return worst;
    }

    static gp_Pnt2d cubicAt(const Node& a, const Node& b, double share) {
        const double h = b.parameter - a.parameter, s = share, r = 1.0 - share;
        const gp_XY value = a.uv.XY() * (r * r * (1.0 + 2.0 * s)) +
                            b.uv.XY() * (s * s * (1.0 + 2.0 * r)) + a.speed.XY() * (h * s * r * r) -
                            b.speed.XY() * (h * s * s * r);
        return gp_Pnt2d(value);
    }

    /// Halves the stretches that are off, all of them in turn, so that none is left behind when
    /// there are nodes enough.
    void refine() {
        std::vector<bool> isOpen(trace_.nodes.size() - 1, true);
        while (trace_.nodes.size() < greatestNodeCount &&
               std::find(isOpen.begin(), isOpen.end(), true) != isOpen.end()) {
            std::vector<Node> nodes;
            std::vector<bool> isOpenThen;
            for (std::size_t i = 0; i < isOpen.size(); ++i) {
                nodes.push_back(trace_.nodes[i]);
                const auto middle =
                    isOpen[i] ? nodeBetween(trace_.nodes[i], trace_.nodes[i + 1]) : std::nullopt;
                isOpenThen.push_back(middle.has_value());
                if (!middle) continue;
                nodes.push_back(*middle);
                isOpenThen.push_back(true);
            }
            nodes.push_back(trace_.nodes.back());
            trace_.nodes = std::move(nodes);
            isOpen = std::move(isOpenThen);
        }
    }

    /// The node that has to come between the two; none when the cubic between them will do.
    std::optional<Node> nodeBetween(const Node& a, const Node& b) const {
        if (b.parameter - a.parameter < 1e-5 * (edge_.last - edge_.first)) return std::nullopt;
        const auto isOff = [&](double share) {
            const gp_Pnt2d cubic = cubicAt(a, b, share);
            const double t = a.parameter + share * (b.parameter - a.parameter);
            return space_.point(cubic).Distance(space_.point(foot(t, cubic))) > tolerance_;
        };
        if (!isOff(0.5) && !isOff(0.2)) return std::nullopt;
        Node middle{0.5 * (a.parameter + b.parameter), {}, {}};
        middle.uv = foot(middle.parameter, cubicAt(a, b, 0.5));
        middle.speed = speedAt(middle, gp_Vec2d(a.uv, b.uv) / (b.parameter - a.parameter));
        return middle;
    }

    /// The coordinate (1 or 2) that a border fixes; 0 for none.
    struct Border {
        int coordinate = 0;
        double value = 0.0;
    };

    const ParameterSpace& space_;
    const BoundedCurve& edge_;
    const bool isSeam_;
    double tolerance_ = cubicToleranceMm;
    Trace trace_;
    Border border_;
};

/// A line where its parameter, a length, is that of the edge; a spline of degree 1 elsewhere.
Handle(Geom2d_Curve) straightCurve(const Node& first, const Node& last) {
    const double extent = last.parameter - first.parameter;
    const gp_Vec2d across(first.uv, last.uv);
    if (std::abs(across.Magnitude() - extent) <= 1e-11 * (1.0 + extent)) {
        const gp_Dir2d direction(across);
        return new Geom2d_Line(first.uv.Translated(gp_Vec2d(direction) * -first.parameter),
                               direction);
    }
    TColgp_Array1OfPnt2d poles(1, 2);
    TColStd_Array1OfReal knots(1, 2);
    TColStd_Array1OfInteger counts(1, 2);
    poles(1) = first.uv;
    poles(2) = last.uv;
    knots(1) = first.parameter;
    knots(2) = last.parameter;
    counts.Init(2);
    return new Geom2d_BSplineCurve(poles, knots, counts, 1);
}

} // namespace

void Trace::move(const gp_Vec2d& by) {
    for (Node& node : nodes) node.uv.Translate(by);
}

Handle(Geom2d_Curve) Trace::curve() const {
    if (isStraight) return straightCurve(nodes.front(), nodes.back());
    const int count = static_cast<int>(nodes.size());
    TColgp_Array1OfPnt2d poles(1, 2 * count);
    TColStd_Array1OfReal knots(1, count);
    TColStd_Array1OfInteger counts(1, count);
    for (int i = 0; i < count; ++i) {
        const Node& node = nodes[static_cast<std::size_t>(i)];
        const auto third = [&](int other) {
            return (nodes[static_cast<std::size_t>(other)].parameter - node.parameter) / 3.0;
        };
        poles(2 * i + 1) = i == 0 ? node.uv : node.uv.Translated(node.speed * third(i - 1));
        poles(2 * i + 2) = i == count - 1 ? node.uv : node.uv.Translated(node.speed * third(i + 1));
        knots(i + 1) = node.parameter;
        counts(i + 1) = i == 0 || i == count - 1 ? 4 : 2;
    }
    return new Geom2d_BSplineCurve(poles, knots, counts, 3);
}

Trace traceOf(const ParameterSpace& space, const BoundedCurve& edge, const LoopSide& side) {
    Trace trace = Tracer(space, edge, side.isSeam).trace(side.along);
    if (trace.isStraight || space.isPlane()) return trace;
    const double deviation = deviationOf(space, edge, trace.curve());
    if (deviation <= suspiciousMm) return trace;
    // Short edges along a fold of the surface have no feet to speak of.
    Trace straight = straightBetween(trace.nodes.front(), trace.nodes.back());
    return deviationOf(space, edge, straight.curve()) < deviation ? straight : trace;
}

double deviationOf(const ParameterSpace& space, const BoundedCurve& edge,
                   const Handle(Geom2d_Curve) & curve) {
    constexpr int steps = 44;
    double worst = 0.0;
    for (int i = 0; i <= steps; ++i) {
        const double t = edge.first + (edge.last - edge.first) * i / steps;
        const gp_Pnt point = edge.curve->Value(t);
        const gp_Pnt2d uv = space.isPlane() ? space.foot(point) : curve->Value(t);
        worst = std::max(worst, space.point(uv).Distance(point));
    }
    return worst;
}

} // namespace host
