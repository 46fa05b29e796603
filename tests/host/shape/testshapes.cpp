// SPDX-License-Identifier: Apache-2.0
// By the kernel's own primitives and operations.
#include "tests/host/shape/testshapes.h"

#include <BRepAlgoAPI_Cut.hxx>
#include <BRepAlgoAPI_Fuse.hxx>
#include <BRepBuilderAPI_MakeEdge.hxx>
#include <BRepBuilderAPI_MakeFace.hxx>
#include <BRepBuilderAPI_MakeWire.hxx>
#include <BRepBuilderAPI_NurbsConvert.hxx>
#include <BRepBuilderAPI_Transform.hxx>
#include <BRepFilletAPI_MakeFillet.hxx>
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
#include <TopTools_IndexedMapOfShape.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Compound.hxx>
#include <TopoDS_Wire.hxx>
#include <gp_Elips.hxx>

namespace host {
namespace {

const gp_Ax2 tilted(gp_Pnt(3, 4, 5), gp_Dir(1, 2, 3));

TopoDS_Shape sphere() { return BRepPrimAPI_MakeSphere(tilted, 7).Shape(); }
TopoDS_Shape sphereSlice() { return BRepPrimAPI_MakeSphere(tilted, 7, -0.5, 1.0, 2.0).Shape(); }
TopoDS_Shape cylinder() { return BRepPrimAPI_MakeCylinder(tilted, 7, 11).Shape(); }
TopoDS_Shape cone() { return BRepPrimAPI_MakeCone(tilted, 7, 0, 11).Shape(); }
TopoDS_Shape coneUpsideDown() { return BRepPrimAPI_MakeCone(tilted, 2, 7, 11).Shape(); }
TopoDS_Shape torus() { return BRepPrimAPI_MakeTorus(tilted, 7, 3).Shape(); }
TopoDS_Shape torusPiece() { return BRepPrimAPI_MakeTorus(tilted, 7, 3, 2.0).Shape(); }

TopoDS_Shape boxWithPocket() {
    return BRepAlgoAPI_Cut(boxShape(), BRepPrimAPI_MakeSphere(gp_Pnt(10, 10, 15), 6).Shape());
}

TopoDS_Shape boxWithVoids() {
    const TopoDS_Shape ball = BRepPrimAPI_MakeSphere(gp_Pnt(5, 10, 22), 3).Shape();
    const TopoDS_Shape ring =
        BRepPrimAPI_MakeTorus(gp_Ax2(gp_Pnt(5, 10, 8), gp_Dir(1, 1, 1)), 2.5, 1).Shape();
    return BRepAlgoAPI_Cut(BRepAlgoAPI_Cut(boxShape(), ball), ring);
}

TopoDS_Shape crossedPipes() {
    const TopoDS_Shape lying =
        BRepPrimAPI_MakeCylinder(gp_Ax2(gp_Pnt(-10, 0.5, 15), gp_Dir(1, 0, 0)), 4, 25).Shape();
    return BRepAlgoAPI_Fuse(BRepPrimAPI_MakeCylinder(5, 30).Shape(), lying);
}

TopoDS_Shape roundedBox() {
    const TopoDS_Shape box = boxShape();
    BRepFilletAPI_MakeFillet fillet(box);
    TopTools_IndexedMapOfShape edges;
    TopExp::MapShapes(box, TopAbs_EDGE, edges);
    for (int i = 1; i <= edges.Extent(); ++i) fillet.Add(1.5, TopoDS::Edge(edges(i)));
    return fillet.Shape();
}

Handle(Geom_BSplineCurve) wave() {
    TColgp_Array1OfPnt points(1, 5);
    points(1) = gp_Pnt(4, 0, 0);
    points(2) = gp_Pnt(6, 0, 3);
    points(3) = gp_Pnt(3, 0, 7);
    points(4) = gp_Pnt(5, 0, 11);
    points(5) = gp_Pnt(4, 0, 14);
    return GeomAPI_PointsToBSpline(points).Curve();
}

/// The area between the wave and the z axis.
TopoDS_Face waveFace() {
    const gp_Pnt low(4, 0, 0), high(4, 0, 14), bottom(0, 0, 0), top(0, 0, 14);
    BRepBuilderAPI_MakeWire wire(
        BRepBuilderAPI_MakeEdge(wave()).Edge(), BRepBuilderAPI_MakeEdge(high, top).Edge(),
        BRepBuilderAPI_MakeEdge(top, bottom).Edge(), BRepBuilderAPI_MakeEdge(bottom, low).Edge());
    return BRepBuilderAPI_MakeFace(wire.Wire()).Face();
}

TopoDS_Shape vase() { return BRepPrimAPI_MakeRevol(waveFace(), gp::OZ()).Shape(); }
TopoDS_Shape waveBar() { return BRepPrimAPI_MakePrism(waveFace(), gp_Vec(1, 9, 2)).Shape(); }

TopoDS_Shape ellipticBar() {
    const gp_Elips ellipse(tilted, 6, 2.5);
    const TopoDS_Wire wire =
        BRepBuilderAPI_MakeWire(BRepBuilderAPI_MakeEdge(ellipse).Edge()).Wire();
    const TopoDS_Face face = BRepBuilderAPI_MakeFace(wire).Face();
    return BRepPrimAPI_MakePrism(face, gp_Vec(tilted.Direction()) * 8).Shape();
}

/// Spheres and cylinders as rational splines that close on themselves and have poles.
TopoDS_Shape splineSphere() { return BRepBuilderAPI_NurbsConvert(sphere()).Shape(); }
TopoDS_Shape splinePocket() { return BRepBuilderAPI_NurbsConvert(boxWithPocket()).Shape(); }

TopoDS_Shape mirroredPipes() {
    gp_Trsf mirror;
    mirror.SetMirror(gp_Ax2(gp_Pnt(1, 2, 3), gp_Dir(1, 1, 0)));
    return BRepBuilderAPI_Transform(crossedPipes(), mirror, true).Shape();
}

TopoDS_Shape twoSolids() {
    TopoDS_Compound both;
    BRep_Builder().MakeCompound(both);
    BRep_Builder().Add(both, boxWithVoids());
    BRep_Builder().Add(
        both, BRepPrimAPI_MakeCone(gp_Ax2(gp_Pnt(40, 0, 0), gp_Dir(0, 1, 1)), 3, 5, 4).Shape());
    return both;
}

} // namespace

TopoDS_Shape boxShape() { return BRepPrimAPI_MakeBox(10, 20, 30).Shape(); }

const std::vector<TestShape>& testShapes() {
    static const std::vector<TestShape> shapes{{"box", boxShape},
                                               {"sphere", sphere},
                                               {"sphereSlice", sphereSlice},
                                               {"cylinder", cylinder},
                                               {"cone", cone},
                                               {"coneUpsideDown", coneUpsideDown},
                                               {"torus", torus},
                                               {"torusPiece", torusPiece},
                                               {"boxWithPocket", boxWithPocket},
                                               {"boxWithVoids", boxWithVoids, 3},
                                               {"crossedPipes", crossedPipes},
                                               {"mirroredPipes", mirroredPipes},
                                               {"roundedBox", roundedBox},
                                               {"vase", vase},
                                               {"waveBar", waveBar},
                                               {"ellipticBar", ellipticBar},
                                               {"splineSphere", splineSphere},
                                               {"splinePocket", splinePocket},
                                               {"twoSolids", twoSolids, 4}};
    return shapes;
}

} // namespace host
