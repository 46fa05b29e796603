// SPDX-License-Identifier: Apache-2.0
// The table of shapes.
#include "tests/server/shapes.h"

#include <BRepAlgoAPI_Common.hxx>
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
#include <GC_MakeArcOfCircle.hxx>
#include <GeomAPI_PointsToBSpline.hxx>
#include <Geom_BSplineCurve.hxx>
#include <Geom_TrimmedCurve.hxx>
#include <TColgp_Array1OfPnt.hxx>
#include <TopExp_Explorer.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Compound.hxx>

#include <numbers>

namespace server::testing {
namespace {

constexpr double pi = std::numbers::pi;

TopoDS_Shape moved(const TopoDS_Shape& shape, double x, double y, double z) {
    gp_Trsf motion;
    motion.SetTranslation(gp_Vec(x, y, z));
    return shape.Moved(TopLoc_Location(motion));
}

TopoDS_Shape tilted(const TopoDS_Shape& shape) {
    gp_Trsf motion;
    motion.SetRotation(gp_Ax1(gp_Pnt(1, 2, 3), gp_Dir(1, 2, -1)), 0.7);
    return shape.Moved(TopLoc_Location(motion));
}

TopoDS_Shape filletedBox() {
    const TopoDS_Shape block = box();
    BRepFilletAPI_MakeFillet fillet(block);
    for (TopExp_Explorer walk(block, TopAbs_EDGE); walk.More(); walk.Next()) {
        fillet.Add(1.5, TopoDS::Edge(walk.Current()));
    }
    return fillet.Shape();
}

TopoDS_Shape boreWithCountersink() {
    const TopoDS_Shape block = BRepPrimAPI_MakeBox(gp_Pnt(-8, -8, 0), 16, 16, 10).Shape();
    const TopoDS_Shape bored =
        BRepAlgoAPI_Cut(block, BRepPrimAPI_MakeCylinder(4, 20).Shape()).Shape();
    return BRepAlgoAPI_Cut(bored,
                           BRepPrimAPI_MakeCone(gp_Ax2(gp_Pnt(0, 0, 7), gp::DZ()), 3, 7, 4).Shape())
        .Shape();
}

/// A box with a hole, a countersink, a boss with a round top, cut by a slanting cylinder.
TopoDS_Shape cutAndFused() {
    TopoDS_Shape part = BRepPrimAPI_MakeBox(40, 30, 10).Shape();
    part = BRepAlgoAPI_Fuse(
               part, BRepPrimAPI_MakeCylinder(gp_Ax2(gp_Pnt(10, 15, 10), gp::DZ()), 5, 8).Shape())
               .Shape();
    part = BRepAlgoAPI_Fuse(part, BRepPrimAPI_MakeSphere(gp_Pnt(10, 15, 18), 5).Shape()).Shape();
    part = BRepAlgoAPI_Cut(
               part, BRepPrimAPI_MakeCylinder(gp_Ax2(gp_Pnt(30, 15, -1), gp::DZ()), 4, 20).Shape())
               .Shape();
    part = BRepAlgoAPI_Cut(
               part, BRepPrimAPI_MakeCone(gp_Ax2(gp_Pnt(30, 15, 7), gp::DZ()), 3, 7, 4).Shape())
               .Shape();
    const gp_Ax2 slanting(gp_Pnt(20, -5, 5), gp_Dir(0, 1, 0.2));
    return BRepAlgoAPI_Cut(part, BRepPrimAPI_MakeCylinder(slanting, 3, 50).Shape()).Shape();
}

/// The profile runs through `points` and back along a straight line; it lies in the plane of x and
/// z.
TopoDS_Face profile(std::initializer_list<gp_Pnt> points) {
    TColgp_Array1OfPnt array(1, static_cast<int>(points.size()));
    int index = 0;
    for (const gp_Pnt& point : points) array(++index) = point;
    const Handle(Geom_Curve) spline(GeomAPI_PointsToBSpline(array, 3, 5).Curve());
    BRepBuilderAPI_MakeWire wire(BRepBuilderAPI_MakeEdge(spline).Edge());
    wire.Add(BRepBuilderAPI_MakeEdge(array.Last(), array.First()).Edge());
    return BRepBuilderAPI_MakeFace(wire.Wire(), Standard_True).Face();
}

TopoDS_Face splineProfile() {
    return profile({gp_Pnt(5, 0, 0), gp_Pnt(9, 0, 3), gp_Pnt(6, 0, 6), gp_Pnt(8, 0, 12)});
}

TopoDS_Shape revolvedSpline(double angle) {
    return BRepPrimAPI_MakeRevol(splineProfile(), gp::OZ(), angle).Shape();
}

/// The same swept shapes with planes, cylinders and the like hidden behind sweeps would come from
/// other systems; here everything is a B-spline.
TopoDS_Shape allSplines(const TopoDS_Shape& shape) {
    return BRepBuilderAPI_NurbsConvert(shape, Standard_True).Shape();
}

TopoDS_Shape loft() {
    BRepOffsetAPI_ThruSections sections(Standard_True, Standard_False);
    for (int i = 0; i < 3; ++i) {
        const gp_Ax2 position(gp_Pnt(i, 0, 8.0 * i), gp::DZ());
        const gp_Elips ellipse(position, 6 - i, 3 + 0.5 * i);
        sections.AddWire(BRepBuilderAPI_MakeWire(BRepBuilderAPI_MakeEdge(ellipse).Edge()).Wire());
    }
    return sections.Shape();
}

TopoDS_Shape twoSolidsApart() {
    TopoDS_Compound both;
    BRep_Builder builder;
    builder.MakeCompound(both);
    const TopoDS_Shape part = filletedBox();
    builder.Add(both, part);
    builder.Add(both, tilted(moved(part, 100, 0, 0)));
    return both;
}

/// Two boxes that touch along one edge, as one solid's shell: that edge has four uses.
TopoDS_Shape touchingAlongAnEdge() {
    return BRepAlgoAPI_Fuse(BRepPrimAPI_MakeBox(gp_Pnt(0, 0, 0), 10, 10, 10).Shape(),
                            BRepPrimAPI_MakeBox(gp_Pnt(10, 10, 0), 10, 10, 10).Shape())
        .Shape();
}

TopoDS_Shape cone(double bottom, double top) {
    return BRepPrimAPI_MakeCone(bottom, top, 9).Shape();
}

TopoDS_Shape cylinderCut() {
    return BRepAlgoAPI_Cut(
               BRepPrimAPI_MakeCylinder(8, 20).Shape(),
               BRepPrimAPI_MakeCylinder(gp_Ax2(gp_Pnt(-20, 0, 10), gp::DX()), 4, 40).Shape())
        .Shape();
}

} // namespace

TopoDS_Shape box() { return BRepPrimAPI_MakeBox(10, 20, 30).Shape(); }

TopoDS_Shape boxWithVoid() {
    return BRepAlgoAPI_Cut(box(), BRepPrimAPI_MakeSphere(gp_Pnt(5, 10, 15), 3).Shape()).Shape();
}

TopoDS_Shape mirrored(const TopoDS_Shape& shape) {
    gp_Trsf mirror;
    mirror.SetMirror(gp_Ax2(gp_Pnt(1, 2, 3), gp_Dir(1, 1, 0)));
    return BRepBuilderAPI_Transform(shape, mirror, Standard_True).Shape();
}

TopoDS_Shape extrudedSpline() {
    return BRepPrimAPI_MakePrism(splineProfile(), gp_Vec(0, 15, 0)).Shape();
}

const std::vector<NamedShape>& solidShapes() {
    static const std::vector<NamedShape> table{
        {"Box", box, "CreatePlane"},
        {"Cylinder", [] { return BRepPrimAPI_MakeCylinder(4, 10).Shape(); }, "CreateCylinder"},
        {"QuarterCylinder", [] { return BRepPrimAPI_MakeCylinder(4, 10, pi / 2).Shape(); },
         "CreateCylinder"},
        {"ConeFrustum", [] { return cone(6, 2); }, "CreateCone"},
        {"WideningCone", [] { return cone(2, 6); }, "CreateCone"},
        {"FullCone", [] { return cone(6, 0); }, "CreateCone"},
        {"ConeOnItsApex", [] { return cone(0, 6); }, "CreateCone"},
        {"Sphere", [] { return BRepPrimAPI_MakeSphere(5).Shape(); }, "CreateSphere"},
        {"HalfSphere", [] { return BRepPrimAPI_MakeSphere(5, 0, pi / 2).Shape(); }, "CreateSphere"},
        {"Torus", [] { return BRepPrimAPI_MakeTorus(8, 2).Shape(); }, "CreateTorus"},
        {"CutAndFused", cutAndFused, "CreateSphere"},
        {"CrossedCylinders", cylinderCut, "CreateCylinder"},
        {"BoxWithVoid", boxWithVoid, "CreateSphere"},
        {"FilletedBox", filletedBox, "CreateSphere"},
        {"ExtrudedSpline", extrudedSpline, "CreateNURBSSurface"},
        {"RevolvedSpline", [] { return revolvedSpline(2 * pi); }, "CreateNURBSSurface"},
        {"PartlyRevolvedSpline", [] { return revolvedSpline(2); }, "CreateNURBSSurface"},
        {"Loft", loft, "CreateNURBSSurface"},
        {"AllSplines", [] { return allSplines(boreWithCountersink()); }, "CreateNURBSSurface"},
        {"MirroredCutAndFused", [] { return mirrored(cutAndFused()); }, "CreateCone"},
        {"MirroredFilletedBox", [] { return mirrored(filletedBox()); }, "CreateCylinder"},
        {"MirroredTorus", [] { return mirrored(BRepPrimAPI_MakeTorus(8, 2).Shape()); },
         "CreateTorus"},
        {"MirroredRevolvedSpline", [] { return mirrored(revolvedSpline(2)); },
         "CreateNURBSSurface"},
        {"TiltedTorus", [] { return tilted(BRepPrimAPI_MakeTorus(8, 2).Shape()); }, "CreateTorus"},
        {"TwoSolids", twoSolidsApart, "CreateSphere"},
        {"TouchingAlongAnEdge", touchingAlongAnEdge, "CreatePlane"},
    };
    return table;
}

} // namespace server::testing
