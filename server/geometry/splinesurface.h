// SPDX-License-Identifier: Apache-2.0
// Any surface as a B-spline surface over the part that a face uses.
#pragma once

#include "server/geometry/facesurface.h"

#include <Geom_Surface.hxx>

namespace server {

/// Not periodic: a direction that was is cut open where the face begins. u and v are those of
/// `surface` but for whole periods, by which `box` is then moved too. Exact where the kernel has an
/// exact form, else within `tolerance` or as near as it gets. Null when there is none; may throw
/// what the kernel throws. A B-spline surface is kept whole, whatever the face uses of it.
Handle(Geom_BSplineSurface)
    splineSurface(const Handle(Geom_Surface) & surface, ParameterBox& box, double tolerance);

} // namespace server
