// SPDX-License-Identifier: Apache-2.0
// Solids first, then shells outside them, then faces outside those.
#include "server/reading/bodies.h"

#include "server/geometry/edgecurve.h"
#include "server/geometry/facesurface.h"
#include "server/geometry/soundness.h"

#include <BRepBuilderAPI_Transform.hxx>
#include <TopExp.hxx>
#include <TopExp_Explorer.hxx>
#include <TopTools_IndexedMapOfShape.hxx>
#include <TopoDS.hxx>

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

void noteUnwanted(std::size_t count, const char* what, Report& report) {
    const std::string number = std::to_string(count);
    if (count > 0) report.noted(what, 0, number + " of them: only solids are asked for");
}

void dropLoose(std::size_t count, const char* what, Report& report) {
    const char* why = " of them: edges and points outside faces aren't part of a body";
    if (count > 0) report.dropped(what, 0, std::to_string(count) + why);
}

/// Sewing would be the first to stumble over faces that can't be written anyway.
void appendLooseFaces(const TopoDS_Shape& shape, const SewingOptions& options,
                      std::vector<Body>& bodies, Report& report) {
    std::vector<TopoDS_Shape> sound;
    int number = 0;
    for (const TopoDS_Shape& face : outside(shape, TopAbs_FACE, TopAbs_SHELL)) {
        ++number;
        const std::string fault = faultOf(TopoDS::Face(face));
        if (fault.empty()) {
            sound.push_back(face);
        } else {
            report.dropped("loose face of the file", number, fault);
        }
    }
    if (sound.empty()) return;
    for (const TopoDS_Shell& shell : sewnShells(sound, options, report))
        bodies.push_back({{shell}});
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
    if (options.solidsOnly) {
        noteUnwanted(outside(shape, TopAbs_SHELL, TopAbs_SOLID).size(), "shells", report);
        noteUnwanted(outside(shape, TopAbs_FACE, TopAbs_SHELL).size(), "faces", report);
        return bodies;
    }
    for (const TopoDS_Shape& shell : outside(shape, TopAbs_SHELL, TopAbs_SOLID)) {
        bodies.push_back(bodyOf(shell));
    }
    appendLooseFaces(shape, options.sewing, bodies, report);
    dropLoose(outside(shape, TopAbs_EDGE, TopAbs_FACE).size(), "free edges", report);
    dropLoose(outside(shape, TopAbs_VERTEX, TopAbs_EDGE).size(), "free points", report);
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
