// SPDX-License-Identifier: Apache-2.0
// One vertex a corner, one edge a planned edge.
#include "host/shape/faces.h"

#include <BRep_Builder.hxx>
#include <BRep_Tool.hxx>
#include <Precision.hxx>

#include <algorithm>

namespace host {
namespace {

TopoDS_Edge edgeOf(const PlannedEdge& planned, const TopoDS_Vertex& start,
                   const TopoDS_Vertex& end) {
    const BRep_Builder builder;
    TopoDS_Edge edge;
    builder.MakeEdge(edge, planned.curve.curve, Precision::Confusion());
    builder.Add(edge, start.Oriented(TopAbs_FORWARD));
    builder.Add(edge, end.Oriented(TopAbs_REVERSED));
    builder.Range(edge, planned.curve.first, planned.curve.last);
    return edge;
}

} // namespace

EdgeStore::EdgeStore(const Plan& plan) : plan_(plan) {
    const BRep_Builder builder;
    for (const Corner& corner : plan.corners) {
        builder.MakeVertex(vertices_.emplace_back(), corner.point,
                           std::max(Precision::Confusion(), 1.01 * corner.spread));
    }
    for (const PlannedEdge& edge : plan.edges) {
        edges_.push_back(edgeOf(edge, vertices_[edge.corners[0]], vertices_[edge.corners[1]]));
    }
}

const TopoDS_Vertex& EdgeStore::start(const PlannedUse& use) const {
    return vertices_[plan_.edges[use.edge].corners[use.along ? 0 : 1]];
}

const TopoDS_Vertex& EdgeStore::end(const PlannedUse& use) const {
    return start({use.edge, !use.along});
}

void EdgeStore::settleTolerances() const {
    const BRep_Builder builder;
    for (std::size_t i = 0; i < edges_.size(); ++i) {
        const double tolerance = BRep_Tool::Tolerance(edges_[i]);
        for (const std::size_t corner : plan_.edges[i].corners) {
            const double needed = tolerance + plan_.corners[corner].spread;
            builder.UpdateVertex(vertices_[corner], needed);
        }
    }
}

} // namespace host
