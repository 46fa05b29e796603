// SPDX-License-Identifier: Apache-2.0
// Biarcs with legs of equal length, stretched greedily along the curve.
#include "server/geometry/biarcchain.h"

#include <Precision.hxx>
#include <TColStd_Array1OfReal.hxx>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <numbers>

namespace server {
namespace {

/// Below this sine of the angle between tangent and chord an arc is sent as a line: the centre
/// would be so far away that its points lose more digits than the bend is worth.
constexpr double straightSine = 1e-6;

struct Joint {
    double parameter = 0.0;
    gp_Pnt point;
    gp_Vec tangent; ///< length 1
};

/// The part of a curve between two kinks.
class SmoothSpan {
public:
    SmoothSpan(const Adaptor3d_Curve& curve, double first, double last)
        : curve_(curve), first_(first), last_(last), nudge_(1e-9 * (last - first)) {}

    double first() const { return first_; }
    double last() const { return last_; }
    gp_Pnt point(double t) const { return curve_.Value(t); }

    /// The tangents of the ends are taken just inside, since at a kink there are two.
    Joint joint(double t) const {
        const double inside = std::clamp(t, first_ + nudge_, last_ - nudge_);
        gp_Pnt ignored;
        gp_Vec tangent;
        curve_.D1(inside, ignored, tangent);
        if (tangent.Magnitude() < gp::Resolution() * 1e3) tangent = secant(inside);
        return {t, curve_.Value(t), tangent.Normalized()};
    }

private:
    /// For points where the curve stands still in its parameter.
    gp_Vec secant(double t) const {
        const double step = 1e-5 * (last_ - first_);
        const gp_Vec across(curve_.Value(std::max(first_, t - step)),
                            curve_.Value(std::min(last_, t + step)));
        return across.Magnitude() > 0.0 ? across
                                        : gp_Vec(curve_.Value(first_), curve_.Value(last_));
    }

