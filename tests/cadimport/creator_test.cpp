// SPDX-License-Identifier: Apache-2.0
// The Creator against the reference host's modelling component, whose trace tells every call.
#include "cadimport/creator.h"

#include "cadimport/modelling/curves.h"
#include "cadimport/recordreader.h"
#include "component/manageraccess.h"
#include "host/modelling/modellingcomponent.h"
#include "tests/support/service.h"
#include "zelbasictypes/sets/bitvector.h"

#include <QFile>

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

using namespace CADImport;

namespace {

using Lines = std::vector<std::string>;

class CreatorTest : public testing::Test {
protected:
    CreatorTest() : modelling(host::rootManager(), &trace) {
        zelSetManager(&host::rootManager());
        creator = std::make_unique<Creator>(modelling.importTarget());
    }
    ~CreatorTest() override {
        creator.reset();
        host::rootManager().clear();
    }

    void give(const Message& message) { message.accept(*creator); }
    void open(double unit = 1000.0) {
        NewModel message;
        message.absolute = unit > 1;
        message.accuracy = 0.001;
        message.unit = unit;
        give(message);
    }
    void close() { give(EndModel()); }
    /// The same, and its calls forgotten.
    void openQuietly(double unit = 1000.0) {
        open(unit);
        calls();
    }

    /// The calls since the last question.
    Lines calls() {
        Lines result;
        std::istringstream text(trace.str());
        for (std::string line; std::getline(text, line);) result.push_back(line);
        trace.str({});
        return result;
    }

    /// How many of them are of that operation.
    static std::ptrdiff_t count(const Lines& all, const std::string& operation) {
        return std::ranges::count_if(all, [&](const std::string& call) {
            return call.find('"' + operation + '"') != call.npos;
        });
    }

    std::ostringstream trace;
    host::ModellingComponent modelling;
    std::unique_ptr<Creator> creator;
};

template <class T> T withIdentifier(int identifier) {
    T message;
    message.identifier = identifier;
    return message;
}

CreateLine line(int identifier, Point3 end = {1, 0, 0}) {
    auto message = withIdentifier<CreateLine>(identifier);
    message.endPoint = end;
    return message;
}

CreateSphere sphere(int identifier, double radius) {
    auto message = withIdentifier<CreateSphere>(identifier);
    message.radius = radius;
    return message;
}

CreateFace face(int identifier, int surface, const QList<int>& loops) {
    auto message = withIdentifier<CreateFace>(identifier);
    message.surfaceId = surface;
    message.loops = loops;
    return message;
}

CreateEdge edge(int identifier, int curve) {
    auto message = withIdentifier<CreateEdge>(identifier);
    message.curve = curve;
    message.faces = {7, 8};
    return message;
}

CreateShell shell(const Box& box) {
    auto message = withIdentifier<CreateShell>(1);
    message.boundingBox = box;
    message.faces = {5, 6};
    message.closed = true;
    return message;
}

} // namespace

/// The sample part as the reference server wrote it once, with every call that it comes to. All
/// shapes but the ellipse stand in it.
TEST_F(CreatorTest, MakesTheCallsOfThePreparedFile) {
    QFile file(PREPARED_FILE ".direct"), expected(PREPARED_FILE ".trace");
    ASSERT_TRUE(file.open(QIODevice::ReadOnly) && expected.open(QIODevice::ReadOnly));
    RecordReader records(file);
    while (!records.atEnd()) give(*records.next());
    EXPECT_TRUE(trace.str() == expected.readAll().toStdString());
}

