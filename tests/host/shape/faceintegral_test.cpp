// SPDX-License-Identifier: Apache-2.0
// Areas and volumes that are known by formula.
#include "host/shape/faceintegral.h"

#include "tests/host/shape/integralover.h"
#include "tests/server/shapes.h"

#include <gtest/gtest.h>

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
        EXPECT_NEAR(found.area, known.area, 1e-9 * known.area) << known.name;
        EXPECT_NEAR(found.volume, known.volume, 1e-9 * known.volume) << known.name;
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

TEST(FaceIntegral, IsNegativeForAShellThatIsInsideOut) {
    const TopoDS_Shape insideOut = box().Reversed();
    EXPECT_NEAR(integralOver(insideOut).volume, -6000.0, 1e-9);
    EXPECT_NEAR(integralOver(insideOut).area, 2200.0, 1e-9);
}

} // namespace
} // namespace host
