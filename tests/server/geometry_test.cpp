// SPDX-License-Identifier: Apache-2.0
// Conversions of curves: what is recognised, and how closely a chain follows.
#include "server/geometry/biarcchain.h"
#include "server/geometry/curverecognition.h"

#include <GC_MakeArcOfCircle.hxx>
#include <GeomAPI_Interpolate.hxx>
#include <GeomAPI_PointsToBSpline.hxx>
#include <GeomAdaptor_Curve.hxx>
#include <GeomConvert.hxx>
#include <Geom_BSplineCurve.hxx>
#include <Geom_Circle.hxx>
#include <Geom_TrimmedCurve.hxx>
#include <TColgp_Array1OfPnt.hxx>
#include <TColgp_HArray1OfPnt.hxx>

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace server {
namespace {

using Curve = Handle(Geom_BSplineCurve);
constexpr double pi = std::numbers::pi;

Curve interpolated(const std::vector<gp_Pnt>& points, bool closed = false) {
    const Handle(TColgp_HArray1OfPnt) array =
        new TColgp_HArray1OfPnt(1, static_cast<int>(points.size()));
    for (std::size_t i = 0; i < points.size(); ++i) {
        array->SetValue(static_cast<int>(i) + 1, points[i]);
    }
    GeomAPI_Interpolate interpolation(array, closed, 1e-9);
    interpolation.Perform();
    return interpolation.Curve();
}

Curve helix() {
    std::vector<gp_Pnt> points;
    for (int i = 0; i <= 12; ++i) {
        points.emplace_back(20 * std::cos(0.3 * i), 20 * std::sin(0.3 * i), 2.0 * i);
    }
    return interpolated(points);
}

/// Straight pieces through the points: degree 1, with a kink at each.
Curve polyline(std::initializer_list<gp_Pnt> points) {
    TColgp_Array1OfPnt poles(1, static_cast<int>(points.size()));
    TColStd_Array1OfReal knots(1, poles.Size());
    TColStd_Array1OfInteger multiplicities(1, poles.Size());
    int index = 0;
    for (const gp_Pnt& point : points) {
        poles(++index) = point;
        knots(index) = index;
        multiplicities(index) = index == 1 || index == poles.Size() ? 2 : 1;
    }
    return new Geom_BSplineCurve(poles, knots, multiplicities, 1);
}

std::optional<CurvePiece> recognised(const Curve& curve, double tolerance = 1e-6) {
    return recognise(GeomAdaptor_Curve(curve), curve->FirstParameter(), curve->LastParameter(),
                     tolerance);
}

BiarcChain chained(const Curve& curve, double tolerance) {
    return biarcChain(GeomAdaptor_Curve(curve), curve->FirstParameter(), curve->LastParameter(),
                      {tolerance, {}});
}

double distanceToChain(const BiarcChain& chain, const gp_Pnt& point) {
    double best = 1e100;
    for (const CurvePiece& piece : chain.pieces) {
        best = std::min(best, offsetTo(piece, point).Magnitude());
    }
    return best;
}

double worstDistance(const Curve& curve, const BiarcChain& chain) {
    double worst = 0.0;
    const double first = curve->FirstParameter(), last = curve->LastParameter();
    for (int i = 0; i <= 1000; ++i) {
        worst = std::max(worst,
                         distanceToChain(chain, curve->Value(first + (last - first) * i / 1000)));
    }
    return worst;
}

/// The angle by which the tangent jumps between piece i and the one behind it.
double jumpBehind(const BiarcChain& chain, std::size_t i) {
    const CurvePiece &a = chain.pieces[i], &b = chain.pieces[i + 1];
    return tangentAt(a, lastParameter(a)).Angle(tangentAt(b, firstParameter(b)));
}

void expectNoGaps(const Curve& curve, const BiarcChain& chain) {
    EXPECT_LT(startOf(chain.pieces.front()).Distance(curve->StartPoint()), 1e-12);
    EXPECT_LT(endOf(chain.pieces.back()).Distance(curve->EndPoint()), 1e-9);
    for (std::size_t i = 0; i + 1 < chain.pieces.size(); ++i) {
        EXPECT_LT(endOf(chain.pieces[i]).Distance(startOf(chain.pieces[i + 1])), 1e-9) << i;
    }
}

TEST(CurveRecognition, FindsTheArcBehindARationalSplineWithItsDirection) {
    const gp_Circ circle(gp_Ax2(gp_Pnt(1, 2, 3), gp_Dir(1, 1, 2)), 7.5);
    for (const double end : {0.4, 2.0, 5.5, 2 * pi}) {
        const Handle(Geom_Curve) arc =
            new Geom_TrimmedCurve(new Geom_Circle(circle), 0.1, 0.1 + end);
        const Curve spline = GeomConvert::CurveToBSplineCurve(arc);
        const auto found = recognised(spline);
        ASSERT_TRUE(found) << end;
        const auto& piece = std::get<ArcPiece>(*found);
        EXPECT_NEAR(piece.radius, 7.5, 1e-8);
        EXPECT_NEAR(piece.last - piece.first, end, 1e-8);
        EXPECT_LT(startOf(*found).Distance(spline->StartPoint()), 1e-8);
        EXPECT_LT(endOf(*found).Distance(spline->EndPoint()), 1e-8);
        EXPECT_TRUE(piece.frame.Direction().IsEqual(circle.Axis().Direction(), 1e-9));
    }
}

TEST(CurveRecognition, FindsTheLineBehindACubic) {
    const auto found = recognised(
        interpolated({gp_Pnt(0, 0, 0), gp_Pnt(1, 2, 0), gp_Pnt(2, 4, 0), gp_Pnt(5, 10, 0)}));
    ASSERT_TRUE(found);
    EXPECT_LT(std::get<LinePiece>(*found).end.Distance(gp_Pnt(5, 10, 0)), 1e-9);
}

TEST(CurveRecognition, LeavesWhatOnlyResemblesALineOrACircle) {
    EXPECT_FALSE(recognised(helix()));
    EXPECT_FALSE(recognised(interpolated(
        {gp_Pnt(0, 0, 0), gp_Pnt(3, 2e-5, 0), gp_Pnt(7, -2e-5, 0), gp_Pnt(10, 0, 0)})));
    EXPECT_FALSE(recognised(polyline({gp_Pnt(0, 0, 0), gp_Pnt(10, 0, 0), gp_Pnt(5, 0, 0)})))
        << "a line that turns back";
}

TEST(BiarcChain, FollowsAHelixWithinItsToleranceAndWithoutKinks) {
    for (const double tolerance : {1e-1, 1e-3, 1e-4}) {
        const BiarcChain chain = chained(helix(), tolerance);
        expectNoGaps(helix(), chain);
        EXPECT_LE(chain.deviation, tolerance);
        EXPECT_LE(worstDistance(helix(), chain), 1.05 * tolerance);
        for (std::size_t i = 0; i + 1 < chain.pieces.size(); ++i)
            EXPECT_LT(jumpBehind(chain, i), 1e-5);
    }
}

TEST(BiarcChain, NeedsFewerPiecesForACoarserTolerance) {
    const auto fine = chained(helix(), 1e-4).pieces.size();
    const auto coarse = chained(helix(), 1e-2).pieces.size();
    EXPECT_LT(coarse, fine);
    EXPECT_LT(fine, 120u);
}

TEST(BiarcChain, TurnsACornerOnlyWhereTheCurveDoes) {
    const Curve corner = polyline({gp_Pnt(0, 0, 0), gp_Pnt(10, 0, 0), gp_Pnt(10, 5, 0)});
    const BiarcChain chain = chained(corner, 1e-4);
    ASSERT_EQ(chain.pieces.size(), 2u);
    EXPECT_NEAR(jumpBehind(chain, 0), pi / 2, 1e-9);
    expectNoGaps(corner, chain);
}

TEST(BiarcChain, GoesRoundAClosedCurve) {
    const Curve oval = interpolated(
        {gp_Pnt(10, 0, 0), gp_Pnt(0, 6, 1), gp_Pnt(-10, 0, 0), gp_Pnt(0, -6, 2)}, true);
    const BiarcChain chain = chained(oval, 1e-3);
    expectNoGaps(oval, chain);
    EXPECT_LE(worstDistance(oval, chain), 1.05e-3);
    EXPECT_LT(startOf(chain.pieces.front()).Distance(endOf(chain.pieces.back())), 1e-9);
}

TEST(CurvePiece, BoxOfAnArcReachesItsExtremes) {
    const ArcPiece arc{gp_Ax2(gp_Pnt(1, 0, 0), gp::DZ()), 2.0, -0.1, pi + 0.1};
    const Bnd_Box box = boxOf(arc);
    EXPECT_NEAR(box.CornerMin().X(), -1.0, 1e-6);
    EXPECT_NEAR(box.CornerMax().X(), 3.0, 1e-6);
    EXPECT_NEAR(box.CornerMax().Y(), 2.0, 1e-6);
    EXPECT_NEAR(box.CornerMin().Y(), -2.0 * std::sin(0.1), 1e-6);
}

TEST(CurvePiece, OffsetToAnArcIsToItsEndBeyondIt) {
    const CurvePiece quarter = ArcPiece{gp_Ax2(gp_Pnt(0, 0, 0), gp::DZ()), 2.0, 0.0, pi / 2};
    const auto expectOffset = [&](const gp_Pnt& point, const gp_Vec& expected) {
        EXPECT_LT((offsetTo(quarter, point) - expected).Magnitude(), 1e-12);
    };
    expectOffset(gp_Pnt(3, 0, 0), gp_Vec(-1, 0, 0));
    expectOffset(gp_Pnt(2, -1, 0), gp_Vec(0, 1, 0));
    expectOffset(gp_Pnt(0, 1, 5), gp_Vec(0, 1, -5));
}

} // namespace
} // namespace server
