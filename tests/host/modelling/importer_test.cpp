// SPDX-License-Identifier: Apache-2.0
// The record that comes of an importer's calls, and what is named as lost.
#include "tests/host/modelling/modellingtest.h"

namespace host {
namespace {

class ImporterTest : public ModellingTest {
protected:
    ImporterTest() {
        line->define({2000, 0, 0}, {1000, 0, 0}, nullptr, 0);
        plane->define({0, 0, 0}, {0, 0, 1}, {1, 0, 0}, {0, 1}, {0, 1});
    }
    IZelCurve* curve() { return zelQuery<IZelCurve>(line.iface); }
    IZelSurface* surface() { return zelQuery<IZelSurface>(plane.iface); }

    SPtr<IZelLine> line;
    SPtr<IZelPlane> plane;
    IPtr<IZelCADImporter> importer = makeImporter();
};

TEST_F(ImporterTest, KeepsAWholeModelWithItsEntry) {
    importer->beginModel(false, 0.25);
    buildDisc(*importer.iface, curve(), surface());
    EXPECT_EQ(line->refCount(), 2) << "the importer takes a reference of its own";
    featureOf(line)->transform(&millimetres);
    IZelImportedModel* model = resolve(importer->finishModel());
    ASSERT_NE(model, nullptr);
    EXPECT_NE(model->modelEntry(), nullptr);
    EXPECT_EQ(line->refCount(), 1);
    EXPECT_EQ(dropped(), "");

    ASSERT_EQ(modelling.record().models.size(), 1u);
    const ModelRecord& record = modelling.record().models.front();
    EXPECT_FALSE(record.absolute);
    EXPECT_EQ(record.accuracy, 0.25);
    const EdgeRecord& edge = record.edges.at(1);
    EXPECT_EQ(edge.faces, (std::array<Identifier, 2>{3, 0}));
    EXPECT_EQ(edge.sense, (std::array{false, true}));
    EXPECT_EQ(std::get<LineRecord>(*edge.curve).start, (ZelVector3{2, 0, 0}));
    EXPECT_EQ(std::get<LineRecord>(*edge.curve).end, (ZelVector3{1, 0, 0}));
    EXPECT_EQ(record.loops.at(2).edges, std::vector<Identifier>{1});
    EXPECT_EQ(record.faces.at(3).loops, std::vector<Identifier>{2});
    EXPECT_TRUE(std::holds_alternative<PlaneRecord>(*record.faces.at(3).surface));
    const ShellRecord& shell = record.shells.at(0);
    EXPECT_EQ(shell.identifier, 4);
    EXPECT_EQ(shell.boxMax, (ZelVector3{1, 2, 3}));
    EXPECT_EQ(shell.faces, std::vector<Identifier>{3});
    EXPECT_FALSE(shell.closed);
}

TEST_F(ImporterTest, NamesEdgesWithoutCurveAndFacesWithoutSurface) {
    importer->beginModel(true, 0.001);
    buildDisc(*importer.iface, nullptr, nullptr);
    EXPECT_NE(resolve(importer->finishModel())->modelEntry(), nullptr);
    EXPECT_EQ(dropped(), "edge 1: it came without a curve\nface 3: it came without a surface\n");
}

TEST_F(ImporterTest, NamesReferencesThatLeadNowhereAndWhatNothingRefersTo) {
    const std::int32_t missing[] = {77, 78};
    importer->beginModel(true, 0.001);
    buildDisc(*importer.iface, curve(), surface());
    importer->createEdge(10);
    importer->setEdgeCurve(10, curve());
    importer->setEdgeFace(10, 1, 70);
    importer->createLoop(11, missing, 2, false);
    importer->createFace(12);
    importer->setFaceSurface(12, surface());
    importer->addFaceLoop(12, 79);
    importer->createShell(13, missing, 1, true);
    importer->finishModel();
    EXPECT_EQ(dropped(), "edge 10: it names face 70, which did not arrive\n"
                         "loop 11: it names edge 77, which did not arrive\n"
                         "loop 11: it names edge 78, which did not arrive\n"
                         "edge 10: no loop runs along it\n"
                         "face 12: it names loop 79, which did not arrive\n"
                         "loop 11: it bounds no face\n"
                         "shell 13: it names face 77, which did not arrive\n"
                         "face 12: it belongs to no shell\n");
}

TEST_F(ImporterTest, NamesIdentifiersThatComeTwiceAndLetsTheLaterOneCount) {
    const std::int32_t edge = 1;
    importer->beginModel(true, 0.001);
    buildDisc(*importer.iface, curve(), surface());
    importer->createEdge(edge);
    importer->createLoop(2, &edge, 1, false);
    importer->createFace(3);
    importer->addFaceLoop(3, 2);
    importer->createShell(4, nullptr, 0, true);
    importer->finishModel();
    const std::string twice = "its identifier came twice";
    EXPECT_EQ(dropped(), "edge 1: " + twice + "; the later one counts\nloop 2: " + twice +
                             "; the later one counts\nface 3: " + twice +
                             "; the later one counts\nshell 4: " + twice +
                             "\nedge 1: it came without a curve\n"
                             "face 3: it came without a surface\n");
    EXPECT_FALSE(modelling.record().models.at(0).loops.at(2).outer);
}

TEST_F(ImporterTest, SurvivesCallsAboutThingsThatAreNotThere) {
    importer->beginModel(true, 0.001);
    importer->setEdgeFace(5, 0, 1);
    importer->createEdge(6);
    importer->setEdgeSense(6, 2, true);
    importer->setEdgeCurve(7, curve());
    importer->setFaceSurface(8, nullptr);
    importer->addFaceLoop(9, 1);
    importer->createLoop(1, nullptr, 3, true);
    EXPECT_EQ(modelling.record().dropped.size(), 5u) << dropped();
}

TEST_F(ImporterTest, GivesNoEntryToAModelThatNeverBegan) {
    EXPECT_EQ(resolve(importer->finishModel())->modelEntry(), nullptr);
    buildDisc(*importer.iface, curve(), surface());
    EXPECT_EQ(resolve(importer->finishModel())->modelEntry(), nullptr);
    EXPECT_TRUE(modelling.record().models.empty());
    EXPECT_EQ(dropped(), "model 1: it ended without having begun\n"
                         "model 2: it came without its unit, so its size is unknown\n");
}

TEST_F(ImporterTest, NamesModelsThatWereCutOff) {
    importer->beginModel(true, 0.001);
    buildDisc(*importer.iface, curve(), surface());
    importer->beginModel(true, 0.001);
    importer = nullptr;
    EXPECT_EQ(dropped(), "model 1: another model began before its end\n"
                         "model 2: it was cut off before its end\n");
}

TEST_F(ImporterTest, SaysOfWhichModelALossIs) {
    importer->beginModel(true, 0.001);
    buildDisc(*importer.iface, nullptr, surface());
    importer->createEdge(1);
    for (int model = 1; model <= 2; ++model) {
        importer->beginModel(true, 0.001);
        buildDisc(*importer.iface, nullptr, surface());
        importer->finishModel();
    }
    std::vector<std::int32_t> models;
    for (const DroppedRecord& loss : modelling.record().dropped) models.push_back(loss.model);
    EXPECT_EQ(models, (std::vector<std::int32_t>{0, 0, 1, 2})) << dropped();
}

TEST_F(ImporterTest, ResolvesNothingThatIsNoModelOfItsOwn) {
    int stranger = 0;
    EXPECT_EQ(resolve(nullptr), nullptr);
    EXPECT_EQ(resolve(&stranger), nullptr);
}

TEST_F(ImporterTest, NamesAModelWithoutShell) {
    importer->beginModel(true, 0.001);
    EXPECT_NE(resolve(importer->finishModel())->modelEntry(), nullptr);
    EXPECT_EQ(dropped(), "model 1: it holds no shell\n");
}

} // namespace
} // namespace host
