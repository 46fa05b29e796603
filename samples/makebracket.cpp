// SPDX-License-Identifier: Apache-2.0
// Makes samples/bracket.step: a mounting bracket that has every kind of surface once at least
// (plane, cylinder, cone, sphere, torus, free form), as one closed solid in millimetres.
//
// Usage: make-bracket FILE.step
// The file is the same at every run: its header carries no user, machine or time.
#include <APIHeaderSection_MakeHeader.hxx>
#include <BRepAlgoAPI_Cut.hxx>
#include <BRepAlgoAPI_Fuse.hxx>
#include <BRepBuilderAPI_MakeFace.hxx>
#include <BRepCheck_Analyzer.hxx>
#include <BRepFilletAPI_MakeFillet.hxx>
#include <BRepPrimAPI_MakeBox.hxx>
#include <BRepPrimAPI_MakeCone.hxx>
#include <BRepPrimAPI_MakeCylinder.hxx>
#include <BRepPrimAPI_MakePrism.hxx>
#include <BRepPrimAPI_MakeSphere.hxx>
#include <BRep_Tool.hxx>
#include <GeomAPI_PointsToBSplineSurface.hxx>
#include <Geom_BSplineSurface.hxx>
#include <Interface_Static.hxx>
#include <STEPControl_Writer.hxx>
#include <ShapeUpgrade_UnifySameDomain.hxx>
#include <Standard_Failure.hxx>
#include <TColgp_Array2OfPnt.hxx>
#include <TCollection_HAsciiString.hxx>
#include <TopExp.hxx>
#include <TopExp_Explorer.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Edge.hxx>
#include <TopoDS_Vertex.hxx>

#include <cmath>
#include <functional>
#include <iostream>
#include <stdexcept>