    const Adaptor3d_Curve& curve_;
    double first_, last_, nudge_;
};

struct Biarc {
    std::vector<CurvePiece> pieces;
    double deviation = 0.0;
};

double distanceToPiece(const CurvePiece& piece, const gp_Pnt& point) {
    if (const auto* line = std::get_if<LinePiece>(&piece)) return distanceTo(*line, point);
    return distanceTo(std::get<ArcPiece>(piece), point);
}

double deviationFrom(const SmoothSpan& span, double from, double to,
                     const std::vector<CurvePiece>& pieces) {
    constexpr int steps = 16;
    double worst = 0.0;
    for (int i = 1; i < steps; ++i) {
        const gp_Pnt p = span.point(from + (to - from) * i / steps);
        double best = distanceToPiece(pieces.front(), p);
        if (pieces.size() > 1) best = std::min(best, distanceToPiece(pieces.back(), p));
        worst = std::max(worst, best);
    }
    return worst;
}

/// An arc beyond half a turn would run where the curve doesn't.
double turnLimit(const CurvePiece& piece) {
    return std::holds_alternative<ArcPiece>(piece) ? std::numbers::pi + 1e-9
                                                   : std::numeric_limits<double>::infinity();
}

/// The two legs are d * tangent at the start and at the end; the arcs meet halfway between their
/// tips. Nothing when no such biarc exists.
std::optional<std::vector<CurvePiece>> biarcBetween(const Joint& a, const Joint& b) {
    const gp_Vec chord(a.point, b.point);
    const double square = chord.SquareMagnitude();
    const double along = chord.Dot(a.tangent + b.tangent);
    const double spread = std::max(0.0, 2.0 * (1.0 - a.tangent.Dot(b.tangent)));
    const double divisor = along + std::sqrt(along * along + spread * square);
    if (square <= 0.0 || divisor <= 1e-6 * std::sqrt(square)) return std::nullopt;
    const double leg = square / divisor;
    const gp_Pnt tipA = a.point.Translated(a.tangent * leg);
    const gp_Pnt tipB = b.point.Translated(b.tangent * -leg);
    const gp_Pnt middle((tipA.XYZ() + tipB.XYZ()) * 0.5);
    if (middle.IsEqual(a.point, 0.0) || middle.IsEqual(b.point, 0.0)) return std::nullopt;
    CurvePiece head = arcAlong(a.point, a.tangent, middle);
    CurvePiece tail = arcAlong(middle, gp_Vec(tipA, tipB).Normalized(), b.point);
    if (lastParameter(head) > turnLimit(head) || lastParameter(tail) > turnLimit(tail)) {
        return std::nullopt;
    }
    if (std::holds_alternative<LinePiece>(head) && std::holds_alternative<LinePiece>(tail)) {
        return std::vector<CurvePiece>{LinePiece{a.point, b.point}};
    }
    return std::vector<CurvePiece>{head, tail};
}

std::optional<Biarc> fittedBiarc(const SmoothSpan& span, double from, double to) {
    auto pieces = biarcBetween(span.joint(from), span.joint(to));
    if (!pieces) return std::nullopt;
    const double deviation = deviationFrom(span, from, to, *pieces);
    return Biarc{std::move(*pieces), deviation};
}

struct Stretch {
    double to = 0.0;
    Biarc biarc;
};

/// The straight way out for a stretch that no biarc follows.
Biarc chordOf(const SmoothSpan& span, double from, double to) {
    Biarc chord{{LinePiece{span.point(from), span.point(to)}}, 0.0};
    chord.deviation = deviationFrom(span, from, to, chord.pieces);
    return chord;
}

/// The longest stretch from `from` that stays within the tolerance, found by halving.
Stretch longestStretch(const SmoothSpan& span, double from, double tolerance) {
    if (auto whole = fittedBiarc(span, from, span.last()); whole && whole->deviation <= tolerance) {
        return {span.last(), std::move(*whole)};
    }
    const double least = std::min(1e-4 * (span.last() - span.first()), span.last() - from);
    double low = from, high = span.last();
    Stretch best;
    while (high - low > 0.02 * (high - from) && high - from > least) {
        const double middle = 0.5 * (low + high);
        auto fitted = fittedBiarc(span, from, middle);
        if (fitted && fitted->deviation <= tolerance) {
            best = {middle, std::move(*fitted)};
            low = middle;
        } else {
            high = middle;
        }
    }
    if (low > from) return best;
    const double to = std::min(from + least, span.last());
    auto fitted = fittedBiarc(span, from, to);
    return {to, fitted ? std::move(*fitted) : chordOf(span, from, to)};
}

void appendSpan(const SmoothSpan& span, double tolerance, BiarcChain& chain) {
    for (double from = span.first(); from < span.last();) {
        Stretch stretch = longestStretch(span, from, tolerance);
        chain.deviation = std::max(chain.deviation, stretch.biarc.deviation);
        std::move(stretch.biarc.pieces.begin(), stretch.biarc.pieces.end(),
                  std::back_inserter(chain.pieces));
        from = stretch.to;
    }
}

/// The ends, the places between them where the derivative may jump, and the middle of a closed
/// curve.
std::vector<double> breaks(const Adaptor3d_Curve& curve, double first, double last) {
    TColStd_Array1OfReal intervals(1, curve.NbIntervals(GeomAbs_C1) + 1);
    curve.Intervals(intervals, GeomAbs_C1);
    const double margin = 1e-9 * (last - first);
    std::vector<double> result{first};
    for (const double t : intervals) {
        if (t > result.back() + margin && t < last - margin) result.push_back(t);
    }
    const bool closed = curve.Value(first).Distance(curve.Value(last)) <= Precision::Confusion();
    if (closed && result.size() == 1) result.push_back(0.5 * (first + last));
    result.push_back(last);
    return result;
}

} // namespace

CurvePiece arcAlong(const gp_Pnt& from, const gp_Vec& tangent, const gp_Pnt& to) {
    const gp_Vec chord(from, to);
    const double length = chord.Magnitude(), along = chord.Dot(tangent);
    const gp_Vec across = chord - tangent * along;
    const double height = across.Magnitude();
    if (height <= straightSine * length) return LinePiece{from, to};
    const gp_Dir inward(across);
    const double radius = length * length / (2.0 * height);
    const gp_Pnt centre = from.Translated(gp_Vec(inward) * radius);
    const gp_Dir normal(gp_Vec(tangent).Crossed(gp_Vec(inward)));
    return ArcPiece{gp_Ax2(centre, normal, inward.Reversed()), radius, 0.0,
                    2.0 * std::atan2(height, along)};
}

BiarcChain biarcChain(const Adaptor3d_Curve& curve, double first, double last, double tolerance) {
    BiarcChain chain;
    const std::vector<double> at = breaks(curve, first, last);
    for (std::size_t i = 1; i < at.size(); ++i) {
        appendSpan(SmoothSpan(curve, at[i - 1], at[i]), tolerance, chain);
    }
    return chain;
}

} // namespace server
