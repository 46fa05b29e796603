// SPDX-License-Identifier: Apache-2.0
// Meshing, and walking over what came of it.
#include "host/shape/triangles.h"

#include <BRepBndLib.hxx>
#include <BRepMesh_IncrementalMesh.hxx>
#include <BRepTools.hxx>
#include <BRep_Tool.hxx>
#include <Bnd_Box.hxx>
#include <Poly_PolygonOnTriangulation.hxx>
#include <Poly_Triangulation.hxx>
#include <TopExp.hxx>
#include <TopExp_Explorer.hxx>
#include <TopTools_IndexedDataMapOfShapeListOfShape.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Edge.hxx>
#include <TopoDS_Face.hxx>
#include <TopoDS_Iterator.hxx>

#include <algorithm>
#include <cmath>
#include <utility>

namespace host {
namespace {

/// Where a fold leaves no direction, any will do.
gp_Vec unit(const gp_Vec& v) {
    return v.Magnitude() > gp::Resolution() ? v.Normalized() : gp_Vec(0.0, 0.0, 1.0);
}

FaceMesh faceMesh(const TopoDS_Face& face, int part) {
    FaceMesh mesh;
    mesh.part = part;
    TopLoc_Location location;
    const Handle(Poly_Triangulation) source = BRep_Tool::Triangulation(face, location);
    if (source.IsNull()) return mesh;
    source->ComputeNormals();
    const bool isReversed = face.Orientation() == TopAbs_REVERSED;
    for (int i = 1; i <= source->NbNodes(); ++i) {
        mesh.points.push_back(source->Node(i).Transformed(location));
        gp_Vec3f average;
        source->Normal(i, average);
        gp_Vec normal(average.x(), average.y(), average.z());
        normal.Transform(location.Transformation());
        mesh.normals.push_back(unit(isReversed ? -normal : normal));
    }
    for (int i = 1; i <= source->NbTriangles(); ++i) {
        int a = 0, b = 0, c = 0;
        source->Triangle(i).Get(a, b, c);
        if (isReversed) std::swap(b, c);
        mesh.triangles.push_back({a - 1, b - 1, c - 1});
    }
    return mesh;
}

std::vector<gp_Pnt> polyline(const TopoDS_Edge& edge, const TopoDS_Face& face) {
    std::vector<gp_Pnt> points;
    TopLoc_Location location;
    const Handle(Poly_Triangulation) mesh = BRep_Tool::Triangulation(face, location);
    if (mesh.IsNull() || BRep_Tool::Degenerated(edge)) return points;
    const auto polygon = BRep_Tool::PolygonOnTriangulation(edge, mesh, location);
    if (polygon.IsNull()) return points;
    for (int i = 1; i <= polygon->NbNodes(); ++i) {
        points.push_back(mesh->Node(polygon->Node(i)).Transformed(location));
    }
    return points;
}

void takeFaces(const TopoDS_Shape& part, int number, ShapeMesh& result) {
    for (TopExp_Explorer walk(part, TopAbs_FACE); walk.More(); walk.Next()) {
        FaceMesh mesh = faceMesh(TopoDS::Face(walk.Current()), number);
        if (!mesh.triangles.empty()) result.faces.push_back(std::move(mesh));
    }
}

/// Compounds within compounds are opened; whatever else is one part.
void takeParts(const TopoDS_Shape& shape, int& number, ShapeMesh& result) {
    if (shape.ShapeType() != TopAbs_COMPOUND) return takeFaces(shape, number++, result);
    for (TopoDS_Iterator walk(shape); walk.More(); walk.Next()) {
        takeParts(walk.Value(), number, result);
    }
}

} // namespace

void triangulate(const TopoDS_Shape& shape, const MeshFineness& fineness) {
    Bnd_Box box;
    BRepBndLib::Add(shape, box, false);
    if (box.IsVoid() || box.IsOpen()) return;
    const double diagonal = std::sqrt(box.SquareExtent());
    // The kernel keeps triangles by their distance alone, however great their angle.
    BRepTools::Clean(shape);
    BRepMesh_IncrementalMesh mesher(shape, std::max(fineness.diagonalShare * diagonal, 1e-7), false,
                                    fineness.radians, false);
}

ShapeMesh meshOf(const TopoDS_Shape& shape, const MeshFineness& fineness) {
    triangulate(shape, fineness);
    ShapeMesh result;
    int number = 0;
    takeParts(shape, number, result);
    TopTools_IndexedDataMapOfShapeListOfShape edges;
    TopExp::MapShapesAndAncestors(shape, TopAbs_EDGE, TopAbs_FACE, edges);
    for (int i = 1; i <= edges.Extent(); ++i) {
        if (edges(i).IsEmpty()) continue;
        auto points = polyline(TopoDS::Edge(edges.FindKey(i)), TopoDS::Face(edges(i).First()));
        if (points.size() > 1) result.edges.push_back(std::move(points));
    }
    return result;
}

} // namespace host
