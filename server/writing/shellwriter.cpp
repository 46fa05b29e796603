// SPDX-License-Identifier: Apache-2.0
// One function for each kind of message.
#include "server/writing/shellwriter.h"

#include "cadimport/topologymessages.h"
#include "server/writing/shapemessages.h"

namespace server {
namespace {

QList<int> asList(const std::vector<int>& identifiers) {
    QList<int> list;
    for (int identifier : identifiers) list.append(identifier);
    return list;
}

class Writer {
public:
    Writer(const ShellPlan& plan, MessageSink& sink) : plan_(plan), sink_(sink) {}

    void write() const {
        for (const FacePlan& face : plan_.faces) writeSurface(face.geometry, face.surface, sink_);
        forEachPiece([this](const ShellEdge&, const PiecePlan& piece, const CurvePiece& curve) {
            writeCurve(curve, piece.curve, sink_);
        });
        forEachPiece([this](const ShellEdge& edge, const PiecePlan& piece,
                            const CurvePiece& curve) { writeEdge(edge, piece, curve); });
        forEachPiece(
            [this](const ShellEdge& edge, const PiecePlan& piece, const CurvePiece& curve) {
                writeCoedge(edge, piece, curve, 0);
                if (piece.coedges[1] != 0) writeCoedge(edge, piece, curve, 1);
            });
        for (const VertexPlan& vertex : plan_.vertices) writeVertex(vertex);
        for (const FacePlan& face : plan_.faces) writeLoops(face);
        for (const FacePlan& face : plan_.faces) writeFace(face);
        writeShellItself();
    }

private:
    template <class Action> void forEachPiece(Action action) const {
        for (std::size_t i = 0; i < plan_.edges.size(); ++i) {
            const EdgePlan& edge = plan_.edges[i];
            for (std::size_t k = 0; k < edge.pieces.size(); ++k) {
                action(plan_.topology.edges[i], edge.pieces[k], edge.curve.pieces[k]);
            }
        }
    }

    int faceOf(const EdgeSide& side) const {
        return side.face < 0 ? 0 : plan_.faces[static_cast<std::size_t>(side.face)].identifier;
    }

    int loopOf(const EdgeSide& side) const {
        const FacePlan& face = plan_.faces[static_cast<std::size_t>(side.face)];
        return face.loops[static_cast<std::size_t>(side.loop)].identifier;
    }

    void writeEdge(const ShellEdge& edge, const PiecePlan& piece, const CurvePiece& curve) const {
        CADImport::CreateEdge message;
        message.identifier = piece.edge;
        message.boundingBox = messageBox(boxOf(curve));
        message.parameterRange = {firstParameter(curve), lastParameter(curve)};
        for (int side : {0, 1}) {
            const auto s = static_cast<std::size_t>(side);
            message.vertices[side] = piece.vertices[s];
            message.coedges[side] = piece.coedges[s];
            message.faces[side] = faceOf(edge.sides[s]);
        }
        message.curve = piece.curve;
        message.sense = edge.curveAgainstFirst;
        sink_.write(message);
    }

    void writeCoedge(const ShellEdge& edge, const PiecePlan& piece, const CurvePiece& curve,
                     std::size_t side) const {
        CADImport::CreateCoedge message;
        message.identifier = piece.coedges[side];
        message.parameterRange = {firstParameter(curve), lastParameter(curve)};
        message.edge = piece.edge;
        message.partner = piece.coedges[1 - side];
        message.loop = loopOf(edge.sides[side]);
        message.face = faceOf(edge.sides[side]);
        message.curve = piece.curve;
        message.sense = edge.curveAgainstFirst != (side == 1);
        sink_.write(message);
    }

    void writeVertex(const VertexPlan& vertex) const {
        CADImport::CreateVertex message;
        message.identifier = vertex.identifier;
        message.point = point3(vertex.point.XYZ());
        sink_.write(message);
    }

    /// The parameter box of a face is that of its outer loop; those of inner loops stay empty.
    void writeLoops(const FacePlan& face) const {
        for (const LoopPlan& loop : face.loops) {
            CADImport::CreateLoop message;
            message.identifier = loop.identifier;
            message.boundingBox = messageBox(loop.box);
            if (loop.outer) message.uvBox = uvBox(face.geometry.bounds);
            message.coedges = asList(loop.coedges);
            message.edges = asList(loop.edges);
            message.faceId = face.identifier;
            message.outer = loop.outer;
            sink_.write(message);
        }
    }

    void writeFace(const FacePlan& face) const {
        CADImport::CreateFace message;
        message.identifier = face.identifier;
        message.boundingBox = messageBox(face.box);
        message.uvBox = uvBox(face.geometry.bounds);
        for (const LoopPlan& loop : face.loops) message.loops.append(loop.identifier);
        message.surfaceId = face.surface;
        sink_.write(message);
    }

    void writeShellItself() const {
        CADImport::CreateShell message;
        message.identifier = plan_.identifier;
        message.boundingBox = messageBox(plan_.box);
        for (const FacePlan& face : plan_.faces) message.faces.append(face.identifier);
        message.closed = plan_.topology.closed;
        sink_.write(message);
    }

    const ShellPlan& plan_;
    MessageSink& sink_;
};

} // namespace

void writeShell(const ShellPlan& plan, MessageSink& sink) { Writer(plan, sink).write(); }

} // namespace server
