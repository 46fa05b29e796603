// SPDX-License-Identifier: Apache-2.0
// Faces that belong to no shell come, whatever becomes of sewing them.
#include "server/reading/sewing.h"

#include "tests/server/shapes.h"

#include <BRepBuilderAPI_Transform.hxx>
#include <BRep_Tool.hxx>
#include <TopExp_Explorer.hxx>
#include <gp_Trsf.hxx>
#include <gp_Vec.hxx>

#include <gtest/gtest.h>

#include <algorithm>

namespace server::testing {
namespace {

/// Of a row of boxes that stand apart.
std::vector<TopoDS_Shape> facesOfBoxes(int count) {
    std::vector<TopoDS_Shape> faces;
    for (int i = 0; i < count; ++i) {
        gp_Trsf shift;
        shift.SetTranslation(gp_Vec(100.0 * i, 0, 0));
        const TopoDS_Shape moved = BRepBuilderAPI_Transform(box(), shift, true).Shape();
        for (TopExp_Explorer walk(moved, TopAbs_FACE); walk.More(); walk.Next()) {
            faces.push_back(walk.Current());
        }
    }
    return faces;
}

TEST(Sewing, ClosesWhatFitsTogether) {
    Report report;
    const auto shells = sewnShells(facesOfBoxes(2), {}, report);
    ASSERT_EQ(shells.size(), 2U);
    EXPECT_TRUE(std::all_of(shells.begin(), shells.end(),
                            [](const TopoDS_Shell& shell) { return BRep_Tool::IsClosed(shell); }));
    EXPECT_TRUE(report.notes.empty());
}

TEST(Sewing, LeavesTheFacesApartWhenItTakesTooLong) {
    Report report;
    SewingOptions options;
    options.processorSeconds = 0.01;
    EXPECT_EQ(sewnShells(facesOfBoxes(400), options, report).size(), 2400U);
    ASSERT_EQ(report.notes.size(), 1U);
    EXPECT_EQ(report.notes[0].what, "sewing");
    EXPECT_TRUE(report.drops.empty());
}

} // namespace
} // namespace server::testing
