// SPDX-License-Identifier: Apache-2.0
// Analytic surfaces as they are, swept ones by their better name, the rest as B-splines.
#include "server/geometry/facesurface.h"

#include "server/geometry/analyticsurface.h"
#include "server/geometry/splinesurface.h"
#include "server/geometry/sweptsurface.h"

#include <BRepTools.hxx>
#include <BRep_Tool.hxx>
#include <Geom_BezierSurface.hxx>
#include <Geom_ElementarySurface.hxx>
#include <Geom_OffsetSurface.hxx>
#include <Geom_RectangularTrimmedSurface.hxx>
#include <Precision.hxx>
#include <TopoDS.hxx>

#include <algorithm>

namespace server {
namespace {

/// The surface below trimmings, and below offsets that have a plainer form.
Handle(Geom_Surface) basisOf(Handle(Geom_Surface) surface) {
    while (!surface.IsNull()) {
        Handle(Geom_Surface) below;
        if (auto trimmed = Handle(Geom_RectangularTrimmedSurface)::DownCast(surface)) {
            below = trimmed->BasisSurface();
        } else if (auto offset = Handle(Geom_OffsetSurface)::DownCast(surface)) {
            // Other answers of the kernel are approximations of its own.
            below = Handle(Geom_ElementarySurface)::DownCast(offset->Surface());
        }
        if (below.IsNull()) break;
        surface = below;
    }
    return surface;
}

std::string nameOf(const Handle(Geom_Surface) & surface) {
    if (surface.IsNull()) return "none";
    const std::string name = surface->DynamicType()->Name(), prefix = "Geom_";
    return name.compare(0, prefix.size(), prefix) == 0 ? name.substr(prefix.size()) : name;
}

const char* wireName(AnalyticKind kind) {
    switch (kind) {
    case AnalyticKind::plane:
        return "CreatePlane";
    case AnalyticKind::cylinder:
        return "CreateCylinder";
    case AnalyticKind::cone:
        return "CreateCone";
    case AnalyticKind::sphere:
        return "CreateSphere";
    default:
        return "CreateTorus";
    }
}

ParameterBox boundsOf(const TopoDS_Face& face) {
    ParameterBox box;
    BRepTools::UVBounds(TopoDS::Face(face.Oriented(TopAbs_FORWARD)), box.u1, box.u2, box.v1,
                        box.v2);
    return box;
}

bool isBounded(const ParameterBox& box) {
    return !Precision::IsInfinite(box.u1) && !Precision::IsInfinite(box.u2) &&
           !Precision::IsInfinite(box.v1) && !Precision::IsInfinite(box.v2);
}

void takeAnalytic(const AnalyticSurface& found, FaceSurface& result) {
    result.surface = found;
    const ParameterBox& b = found.bounds;
    result.bounds = {std::min(b.u1, b.u2), std::max(b.u1, b.u2), b.v1, b.v2};
}

bool trySwept(const Handle(Geom_Surface) & basis, bool reversed, FaceSurface& result) {
    const ElementaryForm form = elementaryForm(basis, result.bounds);
    if (form.surface.IsNull()) return false;
    ParameterBox box = result.bounds;
    box.v1 += form.vShift;
    box.v2 += form.vShift;
    const auto found = analyticSurface(form.surface, box, reversed);
    if (!found) return false;
    takeAnalytic(*found, result);
    result.to = wireName(found->kind);
    result.why = "the sweep has this plainer form";
    return true;
}

/// Turns u round about the range of the surface, which is what reversing does to the knots.
void turn(Geom_BSplineSurface& surface, ParameterBox& box) {
    double u1, u2, v1, v2;
    surface.Bounds(u1, u2, v1, v2);
    surface.UReverse();
    box = {u1 + u2 - box.u2, u1 + u2 - box.u1, box.v1, box.v2};
}

void takeSpline(const Handle(Geom_Surface) & basis, bool reversed, double tolerance,
                FaceSurface& result) {
    const Handle(Geom_BSplineSurface) spline = splineSurface(basis, result.bounds, tolerance);
    if (spline.IsNull()) {
        result.why = "the surface has no B-spline form";
        return;
    }
    if (reversed) turn(*spline, result.bounds);
    result.surface = spline;
    if (result.from == "BSplineSurface" || result.from == "BezierSurface") return;
    result.to = "CreateNURBSSurface";
    result.why = "the surface has no message of its own";
}

} // namespace

std::string surfaceKind(const TopoDS_Face& face) {
    return nameOf(basisOf(BRep_Tool::Surface(face)));
}

FaceSurface faceSurface(const TopoDS_Face& face, double tolerance) {
    FaceSurface result;
    const Handle(Geom_Surface) basis = basisOf(BRep_Tool::Surface(face));
    result.from = nameOf(basis);
    const bool reversed = face.Orientation() == TopAbs_REVERSED;
    if (basis.IsNull()) {
        result.why = "the face has no surface";
    } else if (result.bounds = boundsOf(face); !isBounded(result.bounds)) {
        result.why = "the face is unbounded";
    } else if (const auto found = analyticSurface(basis, result.bounds, reversed)) {
        takeAnalytic(*found, result);
    } else if (!trySwept(basis, reversed, result)) {
        takeSpline(basis, reversed, tolerance, result);
    }
    return result;
}

} // namespace server
