// SPDX-License-Identifier: Apache-2.0
// Conversion on the surface trimmed to the face's range; the kernel's own conversions do the work.
#include "server/geometry/splinesurface.h"

#include <GeomConvert.hxx>
#include <GeomConvert_ApproxSurface.hxx>
#include <Geom_BezierSurface.hxx>
#include <Geom_OffsetSurface.hxx>
#include <Geom_RectangularTrimmedSurface.hxx>
#include <Precision.hxx>

#include <algorithm>

namespace server {
namespace {

/// `box` within the bounds that the surface has; a periodic direction has none.
ParameterBox within(const Handle(Geom_Surface) & surface, ParameterBox box) {
    ParameterBox all;
    surface->Bounds(all.u1, all.u2, all.v1, all.v2);
    if (!surface->IsUPeriodic()) {
        box.u1 = std::clamp(box.u1, all.u1, all.u2);
        box.u2 = std::clamp(box.u2, all.u1, all.u2);
    }
    if (!surface->IsVPeriodic()) {
        box.v1 = std::clamp(box.v1, all.v1, all.v2);
        box.v2 = std::clamp(box.v2, all.v1, all.v2);
    }
    return box;
}

Handle(Geom_BSplineSurface) approximated(const Handle(Geom_Surface) & surface, double tolerance) {
    constexpr int highestDegree = 8, mostPatches = 200;
    for (const double coarser : {1.0, 10.0, 100.0}) {
        GeomConvert_ApproxSurface approximation(surface, tolerance * coarser, GeomAbs_C1,
                                                GeomAbs_C1, highestDegree, highestDegree,
                                                mostPatches, 0);
        if (approximation.IsDone() && approximation.HasResult() &&
            approximation.MaxError() <= tolerance * coarser * 1.01) {
            return approximation.Surface();
        }
    }
    return {};
}

bool isOffset(const Handle(Geom_Surface) & surface) {
    return !Handle(Geom_OffsetSurface)::DownCast(surface).IsNull();
}

void makeUnperiodic(Geom_BSplineSurface& surface) {
    if (surface.IsUPeriodic()) surface.SetUNotPeriodic();
    if (surface.IsVPeriodic()) surface.SetVNotPeriodic();
}

} // namespace

Handle(Geom_BSplineSurface)
    splineSurface(const Handle(Geom_Surface) & surface, const ParameterBox& box, double tolerance) {
    const bool wraps = surface->IsUPeriodic() || surface->IsVPeriodic();
    if (auto spline = Handle(Geom_BSplineSurface)::DownCast(surface); !spline.IsNull() && !wraps) {
        return Handle(Geom_BSplineSurface)::DownCast(spline->Copy());
    }
    if (!Handle(Geom_BezierSurface)::DownCast(surface).IsNull()) {
        return GeomConvert::SurfaceToBSplineSurface(surface);
    }
    const ParameterBox used = within(surface, box);
    if (used.u2 - used.u1 < Precision::PConfusion() ||
        used.v2 - used.v1 < Precision::PConfusion()) {
        return {};
    }
    const Handle(Geom_Surface) trimmed =
        new Geom_RectangularTrimmedSurface(surface, used.u1, used.u2, used.v1, used.v2);
    if (isOffset(surface)) return approximated(trimmed, tolerance);
    Handle(Geom_BSplineSurface) result = GeomConvert::SurfaceToBSplineSurface(trimmed);
    if (!result.IsNull()) makeUnperiodic(*result);
    return result;
}

} // namespace server
