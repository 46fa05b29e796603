// SPDX-License-Identifier: Apache-2.0
// Solids first, then shells outside them, then faces outside those.
#include "server/reading/bodies.h"

#include "server/geometry/edgecurve.h"
#include "server/geometry/facesurface.h"

#include <BRepBuilderAPI_Sewing.hxx>
#include <BRepBuilderAPI_Transform.hxx>
#include <BRepLib.hxx>
#include <BRep_Builder.hxx>
#include <BRep_Tool.hxx>
#include <ShapeAnalysis_ShapeTolerance.hxx>
#include <TopExp.hxx>
#include <TopExp_Explorer.hxx>
#include <TopTools_IndexedMapOfShape.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Solid.hxx>

#include <algorithm>
#include <cmath>
#include <string>

namespace server {
namespace {

/// Rigid motions may stay in the location; a mirror or a scale has to be worked into the geometry.
TopoDS_Shape placed(const TopoDS_Shape& shape) {
    const gp_Trsf motion = shape.Location().Transformation();
    if (!motion.IsNegative() && std::abs(motion.ScaleFactor() - 1.0) < 1e-12) return shape;
    return BRepBuilderAPI_Transform(shape.Located(TopLoc_Location()), motion, Standard_True)
        .Shape();
}

Body bodyOf(const TopoDS_Shape& solidOrShell) {
    Body body;
    for (TopExp_Explorer walk(placed(solidOrShell), TopAbs_SHELL); walk.More(); walk.Next()) {
        body.shells.push_back(TopoDS::Shell(walk.Current()));
    }
    return body;
}

std::vector<TopoDS_Shape> outside(const TopoDS_Shape& shape, TopAbs_ShapeEnum kind,
                                  TopAbs_ShapeEnum avoided) {
    std::vector<TopoDS_Shape> found;
    for (TopExp_Explorer walk(shape, kind, avoided); walk.More(); walk.Next()) {
        found.push_back(walk.Current());
    }
    return found;
}

/// A sewn shell may come out inside out; whether it does is known only when it closes.
TopoDS_Shell turnedOutward(const TopoDS_Shell& shell) {
    if (!BRep_Tool::IsClosed(shell)) return shell;
    TopoDS_Solid solid;
    BRep_Builder builder;
    builder.MakeSolid(solid);
    builder.Add(solid, shell);
    BRepLib::OrientClosedSolid(solid);
    return TopoDS::Shell(TopExp_Explorer(solid, TopAbs_SHELL).Current());
}

TopoDS_Shell shellAround(const TopoDS_Shape& face) {
    TopoDS_Shell shell;
    BRep_Builder builder;
    builder.MakeShell(shell);
    builder.Add(shell, face);
    return shell;
}

struct Sewn {
    TopoDS_Shape shape;
    int freeEdges = 0;
};

Sewn sew(const std::vector<TopoDS_Shape>& faces, double tolerance) {
    BRepBuilderAPI_Sewing sewing(tolerance);
    for (const TopoDS_Shape& face : faces) sewing.Add(face);
    sewing.Perform();
    return {sewing.SewedShape(), sewing.NbFreeEdges()};
}

/// Faces that don't close are tried again at the tolerance that the file itself needed.
TopoDS_Shape sewnTogether(const std::vector<TopoDS_Shape>& faces, double tolerance) {
    const Sewn first = sew(faces, tolerance);
    double greatest = 0.0;
    for (const TopoDS_Shape& face : faces) {
        greatest = std::max(greatest, ShapeAnalysis_ShapeTolerance().Tolerance(face, 1));
    }
    if (first.freeEdges == 0 || 2.0 * greatest <= tolerance) return first.shape;
    const Sewn second = sew(faces, 2.0 * greatest);
    return second.freeEdges == 0 ? second.shape : first.shape;
}

void appendSewn(const std::vector<TopoDS_Shape>& faces, double tolerance, std::vector<Body>& bodies,
                Report& report) {
    const TopoDS_Shape sewn = sewnTogether(faces, tolerance);
    const std::size_t before = bodies.size();
    for (const TopoDS_Shape& shell : outside(sewn, TopAbs_SHELL, TopAbs_SHAPE)) {
        bodies.push_back({{turnedOutward(TopoDS::Shell(shell))}});
    }
    for (const TopoDS_Shape& face : outside(sewn, TopAbs_FACE, TopAbs_SHELL)) {
        bodies.push_back({{shellAround(face)}});
    }
    report.converted({"faces", 0, std::to_string(faces.size()) + " loose faces",
                      std::to_string(bodies.size() - before) + " shells", "sewn together"});
}

void dropLoose(std::size_t count, const char* what, const char* why, Report& report) {
    if (count > 0) report.dropped(what, 0, std::to_string(count) + " of them: " + why);
}

void appendLooseFaces(const TopoDS_Shape& shape, double sewingTolerance, std::vector<Body>& bodies,
                      Report& report) {
    const auto faces = outside(shape, TopAbs_FACE, TopAbs_SHELL);
    if (faces.size() == 1) {
        bodies.push_back({{shellAround(faces.front())}});
    } else if (!faces.empty()) {
        appendSewn(faces, sewingTolerance, bodies, report);
    }
}

int distinct(const std::vector<Body>& bodies, TopAbs_ShapeEnum kind,
             std::map<std::string, int>& kinds) {
    TopTools_IndexedMapOfShape all;
    for (const Body& body : bodies) {
        for (const TopoDS_Shell& shell : body.shells) TopExp::MapShapes(shell, kind, all);
    }
    for (int i = 1; i <= all.Extent(); ++i) {
        ++kinds[kind == TopAbs_FACE ? surfaceKind(TopoDS::Face(all(i)))
                                    : curveKind(TopoDS::Edge(all(i)))];
    }
    return all.Extent();
}

} // namespace

std::vector<Body> bodiesOf(const TopoDS_Shape& shape, const BodyOptions& options, Report& report) {
    std::vector<Body> bodies;
    for (const TopoDS_Shape& solid : outside(shape, TopAbs_SOLID, TopAbs_SHAPE)) {
        bodies.push_back(bodyOf(solid));
    }
    const char* unwanted = "only solids are asked for";
    if (options.solidsOnly) {
        dropLoose(outside(shape, TopAbs_SHELL, TopAbs_SOLID).size(), "shells", unwanted, report);
        dropLoose(outside(shape, TopAbs_FACE, TopAbs_SHELL).size(), "faces", unwanted, report);
    } else {
        for (const TopoDS_Shape& shell : outside(shape, TopAbs_SHELL, TopAbs_SOLID)) {
            bodies.push_back(bodyOf(shell));
        }
        appendLooseFaces(shape, options.sewingTolerance, bodies, report);
    }
    const char* bare = "edges and points outside faces aren't part of a body";
    dropLoose(outside(shape, TopAbs_EDGE, TopAbs_FACE).size(), "free edges", bare, report);
    dropLoose(outside(shape, TopAbs_VERTEX, TopAbs_EDGE).size(), "free points", bare, report);
    return bodies;
}

void countWhatWasRead(const std::vector<Body>& bodies, const TopoDS_Shape& shape, Report& report) {
    int shells = 0;
    for (const Body& body : bodies) shells += static_cast<int>(body.shells.size());
    report.read["solid"] = static_cast<int>(outside(shape, TopAbs_SOLID, TopAbs_SHAPE).size());
    report.read["shell"] = shells;
    report.read["face"] = distinct(bodies, TopAbs_FACE, report.surfaceKinds);
    report.read["edge"] = distinct(bodies, TopAbs_EDGE, report.curveKinds);
}

} // namespace server
