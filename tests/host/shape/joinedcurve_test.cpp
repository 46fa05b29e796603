// SPDX-License-Identifier: Apache-2.0
// Chains of arcs and lines become one curve.
#include "host/shape/joinedcurve.h"

#include "server/geometry/biarcchain.h"

#include <Geom2d_BSplineCurve.hxx>
#include <GeomAPI_PointsToBSpline.hxx>
#include <GeomAPI_ProjectPointOnCurve.hxx>
#include <GeomAdaptor_Curve.hxx>
#include <Geom_BSplineCurve.hxx>
#include <Geom_Circle.hxx>
#include <Geom_Ellipse.hxx>
#include <Geom_Line.hxx>
#include <TColgp_Array1OfPnt.hxx>
#include <gtest/gtest.h>

namespace host {
namespace {

BoundedCurve bounded(const server::CurvePiece& piece) {
    if (const auto* line = std::get_if<server::LinePiece>(&piece)) {
        const gp_Vec along(line->start, line->end);
        return {new Geom_Line(line->start, gp_Dir(along)), 0.0, along.Magnitude()};
    }
    const auto& arc = std::get<server::ArcPiece>(piece);
    return {new Geom_Circle(arc.frame, arc.radius), arc.first, arc.last};
}

std::vector<BoundedCurve> chainOf(const Handle(Geom_Curve) & curve) {
    std::vector<BoundedCurve> pieces;
    const double first = curve->FirstParameter(), last = curve->LastParameter();
    for (const auto& piece :
         server::biarcChain(GeomAdaptor_Curve(curve), first, last, {1e-4, {}}).pieces) {
        pieces.push_back(bounded(piece));
    }
    return pieces;
}

double distance(const gp_Pnt& point, const Handle(Geom_Curve) & curve) {
    return GeomAPI_ProjectPointOnCurve(point, curve).LowerDistance();
}

double greatestDistance(const BoundedCurve& from, const Handle(Geom_Curve) & to) {
    double worst = 0.0;
    for (int i = 1; i < 200; ++i) {
        const double t = from.first + (from.last - from.first) * i / 200;
        worst = std::max(worst, distance(from.curve->Value(t), to));
    }
    return worst;
}

Handle(Geom_BSplineCurve) wave() {
    TColgp_Array1OfPnt points(1, 6);
    for (int i = 1; i <= 6; ++i) points(i) = gp_Pnt(10.0 * i, 8.0 * std::sin(2.0 * i), 3.0 * i * i);
    return GeomAPI_PointsToBSpline(points).Curve();
}

TEST(JoinedCurve, RunsFromEndToEndAlongTheOriginal) {
    const Handle(Geom_BSplineCurve) original = wave();
    const auto pieces = chainOf(original);
    ASSERT_GT(pieces.size(), 4U);
    const auto whole = joined(pieces, 1e-4);
    ASSERT_TRUE(whole);
    EXPECT_LT(whole->curve.start().Distance(original->StartPoint()), 1e-9);
    EXPECT_LT(whole->curve.end().Distance(original->EndPoint()), 1e-9);
    EXPECT_LT(greatestDistance(whole->curve, original), 1.5e-4);
    EXPECT_LT(whole->deviation, 2e-4);
}

TEST(JoinedCurve, IsSmoothWhereTheChainIs) {
    const auto whole = joined(chainOf(wave()), 1e-4);
    ASSERT_TRUE(whole);
    EXPECT_TRUE(whole->curve.curve->IsCN(1));
}

TEST(JoinedCurve, FollowsStrongBends) {
    const Handle(Geom_Curve) ellipse = new Geom_Ellipse(gp_Ax2(), 20.0, 3.0);
    const auto whole = joined(chainOf(ellipse), 1e-4);
    ASSERT_TRUE(whole);
    EXPECT_LT(whole->curve.start().Distance(whole->curve.end()), 1e-9);
    EXPECT_LT(greatestDistance(whole->curve, ellipse), 1.5e-4);
}

TEST(JoinedCurve, FollowsWideArcsThatAreNoBiarcs) {
    const Handle(Geom_Curve) circle = new Geom_Circle(gp_Ax2(), 50.0);
    const auto whole = joined({{circle, 0.0, 2.0}, {circle, 2.0, 5.5}}, 1e-4);
    ASSERT_TRUE(whole);
    EXPECT_LT(greatestDistance(whole->curve, circle), 1e-5);
}

TEST(JoinedCurve, TellsWhatContinues) {
    const Handle(Geom_Curve) circle = new Geom_Circle(gp_Ax2(), 5.0);
    const BoundedCurve arc{circle, 0.0, 1.0};
    const gp_Vec tangent(-std::sin(1.0), std::cos(1.0), 0.0);
    const auto line = [&](const gp_Pnt& from, const gp_Dir& along) {
        return BoundedCurve{new Geom_Line(from, along), 0.0, 2.0};
    };
    EXPECT_TRUE(continues(arc, {circle, 1.0, 2.0}, 1e-6));
    EXPECT_TRUE(continues(arc, line(arc.end(), tangent), 1e-6));
    EXPECT_FALSE(continues(arc, {circle, 1.1, 2.0}, 1e-6));
    EXPECT_FALSE(continues(arc, line(arc.end(), -tangent), 1e-6));
    EXPECT_FALSE(continues(arc, line(arc.end(), gp_Dir(1, 1, 0)), 1e-6));
}

TEST(JoinedCurve, LeavesEllipsesAlone) {
    const Handle(Geom_Curve) ellipse = new Geom_Ellipse(gp_Ax2(), 5.0, 3.0);
    EXPECT_FALSE(joined({{ellipse, 0.0, 1.0}, {ellipse, 1.0, 2.0}}, 1e-4));
}

} // namespace
} // namespace host
