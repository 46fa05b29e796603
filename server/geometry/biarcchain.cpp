// SPDX-License-Identifier: Apache-2.0
// Biarcs with legs of equal length, stretched greedily along the curve.
//
// Between the ends of a biarc the curve winds round it: what it covers on one side is nearly what
// it leaves on the other. The difference is, to the leading order, the one that a cubic with the
// same ends and tangents makes too. So it says what happens to the area of a face whether a
// receiver follows the arcs or joins them to one smooth curve.
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
    void derive(double t, gp_Pnt& point, gp_Vec& derivative) const {
        curve_.D1(t, point, derivative);
    }

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
    double growth = 0.0;
};

/// From the point to the nearer one of a biarc's pieces.
gp_Vec offsetToNearer(const std::vector<CurvePiece>& pieces, const gp_Pnt& point) {
    const gp_Vec first = offsetTo(pieces.front(), point);
    if (pieces.size() == 1) return first;
    const gp_Vec second = offsetTo(pieces.back(), point);
    return first.SquareMagnitude() < second.SquareMagnitude() ? first : second;
}

/// How a biarc strays from its stretch of the curve.
struct Straying {
    double distance = 0.0;     ///< the greatest one seen
    double length = 0.0;       ///< of the stretch
    std::vector<double> areas; ///< by border: what comes between biarc and curve, with its sign
};

Straying strayingOf(const SmoothSpan& span, double from, double to,
                    const std::vector<CurvePiece>& pieces,
                    const std::vector<BorderLimit>& borders) {
    constexpr int steps = 16;
    Straying result;
    result.areas.resize(borders.size());
    for (int i = 1; i < steps; ++i) {
        const double t = from + (to - from) * i / steps;
        gp_Pnt point;
        gp_Vec along;
        span.derive(t, point, along);
        along *= (to - from) / steps;
        const gp_Vec offset = offsetToNearer(pieces, point);
        result.distance = std::max(result.distance, offset.Magnitude());
        result.length += along.Magnitude();
        for (std::size_t k = 0; k < borders.size(); ++k) {
            result.areas[k] += offset.DotCross(along, borders[k].normalAt(t));
        }
    }
    return result;
}

/// By how much the stretch could be longer; below 1 it has to be shorter. Distances grow with the
/// third power of the length and areas with the fifth.
double growthOf(const Straying& straying, const ChainLimits& limits) {
    constexpr double least = 1e-300;
    double growth = std::cbrt(limits.tolerance / std::max(straying.distance, least));
    for (std::size_t k = 0; k < straying.areas.size(); ++k) {
        const double allowed = limits.borders[k].meanOffset() * straying.length;
        const double area = std::max(std::abs(straying.areas[k]), least);
        growth = std::min(growth, std::sqrt(std::sqrt(allowed / area)));
    }
    return growth;
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

struct Stretch {
    double to = 0.0;
    Biarc biarc;
};

/// Covers one span, stretch by stretch.
class SpanChain {
public:
    SpanChain(const SmoothSpan& span, const ChainLimits& limits)
        : span_(span), limits_(limits), guess_(0.25 * (span.last() - span.first())) {}

    void appendTo(BiarcChain& chain) {
        for (double from = span_.first(); from < span_.last();) {
            Stretch stretch = nextStretch(from);
            chain.deviation = std::max(chain.deviation, stretch.biarc.deviation);
            std::move(stretch.biarc.pieces.begin(), stretch.biarc.pieces.end(),
                      std::back_inserter(chain.pieces));
            guess_ = stretch.to - from;
            from = stretch.to;
        }
    }

private:
    /// About as long as the limits allow. Begins with the length of the stretch before.
    Stretch nextStretch(double from) const {
        const double least = std::min(1e-4 * (span_.last() - span_.first()), span_.last() - from);
        constexpr double safety = 0.95, worthwhile = 1.1, most = 3.0;
        Stretch best;
        for (double length = guess_; length > least;) {
            const double to = endOf(from, length);
            auto fitted = fittedBiarc(from, to);
            const double growth = fitted ? safety * fitted->growth : 0.5;
            if (growth < safety || !fitted) {
                if (!best.biarc.pieces.empty()) return best;
                length = (to - from) * std::clamp(growth, 0.1, 0.9);
                continue;
            }
            best = {to, std::move(*fitted)};
            if (growth < worthwhile || to == span_.last()) return best;
            length *= std::min(growth, most);
        }
        return shortest(from, std::min(from + least, span_.last()));
    }

    /// Takes the rest of the span in where it would be shorter than a tenth of the stretch.
    double endOf(double from, double length) const {
        return from + 1.1 * length < span_.last() ? from + length : span_.last();
    }

    std::optional<Biarc> fittedBiarc(double from, double to) const {
        auto pieces = biarcBetween(span_.joint(from), span_.joint(to));
        if (!pieces) return std::nullopt;
        return judged(from, to, std::move(*pieces));
    }

    Biarc judged(double from, double to, std::vector<CurvePiece> pieces) const {
        const Straying straying = strayingOf(span_, from, to, pieces, limits_.borders);
        return {std::move(pieces), straying.distance, growthOf(straying, limits_)};
    }

    /// The straight way out where no biarc follows.
    Stretch shortest(double from, double to) const {
        if (auto fitted = fittedBiarc(from, to)) return {to, std::move(*fitted)};
        return {to, judged(from, to, {LinePiece{span_.point(from), span_.point(to)}})};
    }

    const SmoothSpan& span_;
    const ChainLimits& limits_;
    double guess_;
};

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

BiarcChain biarcChain(const Adaptor3d_Curve& curve, double first, double last,
                      const ChainLimits& limits) {
    BiarcChain chain;
    const std::vector<double> at = breaks(curve, first, last);
    for (std::size_t i = 1; i < at.size(); ++i) {
        const SmoothSpan span(curve, at[i - 1], at[i]);
        SpanChain(span, limits).appendTo(chain);
    }
    return chain;
}

} // namespace server
