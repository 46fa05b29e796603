// SPDX-License-Identifier: Apache-2.0
// Boxes against formulas, and against points of the faces.
#include "host/measure/boundingbox.h"

#include "tests/server/shapes.h"

#include <BRepAdaptor_Surface.hxx>
#include <BRepBuilderAPI_NurbsConvert.hxx>
#include <BRepBuilderAPI_Transform.hxx>
#include <BRepPrimAPI_MakeSphere.hxx>
#include <BRepPrimAPI_MakeTorus.hxx>
#include <BRepTools.hxx>
#include <BRepTopAdaptor_FClass2d.hxx>
#include <Precision.hxx>
#include <TopExp_Explorer.hxx>
#include <TopoDS.hxx>
#include <gp_Ax1.hxx>
#include <gp_Trsf.hxx>

#include <gtest/gtest.h>

#include <array>
#include <cmath>

namespace host {
namespace {

using namespace server::testing;

const gp_Ax1 tiltAxis(gp_Pnt(1, -2, 3), gp_Dir(1, 2, 3));
constexpr double tiltAngle = 0.7;

TopoDS_Shape turned(const TopoDS_Shape& shape) {
    gp_Trsf turn;
    turn.SetRotation(tiltAxis, tiltAngle);
    return BRepBuilderAPI_Transform(shape, turn).Shape();
}

Bnd_Box boxOfFaces(const TopoDS_Shape& shape) {
    Bnd_Box box;
    for (TopExp_Explorer walk(shape, TopAbs_FACE); walk.More(); walk.Next()) {
        box.Add(boxOf(TopoDS::Face(walk.Current())));
    }
    return box;
}

/// Of a sphere (thickness is its radius) or a torus around the origin, after the tilt.
Bnd_Box expectedBox(double majorRadius, double thickness) {
    const gp_Pnt centre = gp_Pnt().Rotated(tiltAxis, tiltAngle);
    const gp_Dir axis = gp::DZ().Rotated(tiltAxis, tiltAngle);
    std::array<double, 3> reach{};
    for (int i = 0; i < 3; ++i) {
        const double a = axis.Coord(i + 1);
        reach[static_cast<std::size_t>(i)] = thickness + majorRadius * std::sqrt(1 - a * a);
    }
    const gp_Vec half(reach[0], reach[1], reach[2]);
    Bnd_Box box;
    box.Add(centre.Translated(half));
    box.Add(centre.Translated(-half));
    return box;
}

void expectEqual(const Bnd_Box& found, const Bnd_Box& expected, double tolerance) {
    EXPECT_LT(found.CornerMin().Distance(expected.CornerMin()), tolerance);
    EXPECT_LT(found.CornerMax().Distance(expected.CornerMax()), tolerance);
}

TEST(BoundingBox, AgreesWithFormulas) {
    const TopoDS_Shape sphere = turned(BRepPrimAPI_MakeSphere(7.0).Shape());
    const TopoDS_Shape torus = turned(BRepPrimAPI_MakeTorus(7.0, 3.0).Shape());
    expectEqual(boxOfFaces(sphere), expectedBox(0, 7), 1e-9);
    expectEqual(boxOfFaces(torus), expectedBox(7, 3), 1e-9);
    const auto asSplines = [](const TopoDS_Shape& shape) {
        return BRepBuilderAPI_NurbsConvert(shape).Shape();
    };
    expectEqual(boxOfFaces(asSplines(sphere)), expectedBox(0, 7), 4e-5);
    expectEqual(boxOfFaces(asSplines(torus)), expectedBox(7, 3), 4e-5);
}

struct Sampled {
    Bnd_Box box;
    int outside = 0; ///< points of the face that the box under test doesn't hold
};

Sampled sampled(const TopoDS_Face& face, Bnd_Box underTest) {
    constexpr int steps = 40;
    Sampled result;
    double u1 = 0, u2 = 0, v1 = 0, v2 = 0;
    BRepTools::UVBounds(face, u1, u2, v1, v2);
    const BRepAdaptor_Surface surface(face);
    const BRepTopAdaptor_FClass2d classifier(face, Precision::PConfusion());
    underTest.Enlarge(1e-5);
    for (int i = 0; i <= steps; ++i) {
        for (int k = 0; k <= steps; ++k) {
            const gp_Pnt2d at(u1 + (u2 - u1) * i / steps, v1 + (v2 - v1) * k / steps);
            if (classifier.Perform(at) == TopAbs_OUT) continue;
            const gp_Pnt point = surface.Value(at.X(), at.Y());
            result.box.Add(point);
            result.outside += underTest.IsOut(point) ? 1 : 0;
        }
    }
    return result;
}

TEST(BoundingBox, HoldsTheFaceAndLittleMore) {
    for (const char* name : {"Box", "FullCone", "WideningCone", "EllipticBar", "CrossedPipes",
                             "MirroredPipes", "Vase", "SplinePocket", "BoxWithVoids"}) {
        const TopoDS_Shape shape = turned(shapeNamed(name));
        int number = 0;
        for (TopExp_Explorer walk(shape, TopAbs_FACE); walk.More(); walk.Next()) {
            SCOPED_TRACE(std::string(name) + ", face " + std::to_string(++number));
            const TopoDS_Face face = TopoDS::Face(walk.Current());
            const Bnd_Box box = boxOf(face);
            const auto [expected, outside] = sampled(face, box);
            EXPECT_EQ(outside, 0);
            expectEqual(box, expected, 0.04 * std::sqrt(expected.SquareExtent()));
        }
    }
}

} // namespace
} // namespace host
