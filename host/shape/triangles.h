// SPDX-License-Identifier: Apache-2.0
// The faces of a shape as triangles, for pictures and mesh files.
#pragma once

#include <TopoDS_Shape.hxx>
#include <gp_Pnt.hxx>
#include <gp_Vec.hxx>

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

/// Puts triangles into the shape, unless it has them, fine enough for a picture that it fills. May
/// throw what the kernel throws.
void triangulate(const TopoDS_Shape& shape);

/// Triangulates and takes out. Faces that the kernel could not triangulate are left out.
ShapeMesh meshOf(const TopoDS_Shape& shape);

} // namespace host
