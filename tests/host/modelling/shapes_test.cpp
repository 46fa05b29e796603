// SPDX-License-Identifier: Apache-2.0
// What each shape object keeps of its definition, and what of it scaling changes.
#include "host/modelling/shapeobject.h"
#include "tests/host/modelling/modellingtest.h"

namespace host {
namespace {

constexpr ZelVector3 point{1000, -2000, 3000};
constexpr ZelVector3 scaledPoint{1, -2, 3};
constexpr ZelVector3 normal{0, 0, 2};
constexpr ZelVector3 direction{1, 0, 0};
constexpr ZelRange turn{6.0, -1.0};
constexpr ZelRange length{-500, 2500};
constexpr Range sameTurn{6.0, -1.0};
constexpr Range scaledLength{-0.5, 2.5};

class ShapesTest : public ModellingTest {
protected:
    template <class Record, class Shape> Record scaled(const SPtr<Shape>& shape) {
        constexpr bool isCurve = std::is_constructible_v<CurveRecord, Record>;
        using Recorded = std::conditional_t<isCurve, RecordedCurve, RecordedSurface>;
        featureOf(shape)->transform(&millimetres);
        return std::get<Record>(*zelQuery<Recorded>(shape.iface)->record());
    }
    static void expectFrame(const FrameRecord& frame, const Range& u, const Range& v) {
        EXPECT_EQ(frame.origin, scaledPoint);
        EXPECT_EQ(frame.normal, normal);
        EXPECT_EQ(frame.uDirection, direction);
        EXPECT_EQ(frame.uRange, u);
        EXPECT_EQ(frame.vRange, v);
    }
};

TEST_F(ShapesTest, APlaneScalesBothRanges) {
    const SPtr<IZelPlane> plane;
    plane->define(point, normal, direction, length, {0, 1000});
    expectFrame(scaled<PlaneRecord>(plane), scaledLength, {0, 1});
}

TEST_F(ShapesTest, ACylinderScalesRadiusAndVRange) {
    const SPtr<IZelCylinder> cylinder;
    cylinder->define(point, normal, direction, 250, turn, length, turn, length);
    const auto record = scaled<CylinderRecord>(cylinder);
    expectFrame(record, sameTurn, scaledLength);
    EXPECT_EQ(record.radius, 0.25);
}

TEST_F(ShapesTest, ASphereKeepsBothRanges) {
    const SPtr<IZelSphere> sphere;
    sphere->define(point, 250, normal, direction, turn, {-1, 1}, nullptr, nullptr);
    const auto record = scaled<SphereRecord>(sphere);
    expectFrame(record, sameTurn, {-1, 1});
    EXPECT_EQ(record.radius, 0.25);
}

TEST_F(ShapesTest, ATorusScalesBothRadiiAndKeepsBothRanges) {
    const SPtr<IZelTorus> torus;
    torus->define(point, normal, 500, 250, direction, turn, {-1, 1}, nullptr, nullptr, 0);
    const auto record = scaled<TorusRecord>(torus);
    expectFrame(record, sameTurn, {-1, 1});
    EXPECT_EQ(record.majorRadius, 0.5);
    EXPECT_EQ(record.minorRadius, 0.25);
}

TEST_F(ShapesTest, ANurbSurfaceScalesItsPointsRowByRowAndNeitherKnotsNorWeights) {
    const SPtr<IZelNurbSurface> surface;
    surface->define(true, 1, 2, 2, 3);
    for (std::int32_t i = 0; i < 4; ++i) surface->setKnotU(i, i / 2);
    for (std::int32_t i = 0; i < 6; ++i) surface->setKnotV(i, 5);
    for (std::int32_t i = 0; i < 6; ++i) {
        surface->setControlPoint(i / 3, i % 3, {1000.0 * i, 0, 1000}, 2.0 + i);
    }
    surface->setControlPoint(2, 0, point, 9);
    surface->setControlPoint(0, 3, point, 9);
    surface->setKnotU(-1, 9);
    const auto record = scaled<NurbSurfaceRecord>(surface);
    EXPECT_TRUE(record.rational);
    EXPECT_EQ((std::array{record.degreeU, record.degreeV, record.rows, record.columns}),
              (std::array{1, 2, 2, 3}));
    EXPECT_EQ(record.knotsU, (std::vector<double>{0, 0, 1, 1}));
    EXPECT_EQ(record.knotsV, std::vector<double>(6, 5));
    ASSERT_EQ(record.points.size(), 6u);
    EXPECT_EQ(record.points[4], (ZelVector3{4, 0, 1}));
    EXPECT_EQ(record.weights, (std::vector<double>{2, 3, 4, 5, 6, 7}));
}

TEST_F(ShapesTest, WithoutATransformAShapeStaysAsItCame) {
    const SPtr<IZelArc> arc;
    arc->define(point, 250, normal, direction, 1, 7, nullptr, 0);
    featureOf(arc)->transform(nullptr);
    const auto record = zelQuery<RecordedCurve>(arc.iface)->record();
    EXPECT_EQ(std::get<ArcRecord>(*record).center, point);
    EXPECT_EQ(std::get<ArcRecord>(*record).radius, 250);
}

TEST_F(ShapesTest, CurvesAndSurfacesAnswerForTheirFamilyAndAsFeatures) {
    const SPtr<IZelEllipse> curve;
    const SPtr<IZelTorus> surface;
    EXPECT_NE(zelQuery<IZelCurve>(curve.iface), nullptr);
    EXPECT_NE(zelQuery<IZelSurface>(surface.iface), nullptr);
    EXPECT_NE(featureOf(curve), nullptr);
    EXPECT_EQ(zelQuery<IZelSurface>(curve.iface), nullptr);
    EXPECT_EQ(zelQuery<IZelCurve>(surface.iface), nullptr);
    EXPECT_EQ(zelQuery<IZelLine>(curve.iface), nullptr);
}

TEST_F(ShapesTest, ACoordinateSystemIsKeptAsItCameAndLetGo) {
    auto* system = find<IZelCoordinateSystem>();
    system->setOrigin(point);
    system->setAxes({0.001, 0, 0}, {0, 0.001, 0});
    modelling.takeCoordinateSystems({nullptr, zelQuery<IZelFeature>(system)});
    ASSERT_EQ(modelling.record().coordinateSystems.size(), 1u);
    const CoordinateSystemRecord& record = modelling.record().coordinateSystems.front();
    EXPECT_EQ(record.origin, point);
    EXPECT_EQ(record.xAxis, (ZelVector3{0.001, 0, 0}));
    EXPECT_EQ(record.yAxis, (ZelVector3{0, 0.001, 0}));
}

} // namespace
} // namespace host
