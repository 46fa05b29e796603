// SPDX-License-Identifier: Apache-2.0
// The lines of the trace, to the letter.
#include "tests/host/modelling/modellingtest.h"

#include <limits>

namespace host {
namespace {

class TraceTest : public ModellingTest {
protected:
    /// What was traced since the last call.
    std::string lines() {
        const std::string text = traced.str();
        traced.str({});
        return text;
    }
};

TEST_F(TraceTest, NamesCurvesByInterfaceAndOrdinal) {
    const SPtr<IZelLine> first;
    const SPtr<IZelLine> second;
    const SPtr<IZelArc> arc;
    const SPtr<IZelEllipse> ellipse;
    first->define({0, 0, 0}, {1, 0, 0}, nullptr, 0);
    second->define({0.1, -0.5, 1e300}, {1, 0, 0}, nullptr, 0);
    arc->define({1, 2, 3}, 4, {0, 0, 1}, {1, 0, 0}, 0, 1.5, nullptr, 0);
    ellipse->define({1, 2, 3}, {0, 0, 1}, {1, 0, 0}, 5, 4, 0, 1.5, nullptr, 0);
    EXPECT_EQ(lines(), R"(["IZelLine#1","define",[[0,0,0],[1,0,0],null,0]]
["IZelLine#2","define",[[0.10000000000000001,-0.5,1.0000000000000001e+300],[1,0,0],null,0]]
["IZelArc#1","define",[[1,2,3],4,[0,0,1],[1,0,0],0,1.5,null,0]]
["IZelEllipse#1","define",[[1,2,3],[0,0,1],[1,0,0],5,4,0,1.5,null,0]]
)");
}

TEST_F(TraceTest, WritesSurfacesRangesAndMatrices) {
    const SPtr<IZelPlane> plane;
    const SPtr<IZelCone> cone;
    const SPtr<IZelSphere> sphere;
    const SPtr<IZelTorus> torus;
    plane->define({0, 0, 0}, {0, 0, 1}, {1, 0, 0}, {2, -2}, {0, 1});
    cone->define({0, 0, 0}, {0, 0, 1}, {1, 0, 0}, 0.5, {0, 6}, {1, 2}, {0, 6}, {1, 2});
    sphere->define({0, 0, 0}, 3, {0, 0, 1}, {1, 0, 0}, {0, 6}, {1, 2}, nullptr, nullptr);
    torus->define({0, 0, 0}, {0, 0, 1}, 5, 2, {1, 0, 0}, {0, 6}, {1, 2}, nullptr, nullptr, 0);
    featureOf(plane)->transform(&millimetres);
    EXPECT_EQ(lines(), R"(["IZelPlane#1","define",[[0,0,0],[0,0,1],[1,0,0],[2,-2],[0,1]]]
["IZelCone#1","define",[[0,0,0],[0,0,1],[1,0,0],0.5,[0,6],[1,2],[0,6],[1,2]]]
["IZelSphere#1","define",[[0,0,0],3,[0,0,1],[1,0,0],[0,6],[1,2],null,null]]
["IZelTorus#1","define",[[0,0,0],[0,0,1],5,2,[1,0,0],[0,6],[1,2],null,null,0]]
["IZelPlane#1","transform",[[0.001,0,0,0,0,0.001,0,0,0,0,0.001,0,0,0,0,1]]]
)");
}

TEST_F(TraceTest, WritesKnotsAndControlPoints) {
    const SPtr<IZelNurbSurface> surface;
    surface->define(false, 1, 2, 2, 3);
    surface->setKnotU(0, 0.5);
    surface->setKnotV(7, 1);
    surface->setControlPoint(1, 2, {1, 2, 3}, 0.25);
    EXPECT_EQ(lines(), R"(["IZelNurbSurface#1","define",[false,1,2,2,3]]
["IZelNurbSurface#1","setKnotU",[0,0.5]]
["IZelNurbSurface#1","setKnotV",[7,1]]
["IZelNurbSurface#1","setControlPoint",[1,2,[1,2,3],0.25]]
)");
}

TEST_F(TraceTest, FollowsTheImporterTheTargetAndTheModel) {
    const SPtr<IZelLine> line;
    const SPtr<IZelPlane> plane;
    const auto importer = makeImporter();
    importer->beginModel(true, 0.001);
    buildDisc(*importer.iface, zelQuery<IZelCurve>(line.iface), zelQuery<IZelSurface>(plane.iface));
    importer->setEdgeCurve(1, nullptr);
    resolve(importer->finishModel())->modelEntry();
    resolve(nullptr);
    EXPECT_EQ(lines(), R"(["importer","beginModel",[true,0.001]]
["importer","createEdge",[1]]
["importer","setEdgeCurve",[1,"IZelLine#1"]]
["importer","setEdgeFace",[1,0,3]]
["importer","setEdgeSense",[1,1,true]]
["importer","createLoop",[2,[1],1,true]]
["importer","createFace",[3]]
["importer","setFaceSurface",[3,"IZelPlane#1"]]
["importer","addFaceLoop",[3,2]]
["importer","setShellBox",[[[0,0,0],[1,2,3]]]]
["importer","createShell",[4,[3],1,false]]
["importer","setEdgeCurve",[1,null]]
["importer","finishModel",[]]
["importTarget","resolveModel",["model"]]
["model","modelEntry",[]]
["importTarget","resolveModel",[null]]
)");
}

TEST_F(TraceTest, WritesCoordinateSystemsAndNumbersThatAreNotFinite) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    const SPtr<IZelCoordinateSystem> system;
    system->setOrigin({std::numeric_limits<double>::quiet_NaN(), infinity, -infinity});
    system->setAxes({1, 0, 0}, {-0.0, 1, 0});
    EXPECT_EQ(lines(), R"(["IZelCoordinateSystem#1","setOrigin",[["nan","inf","-inf"]]]
["IZelCoordinateSystem#1","setAxes",[[1,0,0],[-0,1,0]]]
)");
}

} // namespace
} // namespace host
