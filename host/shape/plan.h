// SPDX-License-Identifier: Apache-2.0
// The sound part of a model, ordered for building: edges with their curves, loops as runs along
// edges, faces, shells. What has a fault is left out and named.
//
// Numbers of edges and faces are places in the lists of the plan.
#pragma once

#include "host/rebuild/progress.h"
#include "host/shape/geometry.h"

#include <array>
#include <cstddef>
#include <vector>

namespace host {

struct PlannedEdge {
    Identifier identifier = 0; ///< of its first piece
    BoundedCurve curve;
    double deviation = 0.0; ///< how far a joined curve strays from its pieces, in millimetres
    std::array<std::size_t, 2> corners{}; ///< places in Plan::corners; start, end
};

struct PlannedUse {
    std::size_t edge = 0;
    bool along = true; ///< the curve runs with the loop
};

struct PlannedLoop {
    Identifier identifier = 0;
    std::vector<PlannedUse> uses;
    bool outer = true;
};

struct PlannedFace {
    Identifier identifier = 0;
    std::shared_ptr<const SurfaceRecord> surface;
    std::vector<PlannedLoop> loops;
};

struct PlannedShell {
    Identifier identifier = 0;
    std::vector<std::size_t> faces;
};

/// Where edges meet: the mean of their ends.
struct Corner {
    gp_Pnt point;
    double spread = 0.0; ///< the greatest distance of an end, in millimetres
};

struct Plan {
    std::vector<PlannedEdge> edges;
    std::vector<PlannedFace> faces;
    std::vector<PlannedShell> shells;
    std::vector<Corner> corners;
};

/// Begins the step "edge" for each edge.
Plan planOf(const ModelRecord& model, const Progress& progress);

} // namespace host
