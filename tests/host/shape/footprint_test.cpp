// SPDX-License-Identifier: Apache-2.0
// Edges in the parameters of a surface.
#include "host/shape/footprint.h"

#include <Geom_BSplineSurface.hxx>
#include <Geom_Line.hxx>
#include <TColStd_Array1OfInteger.hxx>
#include <TColStd_Array1OfReal.hxx>
#include <TColgp_Array2OfPnt.hxx>

#include <array>

#include <gtest/gtest.h>

namespace host {
namespace {

/// u from 0 to 1 along x and v from 0 to 1 along y, in millimetres; curved in u.
Handle(Geom_BSplineSurface) sheet() {
    TColgp_Array2OfPnt poles(1, 3, 1, 2);
    for (int i = 1; i <= 3; ++i) {
        for (int k = 1; k <= 2; ++k) poles(i, k) = gp_Pnt(0.5 * (i - 1), k - 1, i == 2 ? 0.2 : 0);
    }
    TColStd_Array1OfReal knots(1, 2);
    knots(1) = 0.0;
    knots(2) = 1.0;
    TColStd_Array1OfInteger alongU(1, 2), alongV(1, 2);
    alongU.Init(3);
    alongV.Init(2);
    return new Geom_BSplineSurface(poles, knots, knots, alongU, alongV, 2, 1);
}

/// The u of the ends of an edge that runs from one side of the sheet to the other, this far inside
/// of its border at u = 1.
std::array<double, 2> endsInside(double millimetres) {
    const Handle(Geom_BSplineSurface) surface = sheet();
    const ParameterSpace space(surface);
    const gp_Pnt start = surface->Value(1.0 - millimetres, 0.0);
    const BoundedCurve edge{new Geom_Line(start, gp::DY()), 0.0, 1.0};
    const Trace trace = traceOf(space, edge, {});
    return {trace.start().X(), trace.end().X()};
}

TEST(Footprint, OfAnEdgeAlongTheBorderOfASurfaceLiesOnTheBorder) {
    for (const double u : endsInside(2e-7)) EXPECT_EQ(u, 1.0);
    for (const double u : endsInside(1e-5)) EXPECT_NEAR(u, 1.0 - 1e-5, 1e-8);
}

} // namespace
} // namespace host
