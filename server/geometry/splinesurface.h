// SPDX-License-Identifier: Apache-2.0
// Any surface as a B-spline surface over the part that a face uses.
#pragma once

#include "server/geometry/facesurface.h"

#include <Geom_Surface.hxx>

namespace server {

/// Not periodic; u and v are those of `surface`. Exact where the kernel has an exact form, else
/// within `tolerance` or as near as it gets. Null when there is none; may throw what the kernel
/// throws. A B-spline surface that isn't periodic is kept whole.
Handle(Geom_BSplineSurface)
    splineSurface(const Handle(Geom_Surface) & surface, const ParameterBox& box, double tolerance);

} // namespace server
