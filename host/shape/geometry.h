// SPDX-License-Identifier: Apache-2.0
// Curves and surfaces of a record in the kernel's terms. The kernel works in millimetres, since its
// tolerances are made for them; records are in metres.
//
// Only for records without a fault (soundness.h).
#pragma once

#include "host/modelling/record.h"

#include <Geom_Curve.hxx>
#include <Geom_Surface.hxx>
#include <gp_Pnt.hxx>

namespace host {

inline constexpr double millimetresPerMetre = 1000.0;

/// A curve of the kernel between two of its parameters, first below last.
struct BoundedCurve {
    Handle(Geom_Curve) curve;
    double first = 0.0, last = 0.0;

    gp_Pnt start() const { return curve->Value(first); }
    gp_Pnt end() const { return curve->Value(last); }
};

gp_Pnt pointOf(const ZelVector3& metres);
BoundedCurve curveOf(const CurveRecord& record);

/// A surface of the kernel and what the record says about its use.
struct FaceSurface {
    Handle(Geom_Surface) surface;
    bool reversed = false;  ///< the outward side is opposite to dS/du x dS/dv
    bool hasBounds = false; ///< false for NURBS surfaces, which come without ranges
    Range u{}, v{};         ///< the bounds of the face in the surface's parameters, rising
};

FaceSurface surfaceOf(const SurfaceRecord& record);

} // namespace host
