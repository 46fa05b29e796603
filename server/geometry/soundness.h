// SPDX-License-Identifier: Apache-2.0
// What can't be part of a model, told before anybody computes with it: numbers that are none or
// that lie beyond any place, faces without a surface.
#pragma once

#include "server/geometry/edgecurve.h"
#include "server/geometry/facesurface.h"

namespace server {

/// Each is the reason, such as "a vertex lies beyond any place", or empty. None of them throws for
/// a shape that a reader could make.
std::string faultOf(const TopoDS_Face& face);
std::string faultOf(const FaceSurface& surface);
std::string faultOf(const EdgeCurve& curve);

/// Of a box; an empty or open one is none.
bool isWithinReach(const Bnd_Box& box);

} // namespace server
