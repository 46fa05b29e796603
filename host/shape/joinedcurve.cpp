// SPDX-License-Identifier: Apache-2.0
// A cubic through the points that lie on the original, with its tangents there.
//
// A biarc is a pair of arcs whose legs (from an end to the meeting point of the end's tangent with
// the next) are of equal length. Its ends lie on the original curve; the place where the two arcs
// meet need not. So pairs with equal legs become one stretch each, as long as they bend little
// enough for one cubic; anything else follows its arcs.
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
    gp_Vec before, after;   ///< tangents of the stretches that end and begin here
    double parameter = 0.0; ///< such that the derivative has length 1
};

/// The angle between the tangents at the ends.
double bendOf(const BoundedCurve& piece) {
    return radiusOf(piece) > 0.0 ? piece.last - piece.first : 0.0;
}

/// The parameter that a stretch takes: its length, corrected so that the cubic with derivatives of
/// length 1 at both ends follows a circle.
double extentOf(double length, double bend) {
    return bend > 1e-6 ? length * 4.0 * std::tan(bend / 4.0) / bend : length;
}

/// With greater bends a cubic leaves a circle.
constexpr double greatestBend = 0.35;

double distanceTo(const BoundedCurve& piece, const gp_Pnt& point) {
    if (const auto circle = Handle(Geom_Circle)::DownCast(piece.curve); !circle.IsNull()) {
        return circle->Circ().Distance(point);
    }
    return Handle(Geom_Line)::DownCast(piece.curve)->Lin().Distance(point);
}

class NodeList {
public:
    NodeList(const BoundedCurve& front, double toleranceMm) : toleranceMm_(toleranceMm) {
        const gp_Vec start = tangent(front, front.first);
        nodes_.push_back({front.start(), start, start, 0.0});
    }

    /// The two as one stretch; false when one cubic doesn't follow them.
    bool addBiarc(const BoundedCurve& head, const BoundedCurve& tail) {
        const double bend = tangent(head, head.first).Angle(tangent(tail, tail.last));
        if (bendOf(head) + bendOf(tail) > greatestBend) return false;
        const double extent = extentOf(lengthOf(head) + lengthOf(tail), bend);
        const Node& a = nodes_.back();
        const gp_Vec leaving = tangent(head, head.first), arriving = tangent(tail, tail.last);
        if (strays(head, tail, a.point.Translated(leaving * (extent / 3.0)),
                   tail.end().Translated(arriving * (-extent / 3.0)))) {
            return false;
        }
        add(tail.end(), leaving, arriving, extent);
        return true;
    }

    void addPiece(const BoundedCurve& piece) {
        const int parts = 1 + static_cast<int>(bendOf(piece) / greatestBend);
        const double step = (piece.last - piece.first) / parts;
        const double extent = extentOf(lengthOf(piece) / parts, bendOf(piece) / parts);
        for (int i = 0; i < parts; ++i) {
            const double from = piece.first + i * step, to = from + step;
            add(piece.curve->Value(to), tangent(piece, from), tangent(piece, to), extent);
        }
    }

    const std::vector<Node>& nodes() const { return nodes_; }

private:
    void add(const gp_Pnt& point, const gp_Vec& leaving, const gp_Vec& arriving, double extent) {
        nodes_.back().after = leaving;
        nodes_.push_back({point, arriving, arriving, nodes_.back().parameter + extent});
    }

    bool strays(const BoundedCurve& head, const BoundedCurve& tail, const gp_Pnt& second,
                const gp_Pnt& third) const {
        const gp_XYZ a = head.start().XYZ(), d = tail.end().XYZ();
        for (const double s : {0.15, 0.3, 0.5, 0.7, 0.85}) {
            const double r = 1.0 - s;
            const gp_Pnt point(a * (r * r * r) + second.XYZ() * (3.0 * r * r * s) +
                               third.XYZ() * (3.0 * r * s * s) + d * (s * s * s));
            const double off = std::min(distanceTo(head, point), distanceTo(tail, point));
            if (off > toleranceMm_) return true;
        }
        return false;
    }

    double toleranceMm_;
    std::vector<Node> nodes_;
};

std::vector<Node> nodesOf(const std::vector<BoundedCurve>& pieces, double toleranceMm) {
    NodeList list(pieces.front(), toleranceMm);
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        const bool isPair = i + 1 < pieces.size() && isBiarc(pieces[i], pieces[i + 1]);
        if (isPair && list.addBiarc(pieces[i], pieces[i + 1])) {
            ++i;
        } else {
            list.addPiece(pieces[i]);
            // The second arc of a pair that didn't become one stretch.
            if (isPair) list.addPiece(pieces[++i]);
        }
    }
    return list.nodes();
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
        const double third = (b.parameter - a.parameter) / 3.0;
        poles(3 * i + 1) = a.point;
        poles(3 * i + 2) = a.point.Translated(a.after * third);
        poles(3 * i + 3) = b.point.Translated(b.before * -third);
        knots(i + 1) = a.parameter;
        counts(i + 1) = i == 0 ? 4 : 3;
    }
    poles(3 * stretches + 1) = nodes.back().point;
    knots(stretches + 1) = nodes.back().parameter;
    counts(stretches + 1) = 4;
    Handle(Geom_BSplineCurve) curve = new Geom_BSplineCurve(poles, knots, counts, 3);
    for (int i = 2; i <= stretches; ++i) curve->RemoveKnot(i, 2, 1e-7);
    return curve;
}

double deviationOf(const Geom_BSplineCurve& curve, const std::vector<BoundedCurve>& pieces) {
    constexpr int steps = 4;
    double worst = 0.0;
    for (int knot = 1; knot < curve.NbKnots(); ++knot) {
        for (int i = 0; i < steps; ++i) {
            const double share = static_cast<double>(i) / steps;
            const gp_Pnt point =
                curve.Value(curve.Knot(knot) + share * (curve.Knot(knot + 1) - curve.Knot(knot)));
            double nearest = HUGE_VAL;
            for (const BoundedCurve& piece : pieces) {
                nearest = std::min(nearest, distanceTo(piece, point));
            }
            worst = std::max(worst, nearest);
        }
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
    Handle(Geom_BSplineCurve) curve = cubicThrough(nodesOf(pieces, toleranceMm));
    const double deviation = deviationOf(*curve, pieces);
    if (deviation > 2.0 * toleranceMm) return std::nullopt;
    const double last = curve->LastParameter();
    return JoinedCurve{{Handle(Geom_Curve)(curve), curve->FirstParameter(), last}, deviation};
}

} // namespace host
