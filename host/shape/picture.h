// SPDX-License-Identifier: Apache-2.0
// A picture of a shape: an isometric view, lit, with its edges. Faces seen from behind are red, so
// that a face that is inside out shows.
#pragma once

#include "host/shape/raster.h"
#include "host/shape/triangles.h"

namespace host {

/// A picture without anything but its background when the mesh is empty.
Image pictureOf(const ShapeMesh& mesh, int width, int height);

} // namespace host