namespace {

using EdgeTest = std::function<bool(const gp_Pnt& first, const gp_Pnt& last)>;

TopoDS_Shape rounded(const TopoDS_Shape& shape, double radius, const EdgeTest& wanted) {
    BRepFilletAPI_MakeFillet fillet(shape);
    for (TopExp_Explorer walk(shape, TopAbs_EDGE); walk.More(); walk.Next()) {
        const TopoDS_Edge& edge = TopoDS::Edge(walk.Current());
        if (BRep_Tool::Degenerated(edge)) continue;
        const gp_Pnt first = BRep_Tool::Pnt(TopExp::FirstVertex(edge));
        const gp_Pnt last = BRep_Tool::Pnt(TopExp::LastVertex(edge));
        if (wanted(first, last)) fillet.Add(radius, edge);
    }
    fillet.Build();
    return fillet.Shape();
}

bool near(double a, double b) { return std::abs(a - b) < 1e-6; }

/// The plate on the table and the wall that stands at its back, in one piece.
TopoDS_Shape plateAndWall() {
    const TopoDS_Shape plate = BRepPrimAPI_MakeBox(gp_Pnt(0, 0, 0), 80, 50, 10).Shape();
    const TopoDS_Shape wall = BRepPrimAPI_MakeBox(gp_Pnt(0, 40, 0), 80, 10, 60).Shape();
    const TopoDS_Shape joined = BRepAlgoAPI_Fuse(plate, wall).Shape();
    ShapeUpgrade_UnifySameDomain unify(joined);
    unify.Build();
    return unify.Shape();
}

/// Rounds the two front corners of the plate and the inner edge along the wall.
TopoDS_Shape withRoundings(const TopoDS_Shape& shape) {
    const TopoDS_Shape corners = rounded(shape, 8, [](const gp_Pnt& a, const gp_Pnt& b) {
        return near(a.Y(), 0) && near(b.Y(), 0) && near(a.X(), b.X());
    });
    return rounded(corners, 4, [](const gp_Pnt& a, const gp_Pnt& b) {
        return near(a.Y(), 40) && near(b.Y(), 40) && near(a.Z(), 10) && near(b.Z(), 10);
    });
}

/// What lies above a gentle wave across the wall's top.
TopoDS_Shape aboveTheWave() {
    TColgp_Array2OfPnt points(1, 7, 1, 4);
    for (int i = 1; i <= 7; ++i) {
        for (int j = 1; j <= 4; ++j) {
            const double x = -10 + (i - 1) * 100.0 / 6, y = 30 + (j - 1) * 10.0;
            points(i, j) = gp_Pnt(x, y, 50 + 4 * std::sin(x / 13) + (y - 45) * (y - 45) / 60);
        }
    }
    const Handle(Geom_Surface)
        wave(GeomAPI_PointsToBSplineSurface(points, 3, 5, GeomAbs_C2, 1e-3).Surface());
    const TopoDS_Face face = BRepBuilderAPI_MakeFace(wave, 1e-6).Face();
    return BRepPrimAPI_MakePrism(face, gp_Vec(0, 0, 40)).Shape();
}

/// A round boss with a rounded foot and a spherical dimple on top.
TopoDS_Shape withBoss(const TopoDS_Shape& shape) {
    const gp_Ax2 foot(gp_Pnt(40, 20, 10), gp::DZ());
    const TopoDS_Shape boss = BRepPrimAPI_MakeCylinder(foot, 9, 8).Shape();
    const TopoDS_Shape joined = BRepAlgoAPI_Fuse(shape, boss).Shape();
    const TopoDS_Shape footed = rounded(joined, 2, [](const gp_Pnt& a, const gp_Pnt& b) {
        return near(a.Z(), 10) && near(b.Z(), 10) && near(a.Distance(gp_Pnt(40, 20, 10)), 9) &&
               near(a.Distance(b), 0);
    });
    return BRepAlgoAPI_Cut(footed, BRepPrimAPI_MakeSphere(gp_Pnt(40, 20, 20), 6).Shape()).Shape();
}

/// A countersunk hole, a plain one, and one through the wall.
TopoDS_Shape withHoles(TopoDS_Shape shape) {
    const auto drill = [&shape](const TopoDS_Shape& tool) {
        shape = BRepAlgoAPI_Cut(shape, tool).Shape();
    };
    drill(BRepPrimAPI_MakeCylinder(gp_Ax2(gp_Pnt(14, 18, -1), gp::DZ()), 4, 12).Shape());
    drill(BRepPrimAPI_MakeCone(gp_Ax2(gp_Pnt(14, 18, 6), gp::DZ()), 3, 8, 5).Shape());
    drill(BRepPrimAPI_MakeCylinder(gp_Ax2(gp_Pnt(66, 18, -1), gp::DZ()), 5, 12).Shape());
    drill(BRepPrimAPI_MakeCylinder(gp_Ax2(gp_Pnt(40, 39, 32), gp::DY()), 7, 12).Shape());
    return shape;
}

TopoDS_Shape makeBracket() {
    const TopoDS_Shape body = withRoundings(plateAndWall());
    const TopoDS_Shape waved = BRepAlgoAPI_Cut(body, aboveTheWave()).Shape();
    const TopoDS_Shape made = withHoles(withBoss(waved));
    TopExp_Explorer solids(made, TopAbs_SOLID);
    if (!solids.More() || !BRepCheck_Analyzer(made).IsValid()) {
        throw std::runtime_error("the bracket came out invalid");
    }
    const TopoDS_Shape solid = solids.Current();
    solids.Next();
    if (solids.More()) throw std::runtime_error("the bracket fell apart");
    return solid;
}

Handle(TCollection_HAsciiString) text(const char* value) {
    return new TCollection_HAsciiString(value);
}

void write(const TopoDS_Shape& shape, const char* path) {
    STEPControl_Writer writer;
    Interface_Static::SetCVal("write.step.schema", "AP214IS");
    Interface_Static::SetCVal("write.step.unit", "MM");
    Interface_Static::SetCVal("write.step.product.name", "bracket");
    if (writer.Transfer(shape, STEPControl_AsIs) != IFSelect_RetDone) {
        throw std::runtime_error("the bracket could not be turned into STEP");
    }
    APIHeaderSection_MakeHeader header(writer.Model());
    header.SetName(text("bracket.step"));
    header.SetTimeStamp(text("2020-01-01T00:00:00"));
    header.SetAuthorValue(1, text(""));
    header.SetOrganizationValue(1, text(""));
    header.SetOriginatingSystem(text("make-bracket"));
    header.SetPreprocessorVersion(text(""));
    header.SetAuthorisation(text(""));
    if (writer.Write(path) != IFSelect_RetDone) throw std::runtime_error("it could not be written");
}

} // namespace

int main(int count, char** words) {
    if (count != 2) {
        std::cerr << "usage: make-bracket FILE.step\n";
        return 2;
    }
    try {
        write(makeBracket(), words[1]);
    } catch (const std::exception& failure) {
        std::cerr << "make-bracket: " << failure.what() << '\n';
        return 1;
    } catch (const Standard_Failure& failure) {
        std::cerr << "make-bracket: " << failure << '\n';
        return 1;
    }
}
