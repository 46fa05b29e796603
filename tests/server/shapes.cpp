// SPDX-License-Identifier: Apache-2.0
// The table of shapes.
#include "tests/server/shapes.h"

#include <BRepAlgoAPI_Cut.hxx>
#include <BRepAlgoAPI_Fuse.hxx>
#include <BRepBuilderAPI_MakeEdge.hxx>
#include <BRepBuilderAPI_MakeFace.hxx>
#include <BRepBuilderAPI_MakeWire.hxx>
#include <BRepBuilderAPI_NurbsConvert.hxx>
#include <BRepBuilderAPI_Transform.hxx>
#include <BRepFilletAPI_MakeFillet.hxx>
#include <BRepOffsetAPI_MakePipe.hxx>
#include <BRepOffsetAPI_ThruSections.hxx>
#include <BRepPrimAPI_MakeBox.hxx>
#include <BRepPrimAPI_MakeCone.hxx>
#include <BRepPrimAPI_MakeCylinder.hxx>
#include <BRepPrimAPI_MakePrism.hxx>
#include <BRepPrimAPI_MakeRevol.hxx>
#include <BRepPrimAPI_MakeSphere.hxx>
#include <BRepPrimAPI_MakeTorus.hxx>
#include <BRep_Builder.hxx>
#include <GeomAPI_PointsToBSpline.hxx>
#include <Geom_BSplineCurve.hxx>
#include <TColgp_Array1OfPnt.hxx>
#include <TopExp.hxx>
#include <TopExp_Explorer.hxx>
#include <TopTools_IndexedMapOfShape.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Compound.hxx>

#include <algorithm>
#include <numbers>

