// SPDX-License-Identifier: Apache-2.0
// Known solids, sent as records, come back as the same solids.
#include "host/shape/modelbuilder.h"

#include "host/shape/measure.h"
#include "tests/host/measure/integralover.h"
#include "tests/host/shape/recordofshape.h"
#include "tests/server/shapes.h"

#include <BRepBuilderAPI_MakeFace.hxx>
#include <BRepBuilderAPI_MakePolygon.hxx>
#include <BRepBuilderAPI_MakeVertex.hxx>
#include <BRepClass3d_SolidClassifier.hxx>
#include <BRepPrimAPI_MakePrism.hxx>
#include <TopExp_Explorer.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Vertex.hxx>
#include <gtest/gtest.h>

#include <cmath>

namespace host {
namespace {

using namespace server::testing;

struct Rebuilt {
    BuiltModel model;
    RebuiltModel figures;
    std::vector<DroppedRecord> dropped;
};

Rebuilt rebuilt(const ModelRecord& record) {
    Rebuilt result;
    Progress progress;
    progress.drops = [&](const DroppedRecord& drop) { result.dropped.push_back(drop); };
    result.model = builtModel(record, progress);
    result.figures = measured(result.model, progress);
    return result;
}

/// In inches, so that a length which isn't scaled shows in area and volume.
TEST(ModelBuilder, GivesEverySolidBackAsItWasInMetres) {
    constexpr double inch = 25.4, metres = inch / 1000.0;
    for (const NamedShape& each : solidShapes()) {
        SCOPED_TRACE(each.name);
        const TopoDS_Shape original = each.make();
        const Rebuilt result = rebuilt(recordOfShape(original, inch));
        EXPECT_TRUE(result.dropped.empty()) << result.dropped.front().why;
        EXPECT_EQ(result.figures.faces, countOf(original, TopAbs_FACE));
        EXPECT_EQ(result.figures.shells, each.shells);
        EXPECT_EQ(countOf(result.model.shape, TopAbs_SOLID), countOf(original, TopAbs_SOLID));
        EXPECT_TRUE(result.figures.closed);
        EXPECT_EQ(result.figures.valid, true);
        const FaceIntegral expected = integralOver(original);
        const double area = expected.area * std::pow(metres, 2);
        const double volume = expected.volume * std::pow(metres, 3);
        EXPECT_NEAR(result.figures.areaM2, area, 1e-6 * area);
        EXPECT_NEAR(result.figures.volumeM3, volume, 1e-6 * volume);
    }
    const RebuiltModel figures = rebuilt(recordOfShape(box(), inch)).figures;
    EXPECT_NEAR(figures.boundingBoxM[5], 30 * metres, 1e-9);
    EXPECT_EQ(figures.edges, 12);
}

TEST(ModelBuilder, JoinsThePiecesOfFreeFormEdges) {
    for (const char* name : {"CrossedPipes", "ExtrudedSpline"}) {
        const TopoDS_Shape original = shapeNamed(name);
        const ModelRecord record = recordOfShape(original);
        EXPECT_GT(static_cast<int>(record.edges.size()), countOf(original, TopAbs_EDGE));
        EXPECT_EQ(rebuilt(record).figures.edges, countOf(original, TopAbs_EDGE)) << name;
    }
}

TEST(ModelBuilder, KeepsTheAreaOfEachFaceWithAFreeFormBorder) {
    for (const TopoDS_Shape& original : {splineStrip(), shapeNamed("CrossedPipes")}) {
        const Rebuilt result = rebuilt(recordOfShape(original));
        EXPECT_TRUE(result.dropped.empty());
        std::size_t place = 0;
        for (TopExp_Explorer walk(original, TopAbs_FACE); walk.More(); walk.Next(), ++place) {
            SCOPED_TRACE(place);
            ASSERT_LT(place, result.model.faces.size());
            const FaceIntegral expected = integralOf(TopoDS::Face(walk.Current()), gp_Pnt());
            const FaceIntegral face = integralOf(result.model.faces[place].face, gp_Pnt());
            EXPECT_NEAR(face.area, expected.area, 1e-6 * expected.area);
        }
    }
}

TEST(ModelBuilder, PutsVoidsIntoTheSolidAroundThem) {
    const BuiltModel model = rebuilt(recordOfShape(shapeNamed("TwoSolids"))).model;
    int withVoids = 0;
    for (TopExp_Explorer walk(model.shape, TopAbs_SOLID); walk.More(); walk.Next()) {
        if (countOf(walk.Current(), TopAbs_SHELL) != 3) continue;
        ++withVoids;
        BRepClass3d_SolidClassifier inside(walk.Current(), gp_Pnt(5, 10, 22), 1e-7);
        EXPECT_EQ(inside.State(), TopAbs_OUT);
        inside.Perform(gp_Pnt(5, 10, 15.5), 1e-7);
        EXPECT_EQ(inside.State(), TopAbs_IN);
    }
    EXPECT_EQ(withVoids, 1);
}

/// A square plate with a triangular hole. Both loops go through one corner of the plate.
TopoDS_Shape plateWithTouchingHole() {
    const TopoDS_Vertex shared = BRepBuilderAPI_MakeVertex(gp_Pnt(0, 0, 0));
    const auto corner = [](double x, double y) {
        return TopoDS_Vertex(BRepBuilderAPI_MakeVertex(gp_Pnt(x, y, 0)));
    };
    BRepBuilderAPI_MakePolygon border(shared, corner(10, 0), corner(10, 10), corner(0, 10), true);
    BRepBuilderAPI_MakePolygon hole(shared, corner(4, 6), corner(6, 4), true);
    BRepBuilderAPI_MakeFace face(border.Wire(), true);
    face.Add(hole.Wire());
    return BRepPrimAPI_MakePrism(face.Face(), gp_Vec(0, 0, 3)).Shape();
}

TEST(ModelBuilder, LetsLoopsTouchAtAVertex) {
    const TopoDS_Shape original = plateWithTouchingHole();
    const Rebuilt result = rebuilt(recordOfShape(original));
    EXPECT_TRUE(result.dropped.empty()) << result.dropped.front().why;
    EXPECT_EQ(result.figures.valid, true);
    EXPECT_NEAR(result.figures.volumeM3 * 1e9, (100.0 - 10.0) * 3.0, 1e-9);
}

TEST(ModelBuilder, LeavesWhatIsMissingOpen) {
    ModelRecord record = recordOfShape(box());
    record.shells[0].faces.pop_back();
    const Rebuilt result = rebuilt(record);
    EXPECT_EQ(result.figures.faces, 5);
    EXPECT_FALSE(result.figures.closed);
    EXPECT_EQ(result.figures.volumeM3, 0.0);
    EXPECT_EQ(countOf(result.model.shape, TopAbs_SOLID), 0);
    EXPECT_EQ(countOf(result.model.shape, TopAbs_SHELL), 1);
}

TEST(ModelBuilder, FindsTheSeamThatDidNotArrive) {
    // A cylinder whose side is bounded by two circles and nothing else.
    ModelRecord record = recordOfShape(shapeNamed("Cylinder"));
    for (auto& [identifier, loop] : record.loops) {
        if (loop.edges.size() < 4) continue;
        std::map<Identifier, int> uses;
        for (const Identifier edge : loop.edges) ++uses[edge];
        std::vector<Identifier> circles;
        for (const auto& [edge, times] : uses) {
            if (times == 1) circles.push_back(edge);
        }
        ASSERT_EQ(circles.size(), 2U);
        loop.edges = {circles[0]};
        record.loops[1000] = {{circles[1]}, false};
        for (auto& face : record.faces) {
            if (face.second.loops.front() == identifier) face.second.loops.push_back(1000);
        }
        break;
    }
    const Rebuilt result = rebuilt(record);
    const double expected = integralOver(shapeNamed("Cylinder")).area;
    EXPECT_EQ(result.figures.faces, 3);
    EXPECT_NEAR(result.figures.areaM2 * 1e6, expected, 1e-6 * expected);
}

TEST(ModelBuilder, BeginsEachFaceBeforeItBuildsIt) {
    const ModelRecord record = recordOfShape(box());
    std::vector<Identifier> begun;
    Progress progress;
    progress.begins = [&](const Step& step) {
        if (step.what == "face") begun.push_back(step.identifier);
    };
    progress.skipped.insert({1, "face", record.shells[0].faces[2]});
    const BuiltModel model = builtModel(record, progress);
    EXPECT_EQ(begun.size(), 5U);
    EXPECT_EQ(model.faces.size(), 5U);
    EXPECT_EQ(std::count(begun.begin(), begun.end(), record.shells[0].faces[2]), 0);
}

} // namespace
} // namespace host
