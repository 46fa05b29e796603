// SPDX-License-Identifier: Apache-2.0
// Areas and volumes that are known by formula.
#include "host/measure/faceintegral.h"

#include "tests/host/measure/integralover.h"
#include "tests/server/shapes.h"

#include <BRepBuilderAPI_MakeEdge.hxx>
#include <BRepBuilderAPI_NurbsConvert.hxx>
#include <BRepBuilderAPI_Transform.hxx>
#include <BRepPrimAPI_MakeCone.hxx>
#include <BRep_Builder.hxx>
#include <BRep_Tool.hxx>
#include <Geom2d_Line.hxx>
#include <Geom_CylindricalSurface.hxx>
#include <TopoDS_Edge.hxx>
#include <TopoDS_Wire.hxx>
#include <gp_Ax1.hxx>
#include <gp_Ax3.hxx>
#include <gp_Circ.hxx>
#include <gp_Trsf.hxx>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace host {
namespace {

using namespace server::testing;

using std::numbers::pi;

struct Known {
    const char* name;
    double area, volume;
};

TEST(FaceIntegral, AgreesWithFormulas) {
    const double slant = std::hypot(5.0, 11.0);
    const double perimeter = 4 * 6 * std::comp_ellint_2(std::sqrt(1 - 2.5 * 2.5 / (6 * 6)));
    const Known cases[] = {
        {"Box", 2200.0, 6000.0},
        {"Sphere", 4 * pi * 49, 4.0 / 3.0 * pi * 343},
        {"SplineSphere", 4 * pi * 49, 4.0 / 3.0 * pi * 343},
        {"Cylinder", 2 * pi * 7 * (7 + 11), pi * 49 * 11},
        {"FullCone", pi * 7 * (7 + std::hypot(7.0, 11.0)), pi * 49 * 11 / 3},
        {"WideningCone", pi * (4 + 49 + 9 * slant), pi * 11 / 3 * (4 + 14 + 49)},
        {"Torus", 4 * pi * pi * 7 * 3, 2 * pi * pi * 7 * 9},
        {"EllipticBar", perimeter * 8 + 2 * pi * 6 * 2.5, pi * 6 * 2.5 * 8},
        {"BoxWithVoids", 2200 + 4 * pi * 9 + 4 * pi * pi * 2.5, 6000 - 36 * pi - 2 * pi * pi * 2.5},
    };
    for (const Known& known : cases) {
        const FaceIntegral found = integralOver(shapeNamed(known.name));
        EXPECT_NEAR(found.area, known.area, 1e-8 * known.area) << known.name;
        EXPECT_NEAR(found.volume, known.volume, 1e-8 * known.volume) << known.name;
    }
}

TEST(FaceIntegral, GivesTheVolumeWhateverTheReference) {
    for (const char* name : {"CrossedPipes", "MirroredPipes", "Vase", "SplinePocket"}) {
        const TopoDS_Shape shape = shapeNamed(name);
        const double volume = integralOver(shape).volume;
        EXPECT_GT(volume, 0.0);
        EXPECT_NEAR(integralOver(shape, gp_Pnt(50, -20, 9)).volume, volume, 1e-7 * volume) << name;
    }
}

TopoDS_Shape tilted(const TopoDS_Shape& shape) {
    gp_Trsf turn;
    turn.SetRotation(gp_Ax1(gp_Pnt(), gp_Dir(1, 2, 3)), 0.7);
    return BRepBuilderAPI_Transform(shape, turn).Shape();
}

TEST(FaceIntegral, IsExactAboutATipOrACornerOfTheShape) {
    const TopoDS_Shape cone = BRepPrimAPI_MakeCone(0.0, 7.0, 11.0).Shape();
    const TopoDS_Shape countersink = BRepPrimAPI_MakeCone(gp_Ax2(), 0.0, 7.0, 11.0, 2.5).Shape();
    const double third = 49 * 11 / 3.0, side = 7 * std::hypot(7.0, 11.0);
    const struct {
        const char* name;
        TopoDS_Shape shape;
        double area, volume;
    } cases[] = {
        {"cone", cone, pi * (49 + side), pi * third},
        {"tilted cone", tilted(cone), pi * (49 + side), pi * third},
        {"part of a cone", countersink, 1.25 * (49 + side) + 77, 1.25 * third},
        {"cone of splines", BRepBuilderAPI_NurbsConvert(tilted(cone)).Shape(), pi * (49 + side),
         pi * third},
        {"box of splines", tilted(BRepBuilderAPI_NurbsConvert(box()).Shape()), 2200.0, 6000.0},
    };
    for (const auto& [name, shape, area, volume] : cases) {
        const FaceIntegral found = integralOver(shape);
        EXPECT_NEAR(found.area, area, 1e-8 * area) << name;
        EXPECT_NEAR(found.volume, volume, 1e-8 * volume) << name;
        EXPECT_NEAR(integralOver(shape, gp_Pnt(3, -5, 8)).volume, volume, 1e-7 * volume) << name;
    }
}

/// A quarter of a cylinder's wall, radius 2 and height 3, whose edges share no vertex. They stand
/// in the wire in the order of `places`.
TopoDS_Face looseWall(const std::vector<int>& places) {
    const gp_Pnt a(2, 0, 0), b(0, 2, 0), c(0, 2, 3), d(2, 0, 3);
    const gp_Circ low(gp::XOY(), 2), high(gp_Ax2(gp_Pnt(0, 0, 3), gp::DZ()), 2);
    const TopoDS_Edge edges[] = {
        BRepBuilderAPI_MakeEdge(low, a, b), BRepBuilderAPI_MakeEdge(b, c),
        TopoDS::Edge(BRepBuilderAPI_MakeEdge(high, d, c).Edge().Reversed()),
        BRepBuilderAPI_MakeEdge(d, a)};
    const Handle(Geom_Surface) cylinder = new Geom_CylindricalSurface(gp_Ax3(), 2);
    const gp_Pnt2d ends[][2] = {
        {{0, 0}, {pi / 2, 0}}, {{pi / 2, 0}, {pi / 2, 3}}, {{0, 3}, {pi / 2, 3}}, {{0, 3}, {0, 0}}};
    const BRep_Builder builder;
    TopoDS_Face face;
    TopoDS_Wire wire;
    builder.MakeFace(face, cylinder, 1e-7);
    builder.MakeWire(wire);
    for (const int place : places) {
        const auto& [from, to] = ends[place];
        double first = 0.0, last = 0.0;
        BRep_Tool::Range(edges[place], first, last);
        const gp_Vec2d along(from, to);
        const gp_Pnt2d origin = from.Translated(along.Normalized() * -first);
        builder.UpdateEdge(edges[place], new Geom2d_Line(origin, gp_Dir2d(along)), face, 1e-7);
        builder.Add(wire, edges[place]);
    }
    builder.Add(face, wire);
    return face;
}

TEST(FaceIntegral, WalksEveryEdgeWhateverTheWireIsLike) {
    std::vector<int> places{0, 1, 2, 3};
    do {
        EXPECT_NEAR(integralOf(looseWall(places), gp_Pnt()).area, 3 * pi, 1e-9);
    } while (std::next_permutation(places.begin(), places.end()));
    EXPECT_THROW(integralOf(looseWall({0, 2, 3}), gp_Pnt()), OpenBorder);
}

TEST(FaceIntegral, IsNegativeForAShellThatIsInsideOut) {
    const TopoDS_Shape insideOut = box().Reversed();
    EXPECT_NEAR(integralOver(insideOut).volume, -6000.0, 1e-9);
    EXPECT_NEAR(integralOver(insideOut).area, 2200.0, 1e-9);
}

} // namespace
} // namespace host
