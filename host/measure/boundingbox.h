// SPDX-License-Identifier: Apache-2.0
// Tight bounding boxes of faces and edges.
#pragma once

#include <Bnd_Box.hxx>
#include <TopoDS_Edge.hxx>
#include <TopoDS_Face.hxx>

namespace host {

/// The axis-parallel box of an edge without tolerances, in the units of the shape. Exact for lines
/// and conics. Around splines it is at most one millionth of its diagonal too large; of curves that
/// have no formula here it is the kernel's optimal box. May throw what the kernel throws.
Bnd_Box boxOf(const TopoDS_Edge& edge);

/// The axis-parallel box of a face without tolerances, in the units of the shape. Exact for planes,
/// cylinders, cones, spheres, tori and extrusions whose edges have exact boxes. Around splines it
/// also holds what lies within the ranges of the face's parameters but outside of its loops; of
/// other surfaces it is the kernel's optimal box. May throw what the kernel throws.
Bnd_Box boxOf(const TopoDS_Face& face);

} // namespace host
