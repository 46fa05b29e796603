// SPDX-License-Identifier: Apache-2.0
// Faces with their wires and the curves of their edges in the surface's parameters.
#pragma once

#include "host/shape/plan.h"

#include <TopoDS_Edge.hxx>
#include <TopoDS_Face.hxx>
#include <TopoDS_Vertex.hxx>

#include <string>
#include <vector>

namespace host {

/// The edges and vertices of a plan in the kernel's terms, shared by the faces. Edges take on the
/// tolerance that their faces need.
class EdgeStore {
public:
    explicit EdgeStore(const Plan& plan);

    const TopoDS_Edge& edge(std::size_t place) const { return edges_[place]; }
    const BoundedCurve& curve(std::size_t place) const { return plan_.edges[place].curve; }
    Identifier identifier(std::size_t place) const { return plan_.edges[place].identifier; }

    /// The vertex where the use of an edge begins in its loop, or ends.
    const TopoDS_Vertex& start(const PlannedUse& use) const;
    const TopoDS_Vertex& end(const PlannedUse& use) const;

    /// Makes the tolerances of vertices cover those of their edges. Once, behind the last face.
    void settleTolerances() const;

private:
    const Plan& plan_;
    std::vector<TopoDS_Vertex> vertices_;
    std::vector<TopoDS_Edge> edges_;
};

struct BuiltFace {
    TopoDS_Face face;  ///< null when there is none
    std::string fault; ///< why
};

/// May throw what the kernel throws.
BuiltFace faceOf(const PlannedFace& planned, const EdgeStore& store);

} // namespace host
