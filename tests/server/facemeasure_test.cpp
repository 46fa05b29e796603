// SPDX-License-Identifier: Apache-2.0
// Faces that the kernel's own integration gets wrong.
#include "server/measuring/facemeasure.h"

#include <BRepBuilderAPI_MakeFace.hxx>
#include <BRepGProp_Domain.hxx>
#include <BRepGProp_Face.hxx>
#include <BRepGProp_Sinert.hxx>
#include <Geom_BSplineSurface.hxx>
#include <TColStd_Array1OfInteger.hxx>
#include <TColStd_Array1OfReal.hxx>
#include <TColgp_Array2OfPnt.hxx>
#include <TopoDS_Face.hxx>

#include <gtest/gtest.h>

namespace server {
namespace {

constexpr double width = 10.0;

/// A quadratic spline up and down through `count` control points, drawn out straight by `width`.
Handle(Geom_BSplineSurface) corrugated(int count) {
    TColgp_Array2OfPnt poles(1, count, 1, 2);
    for (int i = 1; i <= count; ++i) {
        for (int k = 1; k <= 2; ++k) poles(i, k) = gp_Pnt(i, k * width, i % 2 * 8.0);
    }
    TColStd_Array1OfReal across(1, count - 1), along(1, 2);
    TColStd_Array1OfInteger timesAcross(1, count - 1), timesAlong(1, 2);
    for (int i = 1; i < count; ++i) across(i) = i;
    timesAcross.Init(1);
    timesAcross(1) = timesAcross(count - 1) = 3;
    along(1) = 0.0;
    along(2) = 1.0;
    timesAlong.Init(2);
    return new Geom_BSplineSurface(poles, across, along, timesAcross, timesAlong, 2, 1);
}

/// By chords, of which there are so many that their sum is good to 1e-10.
double profileLength(const Geom_BSplineSurface& surface, int count) {
    constexpr int steps = 400'000;
    double length = 0.0;
    gp_Pnt last = surface.Value(1.0, 0.0);
    for (int i = 1; i <= steps; ++i) {
        const gp_Pnt next = surface.Value(1.0 + (count - 2.0) * i / steps, 0.0);
        length += last.Distance(next);
        last = next;
    }
    return length;
}

double areaByKernel(const TopoDS_Face& face) {
    BRepGProp_Face surface(face);
    BRepGProp_Domain border(face);
    return BRepGProp_Sinert(surface, border, gp_Pnt()).Mass();
}

TEST(FaceMeasure, BelievesTheIntegralThatTheMeshBearsOut) {
    for (const int count : {4, 16}) {
        const Handle(Geom_BSplineSurface) surface = corrugated(count);
        const TopoDS_Face face = BRepBuilderAPI_MakeFace(surface, 1e-7);
        const double area = width * profileLength(*surface, count);
        ASSERT_GT(std::abs(areaByKernel(face) - area), 2e-3 * area) << "no face to decide about";
        const auto measure = measured(face, gp_Pnt(), 100.0);
        ASSERT_TRUE(measure);
        EXPECT_NEAR(measure->area, area, 1e-7 * area);
        EXPECT_EQ(measure->areaUncertainty, 0.0);
    }
}

} // namespace
} // namespace server
