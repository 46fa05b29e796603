// SPDX-License-Identifier: Apache-2.0
// The frame of the model: accuracy and unit in front, shells in between, bodies last.
#include "server/writing/modelwriter.h"

#include "cadimport/topologymessages.h"
#include "server/writing/shapemessages.h"
#include "server/writing/shellwriter.h"

#include <BRepBndLib.hxx>
#include <BRep_Builder.hxx>
#include <Precision.hxx>
#include <ShapeAnalysis_ShapeTolerance.hxx>
#include <TopExp_Explorer.hxx>
#include <TopoDS_Compound.hxx>

#include <algorithm>
#include <cmath>

namespace server {
namespace {

TopoDS_Compound together(const std::vector<Body>& bodies) {
    TopoDS_Compound all;
    BRep_Builder builder;
    builder.MakeCompound(all);
    for (const Body& body : bodies) {
        for (const TopoDS_Shell& shell : body.shells) builder.Add(all, shell);
    }
    return all;
}

double diagonalOf(const TopoDS_Shape& shape) {
    Bnd_Box box;
    BRepBndLib::Add(shape, box, Standard_False);
    return box.IsVoid() || box.IsOpen() ? 0.0 : std::sqrt(box.SquareExtent());
}

int countFaces(const TopoDS_Shape& shape) {
    int count = 0;
    for (TopExp_Explorer walk(shape, TopAbs_FACE); walk.More(); walk.Next()) ++count;
    return count;
}

CADImport::NewModel newModel(const TopoDS_Shape& shape, double unit) {
    CADImport::NewModel message;
    message.absolute = true;
    message.accuracy =
        std::max(ShapeAnalysis_ShapeTolerance().Tolerance(shape, 1), Precision::Confusion());
    message.unit = unit;
    return message;
}

CADImport::CreateBody writeShellsOf(const Body& body, const ShellPlanning& planning,
                                    MessageSink& sink) {
    CADImport::CreateBody message;
    Bnd_Box box;
    for (const TopoDS_Shell& shell : body.shells) {
        const ShellPlan plan = planShell(shell, planning);
        if (plan.identifier == 0) {
            planning.report.dropped("shell", 0, "none of its faces could be written");
            continue;
        }
        writeShell(plan, sink);
        message.shells.append(plan.identifier);
        box.Add(plan.box);
    }
    message.boundingBox = messageBox(box);
    return message;
}

} // namespace

void writeModel(const std::vector<Body>& bodies, QDataStream& stream, Progress& progress,
                Report& report) {
    stream.setVersion(CADImport::streamVersion);
    const TopoDS_Compound all = together(bodies);
    MessageSink sink(stream, report);
    sink.write(newModel(all, report.unit.millimetres));
    IdentifierCounters identifiers;
    const double faces = std::max(1, countFaces(all));
    int done = 0;
    const ShellPlanning planning{identifiers, report,
                                 Tolerances::of(report.unit.millimetres, diagonalOf(all)),
                                 [&] { progress.reach(++done / faces); }};
    std::vector<CADImport::CreateBody> written;
    for (const Body& body : bodies) written.push_back(writeShellsOf(body, planning, sink));
    for (CADImport::CreateBody& body : written) {
        if (body.shells.isEmpty()) continue;
        body.identifier = ++identifiers.body;
        sink.write(body);
    }
    sink.write(CADImport::EndModel());
}

} // namespace server
