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
#include <cmath>

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

/// Where a periodic direction is to be cut open.
struct Seam {
    double from, first, period;

    double shift() const { return period * std::floor((from - first) / period + 1e-9); }
    double inRange() const { return from - shift(); }
    bool isInPlace() const { return inRange() - first < 1e-9 * period; }
};

void openU(Geom_BSplineSurface& surface, double from) {
    const Seam seam{from, surface.UKnot(1), surface.UPeriod()};
    if (!seam.isInPlace()) {
        surface.InsertUKnot(seam.inRange(), 1, Precision::PConfusion(), Standard_False);
        int below = 0, above = 0;
        surface.LocateU(seam.inRange(), Precision::PConfusion(), below, above);
        surface.SetUOrigin(below);
    }
    surface.SetUNotPeriodic();
}

void openV(Geom_BSplineSurface& surface, double from) {
    const Seam seam{from, surface.VKnot(1), surface.VPeriod()};
    if (!seam.isInPlace()) {
        surface.InsertVKnot(seam.inRange(), 1, Precision::PConfusion(), Standard_False);
        int below = 0, above = 0;
        surface.LocateV(seam.inRange(), Precision::PConfusion(), below, above);
        surface.SetVOrigin(below);
    }
    surface.SetVNotPeriodic();
}

void makeUnperiodic(Geom_BSplineSurface& surface, const ParameterBox& box) {
    if (surface.IsUPeriodic()) openU(surface, box.u1);
    if (surface.IsVPeriodic()) openV(surface, box.v1);
}

/// Whole periods between the box and where the surface ended up.
double wholePeriods(double from, double first, double period) {
    return period * std::round((first - from) / period);
}

void follow(const Handle(Geom_Surface) & before, const Geom_BSplineSurface& after,
            ParameterBox& box) {
    if (before->IsUPeriodic()) {
        const double moved = wholePeriods(box.u1, after.UKnot(1), before->UPeriod());
        box.u1 += moved;
        box.u2 += moved;
    }
    if (before->IsVPeriodic()) {
        const double moved = wholePeriods(box.v1, after.VKnot(1), before->VPeriod());
        box.v1 += moved;
        box.v2 += moved;
    }
}

Handle(Geom_BSplineSurface)
    converted(const Handle(Geom_Surface) & surface, const ParameterBox& box, double tolerance) {
    const ParameterBox used = within(surface, box);
    if (used.u2 - used.u1 < Precision::PConfusion() ||
        used.v2 - used.v1 < Precision::PConfusion()) {
        return {};
    }
    const Handle(Geom_Surface) trimmed =
        new Geom_RectangularTrimmedSurface(surface, used.u1, used.u2, used.v1, used.v2);
    if (isOffset(surface)) return approximated(trimmed, tolerance);
    return GeomConvert::SurfaceToBSplineSurface(trimmed);
}

} // namespace

Handle(Geom_BSplineSurface)
    splineSurface(const Handle(Geom_Surface) & surface, ParameterBox& box, double tolerance) {
    Handle(Geom_BSplineSurface) result;
    if (auto spline = Handle(Geom_BSplineSurface)::DownCast(surface)) {
        result = Handle(Geom_BSplineSurface)::DownCast(spline->Copy());
    } else if (!Handle(Geom_BezierSurface)::DownCast(surface).IsNull()) {
        result = GeomConvert::SurfaceToBSplineSurface(surface);
    } else {
        result = converted(surface, box, tolerance);
    }
    if (result.IsNull()) return result;
    makeUnperiodic(*result, box);
    follow(surface, *result, box);
    return result;
}

} // namespace server
