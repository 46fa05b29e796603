// SPDX-License-Identifier: Apache-2.0
// The geometry of messages, computed from their fields alone: what a receiver would see.
#pragma once

#include "tests/server/wiremodel.h"

#include <gp_Pnt.hxx>
#include <gp_Vec.hxx>

namespace server::testing {

/// A curve at a share of its range, 0 at its start and 1 at its end.
gp_Pnt curvePoint(const CurveMessage& curve, double share);
gp_Vec curveTangent(const CurveMessage& curve, double share);

/// A surface seen from a point near it.
struct SurfaceView {
    double distance = 0.0; ///< from the point to the surface
    gp_Vec outward;        ///< the unit normal on the outer side of the face
    double u = 0.0, v = 0.0;
};
SurfaceView viewSurface(const SurfaceMessage& surface, const gp_Pnt& from);

} // namespace server::testing
