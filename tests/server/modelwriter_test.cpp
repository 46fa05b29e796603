// SPDX-License-Identifier: Apache-2.0
// Shapes are written and the messages read back and held against the conventions of the exchange.
#include "server/writing/modelwriter.h"

#include "tests/server/shapes.h"
#include "tests/server/wirecheck.h"
#include "tests/server/wiregeometry.h"

#include <BRepBuilderAPI_MakeFace.hxx>
#include <BRepLib.hxx>
#include <BRepPrimAPI_MakeBox.hxx>
#include <BRepPrimAPI_MakeCylinder.hxx>
#include <BRep_Builder.hxx>
#include <GeomConvert.hxx>
#include <Geom_BSplineSurface.hxx>
#include <Geom_Circle.hxx>
#include <Geom_Line.hxx>
#include <Geom_OffsetSurface.hxx>
#include <Geom_Plane.hxx>
#include <Geom_RectangularTrimmedSurface.hxx>
#include <Geom_SurfaceOfLinearExtrusion.hxx>
#include <Geom_SurfaceOfRevolution.hxx>
#include <Geom_ToroidalSurface.hxx>
#include <TopExp_Explorer.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Compound.hxx>

#include <QBuffer>

#include <gtest/gtest.h>

#include <numbers>

namespace server::testing {
namespace {

constexpr double pi = std::numbers::pi;

struct Written {
    WireModel model;
    Report report;
};

Written written(const TopoDS_Shape& shape, double unit = 1.0) {
    Written result;
    result.report.unit.millimetres = unit;
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    Progress silent(nullptr);
    writeModel(bodiesOf(shape, {}, result.report), stream, silent, result.report);
    result.model = readWireModel(bytes);
    return result;
}

class SolidShapes : public ::testing::TestWithParam<NamedShape> {};

TEST_P(SolidShapes, ArriveWholeAndTheRightWayRound) {
    const TopoDS_Shape shape = GetParam().make();
    const auto [model, report] = written(shape);
    EXPECT_EQ(brokenConventions(model), "");
    EXPECT_EQ(static_cast<int>(model.faces.size()), countOf(shape, TopAbs_FACE));
    EXPECT_TRUE(report.written.count(GetParam().surface));
    EXPECT_TRUE(report.drops.empty()) << report.json();
    for (const auto& [id, shell] : model.shells) EXPECT_TRUE(shell.closed);
    EXPECT_EQ(misplacedMaterial(model, shape), "");
}

INSTANTIATE_TEST_SUITE_P(All, SolidShapes, ::testing::ValuesIn(solidShapes()),
                         [](const auto& shape) { return shape.param.name; });

TEST(ModelWriter, KeepsTheOrderOfTheExchange) {
    const std::vector<std::string> expected{
        "NewModel",   "CreatePlane", "CreateLine",  "CreateEdge", "CreateCoedge", "CreateVertex",
        "CreateLoop", "CreateFace",  "CreateShell", "CreateBody", "EndModel"};
    EXPECT_EQ(written(box()).model.order, expected);
}

TEST(ModelWriter, PutsVoidsIntoShellsOfTheSameBody) {
    const WireModel model = written(shapeNamed("BoxWithVoids")).model;
    ASSERT_EQ(model.bodies.size(), 1u);
    EXPECT_EQ(model.bodies.begin()->second.shells.size(), 3);
    int balls = 0;
    for (const auto& [id, surface] : model.surfaces) {
        const auto* ball = std::get_if<CADImport::CreateSphere>(&surface);
        if (!ball) continue;
        ++balls;
        EXPECT_GT(ball->uRange.first, ball->uRange.last) << "outside is in the void";
    }
    EXPECT_EQ(balls, 1);
}

TEST(ModelWriter, GivesSeamsBothSidesOnTheSameFace) {
    const WireModel model = written(BRepPrimAPI_MakeCylinder(4, 10).Shape()).model;
    int seams = 0;
    for (const auto& [id, edge] : model.edges) {
        if (edge.faces[0] != edge.faces[1]) continue;
        ++seams;
        const auto& loop = model.loops.at(model.coedges.at(edge.coedges[0]).loop);
        EXPECT_LT(loop.coedges.indexOf(edge.coedges[0]), loop.coedges.indexOf(edge.coedges[1]));
    }
    EXPECT_EQ(seams, 1);
}

TEST(ModelWriter, LeavesTheSecondSideOfAnOpenShellEmpty) {
    TopExp_Explorer face(box(), TopAbs_FACE);
    const auto [model, report] = written(face.Current());
    EXPECT_EQ(brokenConventions(model), "");
    ASSERT_EQ(model.edges.size(), 4u);
    for (const auto& [id, edge] : model.edges) EXPECT_EQ(edge.faces[1], 0);
    EXPECT_FALSE(model.shells.at(1).closed);
}

TEST(ModelWriter, WritesAnEdgeWithFourUsesAsTwo) {
    const WireModel model = written(shapeNamed("TouchingAlongAnEdge")).model;
    int common = 0;
    for (const auto& [id, edge] : model.edges) {
        const gp_Pnt middle = curvePoint(model.curves.at(edge.curve), 0.5);
        if (middle.Distance(gp_Pnt(10, 10, 5)) < 1e-9) ++common;
        EXPECT_NE(edge.faces[1], 0);
    }
    EXPECT_EQ(common, 2);
}

TEST(ModelWriter, NumbersThePiecesOfAFreeFormEdge) {
    const WireModel model = written(extrudedSpline()).model;
    std::map<int, int> pieces;
    for (const auto& [id, edge] : model.edges) ++pieces[id >> 8];
    EXPECT_EQ(pieces.size(), 6u) << "the prism has six edges";
    for (const auto& [number, count] : pieces) {
        for (int k = 0; k + 1 < count; ++k) {
            const auto& here = model.edges.at((number << 8) | k);
            const auto& next = model.edges.at((number << 8) | (k + 1));
            EXPECT_EQ(here.vertices[1], next.vertices[0]);
            EXPECT_LT(curveTangent(model.curves.at(here.curve), 1)
                          .Angle(curveTangent(model.curves.at(next.curve), 0)),
                      1e-4);
        }
    }
}

TEST(ModelWriter, SaysUnitAccuracyAndBox) {
    const WireModel model = written(box(), 25.4).model;
    EXPECT_EQ(model.header.unit, 25.4);
    EXPECT_TRUE(model.header.absolute);
    EXPECT_NEAR(model.header.accuracy, 1e-7, 1e-9);
    const auto& shellBox = model.shells.at(1).boundingBox;
    EXPECT_NEAR(shellBox.first.x, 0, 1e-9);
    EXPECT_NEAR(shellBox.second.z, 30, 1e-9);
}

/// A face on a surface of another system's liking, over a range of its parameters.
TopoDS_Shape patch(const Handle(Geom_Surface) & surface, double u1, double u2, double v1,
                   double v2) {
    const TopoDS_Face face = BRepBuilderAPI_MakeFace(surface, u1, u2, v1, v2, 1e-7).Face();
    BRepLib::SameParameter(face, 1e-7, Standard_True);
    return face;
}

Handle(Geom_Surface) revolved(const Handle(Geom_Curve) & curve) {
    return new Geom_SurfaceOfRevolution(curve, gp_Ax1(gp_Pnt(1, 1, 1), gp_Dir(0, 0, -1)));
}

struct Sweep {
    const char* name;
    Handle(Geom_Surface) surface;
    double v1, v2;
    const char* wireName;
};

std::vector<Sweep> sweeps() {
    const auto line = [](gp_Pnt origin, gp_Dir along) -> Handle(Geom_Curve) {
        return new Geom_Line(origin, along);
    };
    const Handle(Geom_Curve) across =
        new Geom_Circle(gp_Ax2(gp_Pnt(9, 1, 4), gp_Dir(0, -1, 0), gp_Dir(1, 0, 1)), 3);
    const Handle(Geom_Curve) centred =
        new Geom_Circle(gp_Ax2(gp_Pnt(1, 1, 4), gp_Dir(0, 1, 0), gp_Dir(0.6, 0, 0.8)), 3);
    const Handle(Geom_Curve) flat = new Geom_Circle(gp_Ax2(gp_Pnt(2, 2, 0), gp_Dir(0, 0, -1)), 3);
    return {
        {"plane", new Geom_SurfaceOfLinearExtrusion(line({1, 2, 3}, {1, 0, 0}), gp_Dir(0, 1, 1)),
         -2, 3, "CreatePlane"},
        {"cylinder", new Geom_SurfaceOfLinearExtrusion(flat, gp_Dir(0, 0, 1)), 1, 5,
         "CreateCylinder"},
        {"parallel line", revolved(line({4, 1, 0}, {0, 0, 1})), 1, 5, "CreateCylinder"},
        {"slanting line", revolved(line({4, 1, 0}, {1, 0, 1})), 1, 5, "CreateCone"},
        {"slanting line inward", revolved(line({4, 1, 0}, {-1, 0, -1})), 6, 9, "CreateCone"},
        {"line from the axis", revolved(line({1, 1, 0}, {1, 0, 1})), 1, 5, "CreateCone"},
        {"circle", revolved(across), -1, 1, "CreateTorus"},
        {"centred circle", revolved(centred), -0.5, 0.5, "CreateSphere"},
        {"centred circle beyond the pole", revolved(centred), 0, 3, "CreateNURBSSurface"},
        {"torus through its axis",
         new Geom_ToroidalSurface(gp_Ax3(gp_Pnt(1, 2, 3), gp::DZ()), 2, 5), 2.8, 3.4,
         "CreateTorus"},
        {"skew line", revolved(line({4, 1, 0}, {1, 1, 1})), 1, 5, "CreateNURBSSurface"},
        {"spline around a tube",
         GeomConvert::SurfaceToBSplineSurface(
             new Geom_ToroidalSurface(gp_Ax3(gp_Pnt(1, 2, 3), gp::DZ()), 9, 2)),
         2 * pi + 0.4, 2 * pi + 2.5, "CreateNURBSSurface"},
        {"wavy offset", new Geom_OffsetSurface(revolved(line({4, 1, 0}, {1, 1, 1})), 0.5), 1, 5,
         "CreateNURBSSurface"},
    };
}

/// The direction that the original face calls outside, at the middle of an edge of the patch.
gp_Vec originalSide(const Sweep& sweep, const gp_Pnt& point) {
    double best = 1e9;
    gp_Vec side;
    for (int i = 0; i <= 200; ++i) {
        for (int j = 0; j <= 200; ++j) {
            gp_Pnt p;
            gp_Vec u, v;
            sweep.surface->D1(0.2 + 1.1 * i / 200, sweep.v1 + (sweep.v2 - sweep.v1) * j / 200, p, u,
                              v);
            if (p.Distance(point) < best) {
                best = p.Distance(point);
                side = u.Crossed(v).Normalized();
            }
        }
    }
    return side;
}

TEST(ModelWriter, TellsSweptSurfacesByTheirPlainerFormAndKeepsTheirSide) {
    for (const Sweep& sweep : sweeps()) {
        SCOPED_TRACE(sweep.name);
        const TopoDS_Shape face = patch(sweep.surface, 0.2, 1.3, sweep.v1, sweep.v2);
        for (const bool turned : {false, true}) {
            const auto [model, report] = written(turned ? face.Reversed() : face);
            EXPECT_EQ(brokenConventions(model), "");
            EXPECT_EQ(report.written.count(sweep.wireName), 1u);
            ASSERT_FALSE(model.curves.empty());
            for (const auto& [id, curve] : model.curves) {
                const gp_Pnt point = curvePoint(curve, 0.5);
                const gp_Vec side = originalSide(sweep, point) * (turned ? -1 : 1);
                EXPECT_GT(viewSurface(model.surfaces.at(1), point).outward.Dot(side), 0.9);
            }
        }
    }
}

TEST(ModelWriter, KeepsTheRangeOfAFaceInTheParametersThatItSends) {
    for (const Sweep& sweep : sweeps()) {
        SCOPED_TRACE(sweep.name);
        const WireModel model = written(patch(sweep.surface, 0.2, 1.3, sweep.v1, sweep.v2)).model;
        const auto& box = model.faces.at(1).uvBox;
        const bool periodic =
            !std::holds_alternative<CADImport::CreatePlane>(model.surfaces.at(1)) &&
            !std::holds_alternative<CADImport::CreateNURBSSurface>(model.surfaces.at(1));
        if (std::holds_alternative<CADImport::CreateNURBSSurface>(model.surfaces.at(1))) {
            EXPECT_NEAR(box.second.v - box.first.v, sweep.v2 - sweep.v1, 1e-9);
        }
        const bool isTorus = std::holds_alternative<CADImport::CreateTorus>(model.surfaces.at(1));
        for (const auto& [id, curve] : model.curves) {
            SurfaceView view = viewSurface(model.surfaces.at(1), curvePoint(curve, 0.5));
            while (periodic && view.u < box.first.u - 1e-3) view.u += 2 * pi;
            while (periodic && view.u > box.second.u + 1e-3) view.u -= 2 * pi;
            while (isTorus && view.v < box.first.v - 1e-3) view.v += 2 * pi;
            EXPECT_GT(view.u, box.first.u - 1e-3);
            EXPECT_GT(view.v, box.first.v - 1e-3);
            EXPECT_LT(view.v, box.second.v + 1e-3);
        }
    }
}

TEST(ModelWriter, AllowsForHowCloselyALineIsRecognised) {
    const Handle(Geom_Surface) square =
        new Geom_RectangularTrimmedSurface(new Geom_Plane(gp::XOY()), 0.0, 1.0, 0.0, 1.0);
    const TopoDS_Shape face = patch(GeomConvert::SurfaceToBSplineSurface(square), 0, 1, 0, 1);
    Report report;
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    Progress silent(nullptr);
    const auto bodies = writeModel(bodiesOf(face, {}, report), stream, silent, report);
    ASSERT_EQ(bodies.size(), 1u);
    EXPECT_NEAR(bodies[0].faces.at(0).slack, 4e-6, 1e-9);
}

TEST(ModelWriter, DropsWhatBoundsNothingAndSaysSo) {
    TopoDS_Compound all;
    BRep_Builder builder;
    builder.MakeCompound(all);
    builder.Add(all, box());
    TopExp_Explorer edge(BRepPrimAPI_MakeBox(1, 1, 1).Shape(), TopAbs_EDGE);
    builder.Add(all, edge.Current());
    const Handle(Geom_Surface) plane =
        new Geom_SurfaceOfLinearExtrusion(new Geom_Line(gp::OX()), gp::DY());
    builder.Add(all, BRepBuilderAPI_MakeFace(plane, 1e-7).Face());
    const auto [model, report] = written(all);
    EXPECT_EQ(model.faces.size(), 6u);
    ASSERT_GE(report.drops.size(), 2u);
    EXPECT_EQ(report.drops[0].what, "free edges");
    EXPECT_EQ(brokenConventions(model), "");
}

} // namespace
} // namespace server::testing
