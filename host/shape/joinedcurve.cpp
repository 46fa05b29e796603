// SPDX-License-Identifier: Apache-2.0
// A cubic through the points that lie on the original, with its tangents there.
//
// A biarc is a pair of arcs whose legs (from an end to the meeting point of the end's tangent with
// the next) are of equal length. Its ends lie on the original curve; the place where the two arcs
// meet need not. So pairs with equal legs are taken as one stretch each, anything else piece by
// piece.
#include "host/shape/joinedcurve.h"

#include <Geom_BSplineCurve.hxx>
#include <Geom_Circle.hxx>
#include <Geom_Line.hxx>
#include <TColStd_Array1OfInteger.hxx>
#include <TColStd_Array1OfReal.hxx>
#include <TColgp_Array1OfPnt.hxx>
#include <gp_Circ.hxx>
#include <gp_Lin.hxx>
#include <gp_Vec.hxx>

#include <algorithm>
#include <cmath>
#include <limits>

namespace host {
namespace {

gp_Vec tangent(const BoundedCurve& piece, double parameter) {
    gp_Pnt point;
    gp_Vec along;
    piece.curve->D1(parameter, point, along);
    return along.Normalized();
}

double radiusOf(const BoundedCurve& piece) {
    const auto circle = Handle(Geom_Circle)::DownCast(piece.curve);
    return circle.IsNull() ? 0.0 : circle->Radius();
}

double lengthOf(const BoundedCurve& piece) {
    const double radius = radiusOf(piece);
    return (piece.last - piece.first) * (radius > 0.0 ? radius : 1.0);
}

double legOf(const BoundedCurve& piece) {
    const double radius = radiusOf(piece);
    const double half = 0.5 * (piece.last - piece.first);
    return radius > 0.0 ? radius * std::tan(half) : half;
}

bool isBiarc(const BoundedCurve& head, const BoundedCurve& tail) {
    const double a = legOf(head), b = legOf(tail);
    return a > 0.0 && std::abs(a - b) <= 1e-5 * std::max(a, b);
}

struct Node {
    gp_Pnt point;
    gp_Vec before, after; ///< tangents of the stretches that end and begin here
    double length = 0.0;  ///< along the chain
};

std::vector<Node> nodesOf(const std::vector<BoundedCurve>& pieces) {
    std::vector<Node> nodes;
    const auto& front = pieces.front();
    nodes.push_back({front.start(), tangent(front, front.first), tangent(front, front.first), 0.0});
    for (std::size_t i = 0; i < pieces.size();) {
        const bool isPair = i + 1 < pieces.size() && isBiarc(pieces[i], pieces[i + 1]);
        const std::size_t last = isPair ? i + 1 : i;
        nodes.back().after = tangent(pieces[i], pieces[i].first);
        double length = nodes.back().length;
        for (std::size_t k = i; k <= last; ++k) length += lengthOf(pieces[k]);
        const gp_Vec end = tangent(pieces[last], pieces[last].last);
        nodes.push_back({pieces[last].end(), end, end, length});
        i = last + 1;
    }
    return nodes;
}

/// Cubic stretches end to end; where the tangents agree the inner knots are double only.
Handle(Geom_BSplineCurve) cubicThrough(const std::vector<Node>& nodes) {
    const int stretches = static_cast<int>(nodes.size()) - 1;
    TColgp_Array1OfPnt poles(1, 3 * stretches + 1);
    TColStd_Array1OfReal knots(1, stretches + 1);
    TColStd_Array1OfInteger counts(1, stretches + 1);
    for (int i = 0; i < stretches; ++i) {
        const Node& a = nodes[static_cast<std::size_t>(i)];
        const Node& b = nodes[static_cast<std::size_t>(i) + 1];
        const double third = (b.length - a.length) / 3.0;
        poles(3 * i + 1) = a.point;
        poles(3 * i + 2) = a.point.Translated(a.after * third);
        poles(3 * i + 3) = b.point.Translated(b.before * -third);
        knots(i + 1) = a.length;
        counts(i + 1) = i == 0 ? 4 : 3;
    }
    poles(3 * stretches + 1) = nodes.back().point;
    knots(stretches + 1) = nodes.back().length;
    counts(stretches + 1) = 4;
    Handle(Geom_BSplineCurve) curve = new Geom_BSplineCurve(poles, knots, counts, 3);
    for (int i = 2; i <= stretches; ++i) curve->RemoveKnot(i, 2, 1e-7);
    return curve;
}

double distanceTo(const BoundedCurve& piece, const gp_Pnt& point) {
    if (const auto circle = Handle(Geom_Circle)::DownCast(piece.curve); !circle.IsNull()) {
        return circle->Circ().Distance(point);
    }
    return Handle(Geom_Line)::DownCast(piece.curve)->Lin().Distance(point);
}

double deviationOf(const Geom_BSplineCurve& curve, const std::vector<BoundedCurve>& pieces) {
    constexpr int steps = 8;
    double worst = 0.0, start = 0.0;
    for (const BoundedCurve& piece : pieces) {
        const double length = lengthOf(piece);
        for (int i = 0; i < steps; ++i) {
            const double t = std::min(start + length * i / steps, curve.LastParameter());
            worst = std::max(worst, distanceTo(piece, curve.Value(t)));
        }
        start += length;
    }
    return worst;
}

} // namespace

bool continues(const BoundedCurve& piece, const BoundedCurve& next, double toleranceMm) {
    constexpr double greatestKink = 1e-3;
    if (piece.end().Distance(next.start()) > toleranceMm) return false;
    return tangent(piece, piece.last).Angle(tangent(next, next.first)) <= greatestKink;
}

std::optional<JoinedCurve> joined(const std::vector<BoundedCurve>& pieces, double toleranceMm) {
    for (const BoundedCurve& piece : pieces) {
        const bool isArc = radiusOf(piece) > 0.0;
        if (!isArc && Handle(Geom_Line)::DownCast(piece.curve).IsNull()) return std::nullopt;
    }
    Handle(Geom_BSplineCurve) curve = cubicThrough(nodesOf(pieces));
    const double deviation = deviationOf(*curve, pieces);
    if (deviation > toleranceMm) return std::nullopt;
    const double last = curve->LastParameter();
    return JoinedCurve{{Handle(Geom_Curve)(curve), curve->FirstParameter(), last}, deviation};
}

} // namespace host
