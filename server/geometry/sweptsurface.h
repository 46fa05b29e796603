// SPDX-License-Identifier: Apache-2.0
// Swept surfaces that are planes, cylinders, cones, tori or spheres by another name.
#pragma once

#include "server/geometry/facesurface.h"

#include <Geom_Surface.hxx>

namespace server {

/// The same surface with the same u, and with `vShift` added to v.
struct ElementaryForm {
    Handle(Geom_Surface) surface;
    double vShift = 0.0;
};

/// Looks at the profile of an extrusion or a revolution; null for everything else. `box` tells
/// which half of a circle the face uses when that circle is centred on the axis.
ElementaryForm elementaryForm(const Handle(Geom_Surface) & surface, const ParameterBox& box);

} // namespace server
