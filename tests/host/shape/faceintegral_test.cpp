// SPDX-License-Identifier: Apache-2.0
// Areas and volumes that are known by formula.
#include "host/shape/faceintegral.h"

#include "tests/host/shape/testshapes.h"

#include <TopExp_Explorer.hxx>
#include <TopoDS.hxx>
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace host {
namespace {

using std::numbers::pi;

FaceIntegral integralOver(const TopoDS_Shape& shape, const gp_Pnt& reference = gp_Pnt()) {
    FaceIntegral sum;
    for (TopExp_Explorer walk(shape, TopAbs_FACE); walk.More(); walk.Next()) {
        const FaceIntegral face = integralOf(TopoDS::Face(walk.Current()), reference);
        sum.area += face.area;
        sum.volume += face.volume;
    }
    return sum;
}

TopoDS_Shape shapeNamed(const std::string& name) {
    for (const TestShape& shape : testShapes()) {
        if (shape.name == name) return shape.make();
    }
    return {};
}

struct Known {
    const char* name;
    double area, volume;
};

TEST(FaceIntegral, AgreesWithFormulas) {
    const double slant = std::hypot(5.0, 11.0);
    const Known cases[] = {
        {"box", 2200.0, 6000.0},
        {"sphere", 4 * pi * 49, 4.0 / 3.0 * pi * 343},
        {"splineSphere", 4 * pi * 49, 4.0 / 3.0 * pi * 343},
        {"cylinder", 2 * pi * 7 * (7 + 11), pi * 49 * 11},
        {"cone", pi * 7 * (7 + std::hypot(7.0, 11.0)), pi * 49 * 11 / 3},
        {"coneUpsideDown", pi * (4 + 49 + 9 * slant), pi * 11 / 3 * (4 + 14 + 49)},
        {"torus", 4 * pi * pi * 7 * 3, 2 * pi * pi * 7 * 9},
        {"boxWithVoids", 2200 + 4 * pi * 9 + 4 * pi * pi * 2.5, 6000 - 36 * pi - 2 * pi * pi * 2.5},
    };
    for (const Known& known : cases) {
        const FaceIntegral found = integralOver(shapeNamed(known.name));
        EXPECT_NEAR(found.area, known.area, 1e-9 * known.area) << known.name;
        EXPECT_NEAR(found.volume, known.volume, 1e-9 * known.volume) << known.name;
    }
}

TEST(FaceIntegral, MeasuresTheSideOfAnEllipticBar) {
    const double a = 6, b = 2.5, height = 8;
    const double perimeter = 4 * a * std::comp_ellint_2(std::sqrt(1 - b * b / (a * a)));
    const double expected = perimeter * height + 2 * pi * a * b;
    EXPECT_NEAR(integralOver(shapeNamed("ellipticBar")).area, expected, 1e-9 * expected);
}

TEST(FaceIntegral, GivesTheVolumeWhateverTheReference) {
    for (const char* name : {"crossedPipes", "mirroredPipes", "vase", "splinePocket"}) {
        const TopoDS_Shape shape = shapeNamed(name);
        const double volume = integralOver(shape).volume;
        EXPECT_GT(volume, 0.0);
        EXPECT_NEAR(integralOver(shape, gp_Pnt(50, -20, 9)).volume, volume, 1e-7 * volume) << name;
    }
}

TEST(FaceIntegral, IsNegativeForAShellThatIsInsideOut) {
    const TopoDS_Shape box = boxShape().Reversed();
    EXPECT_NEAR(integralOver(box).volume, -6000.0, 1e-9);
    EXPECT_NEAR(integralOver(box).area, 2200.0, 1e-9);
}

} // namespace
} // namespace host
