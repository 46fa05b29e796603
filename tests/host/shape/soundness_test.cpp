// SPDX-License-Identifier: Apache-2.0
// Numbers that the kernel must not see.
#include "host/shape/soundness.h"

#include <gtest/gtest.h>

#include <limits>

namespace host {
namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

const LineRecord line{{0, 0, 0}, {1, 0, 0}};
const ArcRecord arc{{0, 0, 0}, {0, 0, 1}, {1, 0, 0}, 1, 0, 1};
const EllipseRecord ellipse{{0, 0, 0}, {0, 0, 1}, {1, 0, 0}, 2, 1, 0, 1};
const FrameRecord frame{{0, 0, 0}, {0, 0, 1}, {1, 0, 0}, {0, 1}, {0, 1}};
const NurbSurfaceRecord nurb{true,
                             1,
                             1,
                             2,
                             2,
                             {0, 0, 1, 1},
                             {0, 0, 1, 1},
                             {{0, 0, 0}, {0, 1, 0}, {1, 0, 0}, {1, 1, 0}},
                             {1, 1, 1, 1}};

/// A sound record with one thing changed.
template <class Record, class Change> Record with(Record record, Change change) {
    change(record);
    return record;
}

TEST(Soundness, AcceptsSoundRecords) {
    for (const CurveRecord& curve : {CurveRecord(line), CurveRecord(arc), CurveRecord(ellipse)}) {
        EXPECT_EQ(faultOf(curve), "");
    }
    for (const SurfaceRecord& surface :
         {SurfaceRecord(PlaneRecord{frame}), SurfaceRecord(CylinderRecord{frame, 1}),
          SurfaceRecord(ConeRecord{frame, 0.5}), SurfaceRecord(SphereRecord{frame, 1}),
          SurfaceRecord(TorusRecord{frame, 1, 2}), SurfaceRecord(nurb)}) {
        EXPECT_EQ(faultOf(surface), "");
    }
    EXPECT_EQ(faultOf(with(arc, [](auto& r) { r.endAngle = 6.283185307179586; })), "");
}

TEST(Soundness, FindsFaultsInCurves) {
    const std::pair<CurveRecord, const char*> cases[] = {
        {with(line, [](auto& r) { r.start.x = nan; }), "point"},
        {with(line, [](auto& r) { r.end.y = infinity; }), "point"},
        {with(line, [](auto& r) { r.end.z = 1e300; }), "point"},
        {with(line, [](auto& r) { r.end = r.start; }), "same point"},
        {with(arc, [](auto& r) { r.normal = {}; }), "normal"},
        {with(arc, [](auto& r) { r.direction = r.normal * -3.0; }), "parallel"},
        {with(arc, [](auto& r) { r.radius = 0; }), "radius"},
        {with(arc, [](auto& r) { r.radius = -1; }), "radius"},
        {with(arc, [](auto& r) { r.radius = nan; }), "radius"},
        {with(arc, [](auto& r) { r.endAngle = r.startAngle; }), "end angle"},
        {with(arc, [](auto& r) { r.endAngle = 7; }), "more than once"},
        {with(arc, [](auto& r) { r.startAngle = -infinity; }), "angles"},
        {with(ellipse, [](auto& r) { r.littleHalfAxis = 0; }), "half axis"},
        {with(ellipse, [](auto& r) { r.littleHalfAxis = 3; }), "bigger"},
        {with(ellipse, [](auto& r) { r.center.x = -1e9; }), "origin"},
    };
    for (const auto& [curve, word] : cases) {
        EXPECT_NE(faultOf(curve).find(word), std::string::npos) << word << ": " << faultOf(curve);
    }
}

TEST(Soundness, FindsFaultsInSurfaces) {
    const auto knots = [](std::vector<double> u) {
        return with(nurb, [&](auto& r) { r.knotsU = u; });
    };
    const std::pair<SurfaceRecord, const char*> cases[] = {
        {PlaneRecord{with(frame, [](auto& r) { r.uDirection.x = nan; })}, "direction"},
        {PlaneRecord{with(frame, [](auto& r) { r.vRange[1] = infinity; })}, "ranges"},
        {CylinderRecord{frame, 0}, "radius"},
        {SphereRecord{frame, 1e300}, "radius"},
        {TorusRecord{frame, 1, 0}, "radius"},
        {ConeRecord{frame, 0}, "half angle"},
        {ConeRecord{frame, 1.5707963267948966}, "half angle"},
        {with(nurb, [](auto& r) { r.degreeU = 0; }), "degree"},
        {with(nurb, [](auto& r) { r.degreeV = 1000; }), "degree"},
        {with(nurb, [](auto& r) { r.degreeV = 2; }), "control points"},
        {knots({0, 0, 1}), "number of its knots"},
        {knots({0, 1, 0, 1}), "descend"},
        {knots({0, 0, 0, 1}), "too often"},
        {knots({0, 0, nan, 1}), "knot"},
        {knots({0, 1, 1, 2}), "extent"},
        {with(nurb, [](auto& r) { r.rows = r.columns = 2000000000; }), "knots"},
        {with(nurb, [](auto& r) { r.rows = -2; }), "control points"},
        {with(nurb, [](auto& r) { r.points.pop_back(); }), "missing"},
        {with(nurb, [](auto& r) { r.points[2].x = nan; }), "control point"},
        {with(nurb, [](auto& r) { r.weights.clear(); }), "weights"},
        {with(nurb, [](auto& r) { r.weights[1] = 0; }), "weight"},
        {with(nurb, [](auto& r) { r.weights[1] = -1; }), "weight"},
        {with(nurb, [](auto& r) { r.weights[1] = 1e12; }), "far apart"},
    };
    for (const auto& [surface, word] : cases) {
        EXPECT_NE(faultOf(surface).find(word), std::string::npos)
            << word << ": " << faultOf(surface);
    }
}

} // namespace
} // namespace host
