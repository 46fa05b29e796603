// SPDX-License-Identifier: Apache-2.0
// The faces of a shape as triangles, for pictures and mesh files.
#pragma once

#include <TopoDS_Shape.hxx>
#include <gp_Pnt.hxx>
#include <gp_Vec.hxx>

#include <algorithm>
#include <array>
#include <vector>

namespace host {

/// One face. Seen from outside its triangles turn counter-clockwise and its normals point at the
/// viewer.
struct FaceMesh {
    std::vector<gp_Pnt> points;
    std::vector<gp_Vec> normals; ///< one for each point, of length 1
    std::vector<std::array<int, 3>> triangles;
    int part = 0; ///< the number of the solid, or open shell, that it belongs to, from 0
};

struct ShapeMesh {
    std::vector<FaceMesh> faces;
    std::vector<std::vector<gp_Pnt>> edges; ///< polylines; those without extent are left out
};

/// How far triangles may be from the surface.
struct MeshFineness {
    double diagonalShare = 5e-4; ///< a distance, as a share of the diagonal of the shape's box
    double radians = 0.25;       ///< between the normals of neighbouring triangles

    /// For a picture that the shape fills: half a pixel. Its shading doesn't need more, since it
    /// interpolates normals.
    static MeshFineness forPixels(int pixels) { return {0.5 / std::max(pixels, 1), 0.5}; }
};

/// Puts triangles into the shape, in place of those that it has. May throw what the kernel throws.
void triangulate(const TopoDS_Shape& shape, const MeshFineness& fineness = {});

/// Triangulates and takes out. Faces that the kernel could not triangulate are left out.
ShapeMesh meshOf(const TopoDS_Shape& shape, const MeshFineness& fineness = {});

} // namespace host
