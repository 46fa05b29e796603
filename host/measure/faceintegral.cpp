// SPDX-License-Identifier: Apache-2.0
// By Green's theorem: the integral of f over the face is that of F dv along its border, F being the
// integral of f over u from a fixed place.
#include "host/measure/faceintegral.h"

#include "host/measure/border.h"
#include "host/measure/stripintegral.h"

#include <TColStd_Array1OfReal.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Iterator.hxx>
#include <gp_Vec2d.hxx>

#include <algorithm>
#include <cmath>
#include <vector>

namespace host {
namespace {

/// A gap is a fault when it is greater than this share of the border's size and than so many
/// tolerances: then an edge is missing.
constexpr double greatestGapShare = 1e-2;
constexpr double greatestGapTolerances = 4.0;

/// Of a curve's spans times the surface's.
constexpr int mostPieces = 10000;

class Integrator {
public:
    Integrator(const TopoDS_Face& face, const gp_Pnt& reference)
        : face_(TopoDS::Face(face.Oriented(TopAbs_FORWARD))), surface_(face_),
          strip_(surface_, reference) {
        TColStd_Array1OfReal knots(1, surface_.NbVIntervals(GeomAbs_CN) + 1);
        surface_.VIntervals(knots, GeomAbs_CN);
        knots_.assign(knots.begin(), knots.end());
    }

    FaceIntegral integral() const {
        Measures sum;
        for (TopoDS_Iterator walk(face_); walk.More(); walk.Next()) {
            if (walk.Value().ShapeType() != TopAbs_WIRE) continue;
            sum += around(closedBorder(TopoDS::Wire(walk.Value())));
        }
        return {sum.area, sum.volume};
    }

private:
    Measures around(const std::vector<BorderPiece>& border) const {
        Measures sum;
        for (std::size_t i = 0; i < border.size(); ++i) {
            const gp_Pnt2d &end = border[i].end, &next = border[(i + 1) % border.size()].start;
            sum += along(border[i].curve) * (border[i].isAlong ? 1.0 : -1.0);
            sum += between(end, next);
        }
        return sum;
    }

    std::vector<BorderPiece> closedBorder(const TopoDS_Wire& wire) const {
        std::vector<BorderPiece> border = borderOf(wire, face_);
        if (isClosed(border)) return border;
        followEnds(border);
        if (!isClosed(border)) throw OpenBorder("its border has a gap");
        return border;
    }

    bool isClosed(const std::vector<BorderPiece>& border) const {
        const double greatestGap = greatestGapOf(border);
        for (std::size_t i = 0; i < border.size(); ++i) {
            const gp_Pnt2d& next = border[(i + 1) % border.size()].start;
            if (pointAt(border[i].end).Distance(pointAt(next)) > greatestGap) return false;
        }
        return true;
    }

    gp_Pnt pointAt(const gp_Pnt2d& uv) const { return surface_.Value(uv.X(), uv.Y()); }

    double greatestGapOf(const std::vector<BorderPiece>& border) const {
        double size = 0.0, tolerance = 0.0;
        for (const BorderPiece& piece : border) {
            size = std::max(size, pointAt(piece.end).Distance(pointAt(border[0].start)));
            tolerance = std::max(tolerance, piece.toleranceMm);
        }
        return std::max(greatestGapShare * size, greatestGapTolerances * tolerance);
    }

    /// Curves meet within a tolerance only, and an edge without extent may be missing at a pole.
    /// Without the way from one to the next the result would depend on where F begins. A loop round
    /// a closed surface comes back one period further on.
    Measures between(const gp_Pnt2d& end, const gp_Pnt2d& next) const {
        double gap = next.Y() - end.Y();
        if (surface_.IsVPeriodic()) gap = std::remainder(gap, surface_.VPeriod());
        if (gap == 0.0) return {};
        const auto f = [&](double share) {
            return strip_.to(end.X() + share * (next.X() - end.X()), end.Y() + share * gap);
        };
        constexpr double small = 1e-3;
        const double range = surface_.LastVParameter() - surface_.FirstVParameter();
        if (std::abs(gap) <= small * range) return f(0.5) * gap;
        return quadrature(longRule, f, 0.0, 1.0, strip_.tolerance()) * gap;
    }

    Measures along(const BRepAdaptor_Curve2d& curve) const {
        const auto f = [&](double t) {
            gp_Pnt2d uv;
            gp_Vec2d speed;
            curve.D1(t, uv, speed);
            return speed.Y() == 0.0 ? Measures{} : strip_.to(uv.X(), uv.Y()) * speed.Y();
        };
        Measures sum;
        const std::vector<double> breaks = breaksOf(curve);
        for (std::size_t i = 1; i < breaks.size(); ++i) {
            sum += quadrature(longRule, f, breaks[i - 1], breaks[i], strip_.tolerance());
        }
        return sum;
    }

    /// Where the integrand isn't smooth: the curve's own knots and its crossings of the surface's.
    /// Of a curve with very many knots across a surface with very many, stretches of several spans
    /// are taken: they are smoother than their number suggests, and what isn't is refined.
    std::vector<double> breaksOf(const BRepAdaptor_Curve2d& curve) const {
        TColStd_Array1OfReal own(1, curve.NbIntervals(GeomAbs_CN) + 1);
        curve.Intervals(own, GeomAbs_CN);
        std::vector<double> breaks{own.First()};
        const int stride = 1 + own.Length() * surface_.NbUIntervals(GeomAbs_CN) / mostPieces;
        for (int i = own.Lower(); i < own.Upper(); i += stride) {
            const double to = own(std::min(i + stride, own.Upper()));
            addCrossings(curve, own(i), to, breaks);
            breaks.push_back(to);
        }
        return breaks;
    }

    /// Those that lie between the ends of a stretch. What a bent stretch crosses twice is left to
    /// the quadrature.
    void addCrossings(const BRepAdaptor_Curve2d& curve, double from, double to,
                      std::vector<double>& breaks) const {
        const double v1 = curve.Value(from).Y(), v2 = curve.Value(to).Y();
        const auto [low, high] = std::minmax(v1, v2);
        const auto first = std::upper_bound(knots_.begin(), knots_.end(), low);
        const auto last = std::lower_bound(first, knots_.end(), high);
        const std::size_t before = breaks.size();
        for (auto knot = first; knot != last; ++knot) {
            breaks.push_back(crossing(curve, from, to, *knot));
        }
        std::sort(breaks.begin() + static_cast<std::ptrdiff_t>(before), breaks.end());
    }

    static double crossing(const BRepAdaptor_Curve2d& curve, double from, double to, double v) {
        const bool isRising = curve.Value(from).Y() < v;
        for (int i = 0; i < 48; ++i) {
            const double middle = 0.5 * (from + to);
            ((curve.Value(middle).Y() < v) == isRising ? from : to) = middle;
        }
        return 0.5 * (from + to);
    }

    const TopoDS_Face face_;
    const BRepAdaptor_Surface surface_;
    const StripIntegral strip_;
    std::vector<double> knots_; ///< of the surface in v
};

} // namespace

FaceIntegral integralOf(const TopoDS_Face& face, const gp_Pnt& reference) {
    FaceIntegral result = Integrator(face, reference).integral();
    if (face.Orientation() == TopAbs_REVERSED) result.volume = -result.volume;
    return result;
}

} // namespace host