namespace server::testing {
namespace {

constexpr double pi = std::numbers::pi;
const gp_Ax2 slanted(gp_Pnt(3, 4, 5), gp_Dir(1, 2, 3));

TopoDS_Shape sphere() { return BRepPrimAPI_MakeSphere(slanted, 7).Shape(); }
TopoDS_Shape torus() { return BRepPrimAPI_MakeTorus(slanted, 7, 3).Shape(); }
TopoDS_Shape cone(double bottom, double top) {
    return BRepPrimAPI_MakeCone(slanted, bottom, top, 11).Shape();
}
TopoDS_Shape cylinder(const gp_Ax2& position, double radius, double height) {
    return BRepPrimAPI_MakeCylinder(position, radius, height).Shape();
}

TopoDS_Shape boxWithPocket() {
    return BRepAlgoAPI_Cut(box(), BRepPrimAPI_MakeSphere(gp_Pnt(10, 10, 15), 6).Shape());
}

TopoDS_Shape boxWithVoids() {
    const TopoDS_Shape ball = BRepPrimAPI_MakeSphere(gp_Pnt(5, 10, 22), 3).Shape();
    const TopoDS_Shape ring =
        BRepPrimAPI_MakeTorus(gp_Ax2(gp_Pnt(5, 10, 8), gp_Dir(1, 1, 1)), 2.5, 1).Shape();
    return BRepAlgoAPI_Cut(BRepAlgoAPI_Cut(box(), ball), ring);
}

TopoDS_Shape filletedBox() {
    const TopoDS_Shape block = box();
    BRepFilletAPI_MakeFillet fillet(block);
    for (TopExp_Explorer walk(block, TopAbs_EDGE); walk.More(); walk.Next()) {
        fillet.Add(1.5, TopoDS::Edge(walk.Current()));
    }
    return fillet.Shape();
}

/// A box with a hole, a countersink, a boss with a round top, cut by a slanting cylinder.
TopoDS_Shape cutAndFused() {
    TopoDS_Shape part = BRepPrimAPI_MakeBox(40, 30, 10).Shape();
    part = BRepAlgoAPI_Fuse(part, cylinder(gp_Ax2(gp_Pnt(10, 15, 10), gp::DZ()), 5, 8));
    part = BRepAlgoAPI_Fuse(part, BRepPrimAPI_MakeSphere(gp_Pnt(10, 15, 18), 5).Shape());
    part = BRepAlgoAPI_Cut(part, cylinder(gp_Ax2(gp_Pnt(30, 15, -1), gp::DZ()), 4, 20));
    const gp_Ax2 sunk(gp_Pnt(30, 15, 7), gp::DZ());
    part = BRepAlgoAPI_Cut(part, BRepPrimAPI_MakeCone(sunk, 3, 7, 4).Shape());
    return BRepAlgoAPI_Cut(part, cylinder(gp_Ax2(gp_Pnt(20, -5, 5), gp_Dir(0, 1, 0.2)), 3, 50));
}

TopoDS_Shape boreWithCountersink() {
    const TopoDS_Shape block = BRepPrimAPI_MakeBox(gp_Pnt(-8, -8, 0), 16, 16, 10).Shape();
    const gp_Ax2 sunk(gp_Pnt(0, 0, 7), gp::DZ());
    return BRepAlgoAPI_Cut(BRepAlgoAPI_Cut(block, cylinder(gp::XOY(), 4, 20)),
                           BRepPrimAPI_MakeCone(sunk, 3, 7, 4).Shape());
}

TopoDS_Shape crossedPipes() {
    const gp_Ax2 lying(gp_Pnt(-10, 0.5, 15), gp_Dir(1, 0, 0));
    return BRepAlgoAPI_Fuse(cylinder(gp::XOY(), 5, 30), cylinder(lying, 4, 25));
}

TopoDS_Shape boredCylinder() {
    return BRepAlgoAPI_Cut(cylinder(gp::XOY(), 8, 20),
                           cylinder(gp_Ax2(gp_Pnt(-20, 0, 10), gp::DX()), 4, 40));
}

TopoDS_Edge splineThrough(std::initializer_list<gp_Pnt> points) {
    TColgp_Array1OfPnt array(1, static_cast<int>(points.size()));
    int index = 0;
    for (const gp_Pnt& point : points) array(++index) = point;
    const Handle(Geom_Curve) spline(GeomAPI_PointsToBSpline(array, 3, 5).Curve());
    return BRepBuilderAPI_MakeEdge(spline).Edge();
}

/// The profile runs through `points` and back along straight lines by way of the corners; it lies
/// in the plane of x and z.
TopoDS_Face profile(std::initializer_list<gp_Pnt> points,
                    std::initializer_list<gp_Pnt> corners = {}) {
    BRepBuilderAPI_MakeWire wire(splineThrough(points));
    gp_Pnt from = *(points.end() - 1);
    for (const gp_Pnt& corner : corners) {
        wire.Add(BRepBuilderAPI_MakeEdge(from, corner).Edge());
        from = corner;
    }
    wire.Add(BRepBuilderAPI_MakeEdge(from, *points.begin()).Edge());
    return BRepBuilderAPI_MakeFace(wire.Wire(), Standard_True).Face();
}

TopoDS_Face splineProfile() {
    return profile({gp_Pnt(25, 0, 0), gp_Pnt(45, 0, 15), gp_Pnt(40, 0, 30), gp_Pnt(45, 0, 45),
                    gp_Pnt(25, 0, 60)});
}

TopoDS_Shape revolved(const TopoDS_Face& face, double angle) {
    return BRepPrimAPI_MakeRevol(face, gp::OZ(), angle).Shape();
}

/// It touches its axis.
TopoDS_Shape vase() {
    return revolved(profile({gp_Pnt(4, 0, 0), gp_Pnt(6, 0, 3), gp_Pnt(3, 0, 7), gp_Pnt(5, 0, 11),
                             gp_Pnt(4, 0, 14)},
                            {gp_Pnt(0, 0, 14), gp_Pnt(0, 0, 0)}),
                    2 * pi);
}

TopoDS_Wire ellipse(const gp_Ax2& position, double major, double minor) {
    const gp_Elips curve(position, major, minor);
    return BRepBuilderAPI_MakeWire(BRepBuilderAPI_MakeEdge(curve).Edge()).Wire();
}

TopoDS_Shape ellipticBar() {
    const TopoDS_Face face = BRepBuilderAPI_MakeFace(ellipse(slanted, 6, 2.5)).Face();
    return BRepPrimAPI_MakePrism(face, gp_Vec(slanted.Direction()) * 8).Shape();
}

TopoDS_Shape loft() {
    BRepOffsetAPI_ThruSections sections(Standard_True, Standard_False);
    for (int i = 0; i < 3; ++i) {
        sections.AddWire(ellipse(gp_Ax2(gp_Pnt(2 * i, 0, 16 * i), gp::DZ()), 12 - 2 * i, 6 + i));
    }
    return sections.Shape();
}

/// Rational splines, which close on themselves and have poles, in place of what they stand for.
TopoDS_Shape allSplines(const TopoDS_Shape& shape) {
    return BRepBuilderAPI_NurbsConvert(shape, Standard_True).Shape();
}

TopoDS_Shape bothOf(const TopoDS_Shape& first, const TopoDS_Shape& second) {
    TopoDS_Compound both;
    BRep_Builder builder;
    builder.MakeCompound(both);
    builder.Add(both, first);
    builder.Add(both, second);
    return both;
}

/// The same solid in two places.
TopoDS_Shape twinSolids() {
    gp_Trsf shift, turn;
    shift.SetTranslation(gp_Vec(100, 0, 0));
    turn.SetRotation(gp_Ax1(gp_Pnt(1, 2, 3), gp_Dir(1, 2, -1)), 0.7);
    const TopoDS_Shape part = filletedBox();
    return bothOf(part, part.Moved(TopLoc_Location(shift)).Moved(TopLoc_Location(turn)));
}

TopoDS_Shape solidWithVoidsAndAnother() {
    const gp_Ax2 beside(gp_Pnt(40, 0, 0), gp_Dir(0, 1, 1));
    return bothOf(boxWithVoids(), BRepPrimAPI_MakeCone(beside, 3, 5, 4).Shape());
}

/// Two boxes that touch along one edge, as one solid's shell: that edge has four uses.
TopoDS_Shape touchingAlongAnEdge() {
    return BRepAlgoAPI_Fuse(BRepPrimAPI_MakeBox(gp_Pnt(0, 0, 0), 10, 10, 10).Shape(),
                            BRepPrimAPI_MakeBox(gp_Pnt(10, 10, 0), 10, 10, 10).Shape());
}

} // namespace

TopoDS_Shape box() { return BRepPrimAPI_MakeBox(10, 20, 30).Shape(); }

TopoDS_Shape mirrored(const TopoDS_Shape& shape) {
    gp_Trsf mirror;
    mirror.SetMirror(gp_Ax2(gp_Pnt(1, 2, 3), gp_Dir(1, 1, 0)));
    return BRepBuilderAPI_Transform(shape, mirror, Standard_True).Shape();
}

TopoDS_Shape extrudedSpline() {
    return BRepPrimAPI_MakePrism(splineProfile(), gp_Vec(5, 75, 10)).Shape();
}

TopoDS_Shape splineStrip() {
    BRepBuilderAPI_MakeWire wire(
        splineThrough({gp_Pnt(0, 0, 0), gp_Pnt(8, 0, 15), gp_Pnt(-4, 0, 32), gp_Pnt(6, 0, 45),
                       gp_Pnt(0, 0, 60)}));
    wire.Add(BRepBuilderAPI_MakeEdge(gp_Pnt(0, 0, 60), gp_Pnt(0.3, 0, 60)).Edge());
    wire.Add(splineThrough({gp_Pnt(0.3, 0, 60), gp_Pnt(6.5, 0, 45), gp_Pnt(-3.8, 0, 32),
                            gp_Pnt(8.4, 0, 15), gp_Pnt(0.3, 0, 0)}));
    wire.Add(BRepBuilderAPI_MakeEdge(gp_Pnt(0.3, 0, 0), gp_Pnt(0, 0, 0)).Edge());
    const TopoDS_Face face = BRepBuilderAPI_MakeFace(wire.Wire(), Standard_True).Face();
    return BRepPrimAPI_MakePrism(face, gp_Vec(0, 5, 1)).Shape();
}

const std::vector<NamedShape>& solidShapes() {
    static const std::vector<NamedShape> table{
        {"Box", box, "CreatePlane"},
        {"Cylinder", [] { return cylinder(slanted, 7, 11); }, "CreateCylinder"},
        {"QuarterCylinder", [] { return BRepPrimAPI_MakeCylinder(4, 10, pi / 2).Shape(); },
         "CreateCylinder"},
        {"ConeFrustum", [] { return cone(6, 2); }, "CreateCone"},
        {"WideningCone", [] { return cone(2, 7); }, "CreateCone"},
        {"FullCone", [] { return cone(7, 0); }, "CreateCone"},
        {"ConeOnItsApex", [] { return cone(0, 6); }, "CreateCone"},
        {"Sphere", sphere, "CreateSphere"},
        {"HalfSphere", [] { return BRepPrimAPI_MakeSphere(5, 0, pi / 2).Shape(); }, "CreateSphere"},
        {"SphereSlice", [] { return BRepPrimAPI_MakeSphere(slanted, 7, -0.5, 1.0, 2.0).Shape(); },
         "CreateSphere"},
        {"Torus", torus, "CreateTorus"},
        {"TorusPiece", [] { return BRepPrimAPI_MakeTorus(slanted, 7, 3, 2.0).Shape(); },
         "CreateTorus"},
        {"BoxWithPocket", boxWithPocket, "CreateSphere"},
        {"BoxWithVoids", boxWithVoids, "CreateTorus", 3},
        {"FilletedBox", filletedBox, "CreateSphere"},
        {"CutAndFused", cutAndFused, "CreateSphere"},
        {"CrossedPipes", crossedPipes, "CreateCylinder"},
        {"BoredCylinder", boredCylinder, "CreateCylinder"},
        {"ExtrudedSpline", extrudedSpline, "CreateNURBSSurface"},
        {"RevolvedSpline", [] { return revolved(splineProfile(), 2 * pi); }, "CreateNURBSSurface"},
        {"PartlyRevolvedSpline", [] { return revolved(splineProfile(), 2); }, "CreateNURBSSurface"},
        {"Vase", vase, "CreateNURBSSurface"},
        {"EllipticBar", ellipticBar, "CreateNURBSSurface"},
        {"Loft", loft, "CreateNURBSSurface"},
        {"AllSplines", [] { return allSplines(boreWithCountersink()); }, "CreateNURBSSurface"},
        {"SplineSphere", [] { return allSplines(sphere()); }, "CreateNURBSSurface"},
        {"SplinePocket", [] { return allSplines(boxWithPocket()); }, "CreateNURBSSurface"},
        {"MirroredPipes", [] { return mirrored(crossedPipes()); }, "CreateCylinder"},
        {"MirroredCutAndFused", [] { return mirrored(cutAndFused()); }, "CreateCone"},
        {"MirroredFilletedBox", [] { return mirrored(filletedBox()); }, "CreateCylinder"},
        {"MirroredTorus", [] { return mirrored(torus()); }, "CreateTorus"},
        {"MirroredRevolvedSpline", [] { return mirrored(revolved(splineProfile(), 2)); },
         "CreateNURBSSurface"},
        {"TwinSolids", twinSolids, "CreateSphere", 2},
        {"TwoSolids", solidWithVoidsAndAnother, "CreateCone", 4},
        {"TouchingAlongAnEdge", touchingAlongAnEdge, "CreatePlane", 2},
    };
    return table;
}

TopoDS_Shape shapeNamed(const std::string& name) {
    return std::ranges::find(solidShapes(), name, &NamedShape::name)->make();
}

int countOf(const TopoDS_Shape& shape, TopAbs_ShapeEnum kind) {
    TopTools_IndexedMapOfShape parts;
    TopExp::MapShapes(shape, kind, parts);
    return parts.Extent();
}

} // namespace server::testing
