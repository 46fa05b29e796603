// SPDX-License-Identifier: Apache-2.0
// By Green's theorem: the integral of f over the face is that of F dv along its border, F being the
// integral of f over u from a fixed place. Both are adaptive 15-point Gauss-Kronrod rules.
#include "host/shape/faceintegral.h"

#include <BRepAdaptor_Curve2d.hxx>
#include <BRepAdaptor_Surface.hxx>
#include <BRepTools_WireExplorer.hxx>
#include <TColStd_Array1OfReal.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Iterator.hxx>
#include <TopoDS_Wire.hxx>
#include <gp_Vec.hxx>

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace host {
namespace {

constexpr double relativeTolerance = 1e-9;
constexpr int greatestDepth = 12;

/// Of a curve's pieces times the surface's. Where there are more, pieces of the curve are taken
/// together: they are smoother than their number suggests, and what isn't is refined.
constexpr int mostPieces = 10000;

/// Of the face's range; a greater jump is no gap but a fault.
constexpr double greatestGap = 1e-2;

/// Non-negative nodes of the rule, with both weights; every second node is one of the 7-point rule.
struct RuleNode {
    double at, kronrod, gauss;
};
constexpr std::array<RuleNode, 8> rule{{
    {0.991455371120812639206854697526329, 0.022935322010529224963732008058970, 0.0},
    {0.949107912342758524526189684047851, 0.063092092629978553290700663189204,
     0.129484966168869693270611432679082},
    {0.864864423359769072789712788640926, 0.104790010322250183839876322541518, 0.0},
    {0.741531185599394439863864773280788, 0.140653259715525918745189590510238,
     0.279705391489276667901467771423780},
    {0.586087235467691130294144691693003, 0.169004726639267902826583426598550, 0.0},
    {0.405845151377397166906606412076961, 0.190350578064785409913256402421014,
     0.381830050505118944950369775488975},
    {0.207784955007898467600689403773245, 0.204432940075298892414161999234649, 0.0},
    {0.0, 0.209482141084727828012999174891714, 0.417959183673469387755102040816327},
}};

struct Pair {
    double area = 0.0, volume = 0.0;

    Pair& operator+=(const Pair& other) {
        area += other.area;
        volume += other.volume;
        return *this;
    }
    Pair operator*(double factor) const { return {area * factor, volume * factor}; }
};

bool isNear(const Pair& a, const Pair& b, const Pair& tolerance) {
    return std::abs(a.area - b.area) <= tolerance.area &&
           std::abs(a.volume - b.volume) <= tolerance.volume;
}

/// `tolerance` is for one interval of the rule; the rule's true error is far below the difference
/// that it is compared with.
template <class Function>
Pair quadrature(const Function& f, double from, double to, const Pair& tolerance,
                int depth = greatestDepth) {
    const double middle = 0.5 * (from + to), half = 0.5 * (to - from);
    Pair fine, coarse;
    for (const RuleNode& node : rule) {
        Pair value = f(middle + half * node.at);
        if (node.at > 0.0) value += f(middle - half * node.at);
        fine += value * node.kronrod;
        coarse += value * node.gauss;
    }
    fine = fine * half;
    if (depth == 0 || isNear(fine, coarse * half, tolerance)) return fine;
    Pair result = quadrature(f, from, middle, tolerance, depth - 1);
    result += quadrature(f, middle, to, tolerance, depth - 1);
    return result;
}

class Integrator {
public:
    Integrator(const TopoDS_Face& face, const gp_Pnt& reference)
        : face_(TopoDS::Face(face.Oriented(TopAbs_FORWARD))), surface_(face_),
          reference_(reference) {
        TColStd_Array1OfReal breaks(1, surface_.NbUIntervals(GeomAbs_CN) + 1);
        surface_.UIntervals(breaks, GeomAbs_CN);
        breaks_.assign(breaks.begin(), breaks.end());
        start_ = 0.5 * (surface_.FirstUParameter() + surface_.LastUParameter());
        estimate();
    }

    FaceIntegral integral() {
        Pair sum;
        for (TopoDS_Iterator walk(face_); walk.More(); walk.Next()) {
            if (walk.Value().ShapeType() != TopAbs_WIRE) continue;
            sum += around(TopoDS::Wire(walk.Value()));
        }
        return {sum.area, sum.volume};
    }

private:
    /// What the integrals are compared with: the face can't be bigger than its range's box of
    /// samples suggests by much.
    void estimate() {
        constexpr int steps = 6;
        const double u1 = surface_.FirstUParameter(), u2 = surface_.LastUParameter();
        const double v1 = surface_.FirstVParameter(), v2 = surface_.LastVParameter();
        Pair mean;
        for (int i = 0; i < steps; ++i) {
            for (int k = 0; k < steps; ++k) {
                const Pair value =
                    density(u1 + (u2 - u1) * (i + 0.5) / steps, v1 + (v2 - v1) * (k + 0.5) / steps);
                mean += Pair{value.area, std::abs(value.volume)};
            }
        }
        mean = mean * (relativeTolerance / (steps * steps));
        acrossTolerance_ = mean * (u2 - u1);
        alongTolerance_ = mean * ((u2 - u1) * (v2 - v1));
    }

    Pair density(double u, double v) const {
        gp_Pnt point;
        gp_Vec alongU, alongV;
        surface_.D1(u, v, point, alongU, alongV);
        const gp_Vec normal = alongU.Crossed(alongV);
        return {normal.Magnitude(), gp_Vec(reference_, point).Dot(normal) / 3.0};
    }

    /// F: the density over u from the fixed start to `u`.
    Pair across(double u, double v) const {
        if (surface_.GetType() == GeomAbs_Plane) return density(u, v) * (u - start_);
        Pair sum;
        const double low = std::min(u, start_), high = std::max(u, start_);
        double from = low;
        const auto f = [&](double at) { return density(at, v); };
        for (const double knot : breaks_) {
            if (knot <= from || knot >= high) continue;
            sum += quadrature(f, from, knot, acrossTolerance_);
            from = knot;
        }
        sum += quadrature(f, from, high, acrossTolerance_);
        return sum * (u < start_ ? -1.0 : 1.0);
    }

    Pair around(const TopoDS_Wire& wire) const {
        Pair sum;
        std::vector<std::array<gp_Pnt2d, 2>> ends;
        for (BRepTools_WireExplorer walk(wire, face_); walk.More(); walk.Next()) {
            const BRepAdaptor_Curve2d curve(walk.Current(), face_);
            const bool isForward = walk.Current().Orientation() == TopAbs_FORWARD;
            sum += along(curve) * (isForward ? 1.0 : -1.0);
            const double first = curve.FirstParameter(), last = curve.LastParameter();
            ends.push_back(
                {curve.Value(isForward ? first : last), curve.Value(isForward ? last : first)});
        }
        for (std::size_t i = 0; i < ends.size(); ++i) {
            sum += between(ends[i][1], ends[(i + 1) % ends.size()][0]);
        }
        return sum;
    }

    /// Curves meet within a tolerance only. Without the gaps between them the result would depend
    /// on where F begins.
    Pair between(const gp_Pnt2d& end, const gp_Pnt2d& next) const {
        const double gap = next.Y() - end.Y();
        const double range = surface_.LastVParameter() - surface_.FirstVParameter();
        if (gap == 0.0 || std::abs(gap) > greatestGap * range) return {};
        return across(0.5 * (end.X() + next.X()), 0.5 * (end.Y() + next.Y())) * gap;
    }

    Pair along(const BRepAdaptor_Curve2d& curve) const {
        TColStd_Array1OfReal breaks(1, curve.NbIntervals(GeomAbs_CN) + 1);
        curve.Intervals(breaks, GeomAbs_CN);
        const auto f = [&](double t) {
            gp_Pnt2d uv;
            gp_Vec2d speed;
            curve.D1(t, uv, speed);
            if (speed.Y() == 0.0) return Pair{};
            return across(uv.X(), uv.Y()) * speed.Y();
        };
        Pair sum;
        const int pieces = breaks.Length() * static_cast<int>(breaks_.size());
        const int stride = 1 + pieces / mostPieces;
        for (int i = breaks.Lower(); i < breaks.Upper(); i += stride) {
            const int next = std::min(i + stride, breaks.Upper());
            sum += quadrature(f, breaks(i), breaks(next), alongTolerance_);
        }
        return sum;
    }

    const TopoDS_Face face_;
    const BRepAdaptor_Surface surface_;
    const gp_Pnt reference_;
    std::vector<double> breaks_; ///< of the surface in u
    double start_ = 0.0;
    Pair acrossTolerance_, alongTolerance_;
};

} // namespace

FaceIntegral integralOf(const TopoDS_Face& face, const gp_Pnt& reference) {
    FaceIntegral result = Integrator(face, reference).integral();
    if (face.Orientation() == TopAbs_REVERSED) result.volume = -result.volume;
    return result;
}

} // namespace host
