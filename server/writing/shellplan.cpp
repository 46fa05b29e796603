// SPDX-License-Identifier: Apache-2.0
// Conversions come first: a face that has none is left out before its edges are paired.
#include "server/writing/shellplan.h"

#include "server/writing/faceconversion.h"

#include <BRep_Tool.hxx>
#include <TopExp.hxx>
#include <TopTools_IndexedMapOfShape.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Vertex.hxx>

namespace server {
namespace {

constexpr std::size_t mostPiecesOfANumber = 256;

class Planner {
public:
    Planner(const TopoDS_Shell& shell, const ShellPlanning& planning)
        : planning_(planning), ids_(planning.identifiers),
          conversion_(shell, planning.tolerances, planning.report) {}

    ShellPlan plan(const TopoDS_Shell& shell);

private:
    void drop(const std::string& why);
    bool takeFace(const TopoDS_Face& face);
    void planEdge(const ShellEdge& edge);
    void planVertices(const ShellEdge& edge, EdgePlan& plan);
    int vertexOf(const TopoDS_Vertex& vertex, const gp_Pnt& otherwise);
    int newVertex(const gp_Pnt& point);
    void planFace(const ShellFace& face);
    LoopPlan planLoop(const ShellLoop& loop);
    void appendPlace(const LoopPlace& place, LoopPlan& loop) const;

    const ShellPlanning& planning_;
    IdentifierCounters& ids_;
    ShellPlan plan_;
    FaceConversion conversion_;
    int number_ = 0;                   ///< of the face that is looked at, in the file
    std::vector<ConvertedFace> faces_; ///< the wanted ones, in the order of the shell
    TopTools_IndexedMapOfShape vertexShapes_;
    std::vector<int> vertexIdentifiers_; ///< of vertexShapes_
};

void Planner::drop(const std::string& why) {
    planning_.report.dropped("face of the file", number_, why);
}

bool Planner::takeFace(const TopoDS_Face& face) {
    ConvertedFace converted = conversion_.face(face);
    if (!converted.fault.empty()) {
        drop(converted.fault);
        return false;
    }
    faces_.push_back(std::move(converted));
    return true;
}

int Planner::newVertex(const gp_Pnt& point) {
    plan_.vertices.push_back({++ids_.vertex, point});
    return ids_.vertex;
}

int Planner::vertexOf(const TopoDS_Vertex& vertex, const gp_Pnt& otherwise) {
    if (vertex.IsNull()) return newVertex(otherwise);
    const auto index = static_cast<std::size_t>(vertexShapes_.Add(vertex));
    if (index > vertexIdentifiers_.size()) {
        vertexIdentifiers_.push_back(newVertex(BRep_Tool::Pnt(vertex)));
    }
    return vertexIdentifiers_[index - 1];
}

/// The edge's own vertices at the ends, new ones between the pieces.
void Planner::planVertices(const ShellEdge& edge, EdgePlan& plan) {
    const auto& curves = plan.curve.pieces;
    int previous = vertexOf(TopExp::FirstVertex(edge.edge), startOf(curves.front()));
    for (std::size_t i = 0; i < curves.size(); ++i) {
        const bool last = i + 1 == curves.size();
        const int next = last ? vertexOf(TopExp::LastVertex(edge.edge), endOf(curves.back()))
                              : newVertex(endOf(curves[i]));
        plan.pieces[i].vertices = {previous, next};
        previous = next;
    }
}

void Planner::planEdge(const ShellEdge& edge) {
    EdgePlan plan;
    plan.curve = conversion_.edge(edge.edge).curve;
    for (std::size_t i = 0; i < plan.curve.pieces.size(); ++i) {
        if (i % mostPiecesOfANumber == 0) ++ids_.edgeNumber;
        PiecePlan piece;
        piece.edge = (ids_.edgeNumber << 8) | static_cast<int>(i % mostPiecesOfANumber);
        piece.curve = ++ids_.curve;
        piece.coedges[0] = ++ids_.coedge;
        if (edge.sides[1].face >= 0) piece.coedges[1] = ++ids_.coedge;
        plan.pieces.push_back(piece);
    }
    planVertices(edge, plan);
    const EdgeCurve& curve = plan.curve;
    if (!curve.to.empty()) {
        planning_.report.converted(
            {"edge", plan.pieces.front().edge, curve.from, curve.to, curve.why});
    }
    plan_.edges.push_back(std::move(plan));
}

/// Where the loop runs against the curve, the pieces come in falling order.
void Planner::appendPlace(const LoopPlace& place, LoopPlan& loop) const {
    const auto index = static_cast<std::size_t>(place.edge);
    const EdgePlan& edge = plan_.edges[index];
    const bool against = plan_.topology.edges[index].curveAgainstFirst != (place.side == 1);
    const std::size_t count = edge.pieces.size();
    for (std::size_t i = 0; i < count; ++i) {
        const PiecePlan& piece = edge.pieces[against ? count - 1 - i : i];
        loop.edges.push_back(piece.edge);
        loop.coedges.push_back(piece.coedges[static_cast<std::size_t>(place.side)]);
    }
    for (const CurvePiece& piece : edge.curve.pieces) loop.box.Add(boxOf(piece));
}

LoopPlan Planner::planLoop(const ShellLoop& loop) {
    LoopPlan plan;
    plan.identifier = ++ids_.loop;
    plan.outer = loop.outer;
    for (const LoopPlace& place : loop.places) appendPlace(place, plan);
    return plan;
}

void Planner::planFace(const ShellFace& face) {
    FacePlan plan;
    plan.identifier = ++ids_.face;
    plan.surface = ++ids_.surface;
    plan.geometry = faces_[face.order].surface;
    plan.box = faces_[face.order].box;
    plan_.box.Add(plan.box);
    const FaceSurface& surface = plan.geometry;
    if (!surface.to.empty()) {
        planning_.report.converted(
            {"surface", plan.surface, surface.from, surface.to, surface.why});
    }
    for (const ShellLoop& loop : face.loops) plan.loops.push_back(planLoop(loop));
    plan_.faces.push_back(std::move(plan));
}

ShellPlan Planner::plan(const TopoDS_Shell& shell) {
    TopologyOptions options;
    options.nextFace = [this] { number_ = planning_.nextFace(); };
    options.wanted = [this](const TopoDS_Face& face) { return takeFace(face); };
    options.hasExtent = [this](const TopoDS_Edge& edge) {
        return conversion_.edge(edge).hasExtent;
    };
    options.dropped = [this](const std::string& why) { drop(why); };
    plan_.topology = shellTopology(shell, options, planning_.report);
    for (const ShellEdge& edge : plan_.topology.edges) planEdge(edge);
    for (const ShellFace& face : plan_.topology.faces) planFace(face);
    if (!plan_.faces.empty()) plan_.identifier = ++ids_.shell;
    return std::move(plan_);
}

} // namespace

ShellPlan planShell(const TopoDS_Shell& shell, const ShellPlanning& planning) {
    return Planner(shell, planning).plan(shell);
}

} // namespace server
