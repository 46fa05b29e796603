// SPDX-License-Identifier: Apache-2.0
// Brings planes, cylinders, cones, spheres and tori into the form of their messages.
#pragma once

#include "server/geometry/facesurface.h"

#include <Geom_Surface.hxx>

namespace server {

/// `surface` with `box` in its own parameters; `reversed` when the face's outside is opposite to
/// dS/du x dS/dv. Nothing when the surface is of another kind, or a cone used on both sides of its
/// apex.
std::optional<AnalyticSurface> analyticSurface(const Handle(Geom_Surface) & surface,
                                               const ParameterBox& box, bool reversed);

/// The natural side dS/du x dS/dv of the analytic surface near `point`, not normalised.
gp_Vec naturalSide(const AnalyticSurface& surface, const gp_Pnt& point);

} // namespace server
