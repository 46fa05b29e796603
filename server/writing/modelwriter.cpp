// SPDX-License-Identifier: Apache-2.0
// The frame of the model: accuracy and unit in front, shells in between, bodies last.
#include "server/writing/modelwriter.h"

#include "cadimport/topologymessages.h"
#include "host/measure/border.h"
#include "server/geometry/soundness.h"
#include "server/writing/shapemessages.h"
#include "server/writing/shellwriter.h"

#include <BRepBndLib.hxx>
#include <BRep_Builder.hxx>
#include <Precision.hxx>
#include <ShapeAnalysis_ShapeTolerance.hxx>
#include <Standard_Failure.hxx>
#include <TopExp_Explorer.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Compound.hxx>
#include <TopoDS_Iterator.hxx>

#include <algorithm>
#include <cmath>

namespace server {
namespace {

/// Faces that can't be written would spoil box and accuracy for the rest.
TopoDS_Compound soundFaces(const std::vector<Body>& bodies) {
    TopoDS_Compound all;
    BRep_Builder builder;
    builder.MakeCompound(all);
    for (const Body& body : bodies) {
        for (const TopoDS_Shell& shell : body.shells) {
            for (TopExp_Explorer walk(shell, TopAbs_FACE); walk.More(); walk.Next()) {
                const TopoDS_Face face = TopoDS::Face(walk.Current());
                if (faultOf(face).empty()) builder.Add(all, face);
            }
        }
    }
    return all;
}

double diagonalOf(const TopoDS_Shape& faces) {
    Bnd_Box box;
    for (TopoDS_Iterator walk(faces); walk.More(); walk.Next()) {
        try {
            Bnd_Box own;
            BRepBndLib::Add(walk.Value(), own, Standard_False);
            if (isWithinReach(own)) box.Add(own);
        } catch (const Standard_Failure&) {
            // The face is dropped when it is its turn.
        }
    }
    return box.IsVoid() ? 0.0 : std::sqrt(box.SquareExtent());
}

int countFaces(const std::vector<Body>& bodies) {
    int count = 0;
    for (const Body& body : bodies) {
        for (const TopoDS_Shell& shell : body.shells) {
            for (TopExp_Explorer walk(shell, TopAbs_FACE); walk.More(); walk.Next()) ++count;
        }
    }
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

double lengthOf(const CurvePiece& piece) {
    const double range = lastParameter(piece) - firstParameter(piece);
    if (std::holds_alternative<LinePiece>(piece)) return range;
    const auto* arc = std::get_if<ArcPiece>(&piece);
    return range * (arc ? arc->radius : std::get<EllipsePiece>(piece).major);
}

class ModelWriter {
public:
    ModelWriter(const ShellPlanning& planning, MessageSink& sink, double accuracy)
        : planning_(planning), sink_(sink), accuracy_(accuracy) {}

    void writeShells(const Body& body);
    void writeBodies();
    std::vector<WrittenBody> written() { return std::move(written_); }

private:
    bool writeShellOf(const TopoDS_Shell& shell, CADImport::CreateBody& message, Bnd_Box& box);
    double slackOf(const EdgePlan& plan, const TopoDS_Edge& edge) const;
    void noteFaces(const ShellPlan& plan);

    const ShellPlanning& planning_;
    MessageSink& sink_;
    double accuracy_;
    std::vector<CADImport::CreateBody> messages_;
    std::vector<WrittenBody> written_; ///< of messages_
};

/// A chain's deviation counts as far as the model's accuracy tells of it, and a curve that became
/// another one may be off by what it takes to recognise a line or a circle.
double ModelWriter::slackOf(const EdgePlan& plan, const TopoDS_Edge& edge) const {
    double length = 0.0;
    for (const CurvePiece& piece : plan.curve.pieces) length += lengthOf(piece);
    double tolerance = std::max(host::toleranceOf(edge), std::min(plan.curve.deviation, accuracy_));
    if (!plan.curve.to.empty()) tolerance = std::max(tolerance, planning_.tolerances.recognition);
    return length * tolerance;
}

void ModelWriter::noteFaces(const ShellPlan& plan) {
    std::vector<WrittenFace> faces;
    for (std::size_t i = 0; i < plan.faces.size(); ++i) {
        faces.push_back({plan.faces[i].identifier, plan.topology.faces[i].face});
    }
    for (std::size_t i = 0; i < plan.edges.size(); ++i) {
        const ShellEdge& edge = plan.topology.edges[i];
        const double slack = slackOf(plan.edges[i], edge.edge);
        for (const EdgeSide& side : edge.sides) {
            if (side.face >= 0) faces[static_cast<std::size_t>(side.face)].slack += slack;
        }
    }
    auto& all = written_.back().faces;
    all.insert(all.end(), faces.begin(), faces.end());
}

/// Whether all of the shell is there and it is closed.
bool ModelWriter::writeShellOf(const TopoDS_Shell& shell, CADImport::CreateBody& message,
                               Bnd_Box& box) {
    const ShellPlan plan = planShell(shell, planning_);
    if (plan.identifier == 0) {
        planning_.report.dropped("shell", 0, "none of its faces could be written");
        return false;
    }
    writeShell(plan, sink_);
    noteFaces(plan);
    message.shells.append(plan.identifier);
    written_.back().shells.push_back(plan.identifier);
    box.Add(plan.box);
    return plan.topology.closed && static_cast<int>(plan.faces.size()) == countFaces({{{shell}}});
}

void ModelWriter::writeShells(const Body& body) {
    CADImport::CreateBody message;
    Bnd_Box box;
    written_.emplace_back();
    bool isWhole = true;
    for (const TopoDS_Shell& shell : body.shells) {
        isWhole = writeShellOf(shell, message, box) && isWhole;
    }
    written_.back().isWhole = isWhole;
    message.boundingBox = messageBox(box);
    messages_.push_back(message);
}

void ModelWriter::writeBodies() {
    for (std::size_t i = 0; i < messages_.size(); ++i) {
        if (messages_[i].shells.isEmpty()) continue;
        messages_[i].identifier = written_[i].identifier = ++planning_.identifiers.body;
        sink_.write(messages_[i]);
    }
    std::erase_if(written_, [](const WrittenBody& body) { return body.identifier == 0; });
}

} // namespace

std::vector<WrittenBody> writeModel(const std::vector<Body>& bodies, QDataStream& stream,
                                    Progress& progress, Report& report) {
    stream.setVersion(CADImport::streamVersion);
    const TopoDS_Compound faces = soundFaces(bodies);
    MessageSink sink(stream, report);
    const auto header = newModel(faces, report.unit.millimetres);
    sink.write(header);
    IdentifierCounters identifiers;
    const double count = std::max(1, countFaces(bodies));
    int number = 0;
    const ShellPlanning planning{identifiers, report,
                                 Tolerances::of(report.unit.millimetres, diagonalOf(faces)), [&] {
                                     progress.reach(++number / count);
                                     return number;
                                 }};
    ModelWriter writer(planning, sink, header.accuracy);
    for (const Body& body : bodies) writer.writeShells(body);
    writer.writeBodies();
    sink.write(CADImport::EndModel());
    return writer.written();
}

} // namespace server