TEST_F(CreatorTest, HandsTheNumbersOfAnEllipseAcrossInTheHostsOrder) {
    auto ellipse = withIdentifier<CreateEllipse>(3);
    ellipse.center = {7, 8, 9};
    ellipse.normal = {0, 0, 1};
    ellipse.direction = {0, 1, 0};
    ellipse.littleHalfAxis = 1;
    ellipse.bigHalfAxis = 2;
    ellipse.endAngle = 3;
    give(ellipse);
    EXPECT_EQ(calls(),
              Lines{R"(["IZelEllipse#1","define",[[7,8,9],[0,0,1],[0,1,0],2,1,0,3,null,0]])"});
}

TEST_F(CreatorTest, RefusesGridsWithoutRowsOrWithAShortRow) {
    auto surface = withIdentifier<CreateNURBSSurface>(1);
    surface.degreeU = surface.degreeV = 1;
    give(surface);
    surface.controlPoints = {{{}, {}}, {{}}};
    give(surface);
    EXPECT_TRUE(calls().empty());
}

TEST_F(CreatorTest, ScalesShapesOnlyInModelsThatAreNotInMetres) {
    open(1000);
    give(line(1));
    close();
    open(25.4);
    give(NewModel()); // invalid
    give(line(1));
    close();
    give(line(1));
    const Lines all = calls();
    EXPECT_EQ(count(all, "transform"), 1);
    EXPECT_EQ(all.front(), R"(["importer","beginModel",[true,0.001]])");
    EXPECT_NE(std::find(all.begin(), all.end(),
                        R"(["IZelLine#2","transform",[[0.025399999999999999,0,0,0,0,)"
                        R"(0.025399999999999999,0,0,0,0,0.025399999999999999,0,0,0,0,1]]])"),
              all.end());
}

TEST_F(CreatorTest, PassesLoopsAndFacesOnAndRefusesALoopWithMissingEdges) {
    open();
    give(sphere(2, 1));
    calls();
    auto loop = withIdentifier<CreateLoop>(4);
    loop.faceId = 1;
    loop.coedges = {1, 2};
    loop.edges = {11, 12, 13};
    loop.outer = false;
    give(loop);
    loop.edges = {11};
    give(loop);
    give(face(1, 2, {4, 5}));
    give(face(6, 99, {4}));
    EXPECT_EQ(calls(), (Lines{
                           R"(["importer","createLoop",[4,[11,12],2,false]])",
                           R"(["importer","createFace",[1]])",
                           R"(["importer","setFaceSurface",[1,"IZelSphere#1"]])",
                           R"(["importer","addFaceLoop",[1,4]])",
                           R"(["importer","addFaceLoop",[1,5]])",
                           R"(["importer","createFace",[6]])",
                           R"(["importer","addFaceLoop",[6,4]])",
                       }));
}

TEST_F(CreatorTest, PutsTheBoxOfAShellInOrderAndScalesIt) {
    constexpr double limit = std::numeric_limits<float>::max();
    const auto boxOf = [this](const Box& box) {
        give(shell(box));
        const Lines all = calls();
        EXPECT_EQ(all.back(), R"(["importer","createShell",[1,[5,6],2,true]])");
        return all.at(all.size() - 2);
    };
    openQuietly();
    EXPECT_EQ(boxOf({{5, 0, 0}, {1, 1, 1}}), R"(["importer","setShellBox",[[[1,0,0],[5,1,1]]]])");
    EXPECT_EQ(boxOf({}), R"(["importer","setShellBox",[[[-1,-1,-1],[1,1,1]]]])");
    const std::string empty =
        R"(["importer","setShellBox",[[[3.4028234663852886e+38,3.4028234663852886e+38,)"
        R"(3.4028234663852886e+38],[-3.4028234663852886e+38,-3.4028234663852886e+38,)"
        R"(-3.4028234663852886e+38]]]])";
    EXPECT_EQ(boxOf({{limit, 1, 2}, {-limit, 3, 4}}), empty);
    EXPECT_EQ(boxOf({{limit, 0, 0}, {1, 1, 1}}),
              R"(["importer","setShellBox",[[[1,0,0],[3.4028234663852886e+38,1,1]]]])");
    close();
    open(1);
    EXPECT_EQ(calls().back(), R"(["importer","beginModel",[false,0.001]])");
    EXPECT_EQ(boxOf({{0, 0, 0}, {1000, 2000, 3000}}),
              R"(["importer","setShellBox",[[[0,0,0],[1,2,3]]]])");
    EXPECT_EQ(boxOf({{limit, 1, 2}, {-limit, 3, 4}}), empty);
}

TEST_F(CreatorTest, ScalesTheAxesOfACoordinateSystemButNotItsOrigin) {
    openQuietly(1);
    auto system = withIdentifier<CreateCoordinateSystem>(1);
    system.origin = {10, 20, 30};
    system.xDirection = {1, 0, 0};
    system.yDirection = {0, 2, 0};
    system.zDirection = {9, 9, 9};
    give(system);
    give(system);
    const Lines all = calls();
    EXPECT_EQ(all.at(0), R"(["IZelCoordinateSystem#1","setOrigin",[[10,20,30]]])");
    EXPECT_EQ(all.at(1), R"(["IZelCoordinateSystem#1","setAxes",[[0.001,0,0],[0,0.002,0]]])");

    std::list<IZelFeature*> features{nullptr};
    std::list<BitVector*> masks;
    creator->coordinateSystems(features, masks);
    ASSERT_EQ(features.size(), 2u);
    ASSERT_EQ(masks.size(), 2u);
    for (BitVector* mask : masks) {
        EXPECT_EQ(mask->count(), 0);
        EXPECT_EQ(mask->maxBit(), 31);
        delete mask;
    }
    modelling.takeCoordinateSystems(features);
}

TEST_F(CreatorTest, EndsIdentifiersWithTheirModelAndKeepsOneEntryForEach) {
    open();
    give(line(1));
    give(sphere(1, 2));
    close();
    openQuietly();
    give(edge(2, 1));
    give(face(3, 1, {4}));
    give(line(1));
    give(edge(4, 1));
    close();
    const Lines all = calls();
    EXPECT_EQ(count(all, "setEdgeCurve"), 1);
    EXPECT_EQ(count(all, "setFaceSurface"), 0);
    EXPECT_EQ(creator->models().size(), 2u);
}

TEST_F(CreatorTest, ReplacesAnEntryButKeepsItWhenTheNewMessageIsInvalid) {
    open();
    give(sphere(1, 2));
    give(sphere(1, 3));
    give(sphere(1, 0));
    calls();
    give(face(1, 1, {4}));
    EXPECT_EQ(calls().at(1), R"(["importer","setFaceSurface",[1,"IZelSphere#2"]])");
}

TEST_F(CreatorTest, CallsNothingForWhatItDoesNotPassOn) {
    auto body = withIdentifier<CreateBody>(1);
    body.shells = {1};
    auto curve = withIdentifier<CreateNURBSCurve>(9);
    curve.degree = 3;
    give(body);
    give(curve);
    give(NewModel());
    give(withIdentifier<CreateVertex>(1));
    give(CreateCoedge());
    give(CreateGroup());
    give(OKMessage());
    give(FinishMessage());
    EXPECT_TRUE(calls().empty());
    give(edge(1, 9));
    EXPECT_EQ(calls().at(1), R"(["importer","setEdgeFace",[1,0,7]])");
}

TEST_F(CreatorTest, FinishesAModelThatNeverBeganAndEndsItsIdentifiers) {
    give(line(1));
    calls();
    close();
    EXPECT_EQ(calls().front(), R"(["importer","finishModel",[]])");
    EXPECT_TRUE(creator->models().empty()) << "there is no entry for it";
    give(edge(2, 1));
    EXPECT_EQ(calls().at(1), R"(["importer","setEdgeFace",[2,0,7]])");
}

TEST_F(CreatorTest, PassesOverWhatTheHostCannotMake) {
    host::rootManager().withdraw("IZelLine");
    host::rootManager().withdraw("IZelCoordinateSystem");
    openQuietly(1);
    give(line(1));
    auto system = withIdentifier<CreateCoordinateSystem>(1);
    system.xDirection = {1, 0, 0};
    system.yDirection = {0, 1, 0};
    give(system);
    EXPECT_TRUE(calls().empty());
    std::list<IZelFeature*> features;
    std::list<BitVector*> masks;
    creator->coordinateSystems(features, masks);
    EXPECT_TRUE(features.empty());
    EXPECT_TRUE(masks.empty());
    give(edge(4, 1));
    EXPECT_EQ(calls().at(1), R"(["importer","setEdgeFace",[4,0,7]])");
}

/// A line of a host that knows neither curves nor features.
class BareLine : public testsupport::Service<IZelLine> {
public:
    explicit BareLine(int& defined) : defined_(defined) {}
    void define(const ZelVector3&, const ZelVector3&, const void*, double) override { ++defined_; }

private:
    int& defined_;
};

TEST_F(CreatorTest, FilesAnObjectWithoutTheInterfaceOfItsTableAsNoneAndScalesNothingOfIt) {
    int defined = 0;
    host::rootManager().offerMaker("IZelLine", [&] { return new BareLine(defined); });
    openQuietly(1);
    give(line(1));
    EXPECT_EQ(defined, 1);
    EXPECT_TRUE(calls().empty());
    give(edge(4, 1));
    EXPECT_EQ(calls().at(1), R"(["importer","setEdgeCurve",[4,null]])");
}
