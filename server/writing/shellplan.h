// SPDX-License-Identifier: Apache-2.0
// What will be written of a shell: every curve and surface converted, every entity with its
// identifier.
//
// The entities name each other in all directions, so that all identifiers are given before the
// first message is written.
#pragma once

#include "server/geometry/edgecurve.h"
#include "server/geometry/facesurface.h"
#include "server/geometry/tolerances.h"
#include "server/report.h"
#include "server/writing/shelltopology.h"

#include <Bnd_Box.hxx>

#include <functional>

namespace server {

/// The identifiers given so far in a model, by kind. The next one is one higher.
struct IdentifierCounters {
    int edgeNumber = 0; ///< n of the edge identifiers (n << 8) | k
    int surface = 0, curve = 0, coedge = 0, vertex = 0, loop = 0, face = 0, shell = 0, body = 0;
};

/// One edge on the wire: a piece of an edge's curve with everything that is attached to it.
struct PiecePlan {
    int edge = 0, curve = 0;
    std::array<int, 2> vertices{}; ///< in the direction of the curve
    std::array<int, 2> coedges{};  ///< by side; 0: no second side
};

struct EdgePlan {
    EdgeCurve curve;
    std::vector<PiecePlan> pieces; ///< one for each piece of the curve
};

struct LoopPlan {
    int identifier = 0;
    bool outer = true;
    std::vector<int> edges, coedges; ///< in the order of the loop
    Bnd_Box box;
};

struct FacePlan {
    int identifier = 0, surface = 0;
    FaceSurface geometry;
    std::vector<LoopPlan> loops;
    Bnd_Box box;
};

struct VertexPlan {
    int identifier = 0;
    gp_Pnt point;
};

struct ShellPlan {
    int identifier = 0; ///< 0: nothing of the shell can be written
    ShellTopology topology;
    std::vector<EdgePlan> edges; ///< one for each edge of the topology
    std::vector<FacePlan> faces; ///< one for each face of the topology
    std::vector<VertexPlan> vertices;
    Bnd_Box box; ///< without a gap
};

struct ShellPlanning {
    IdentifierCounters& identifiers;
    Report& report; ///< what is converted or left out
    Tolerances tolerances;
    std::function<int()> nextFace; ///< called for each face of the shell: its number in the file
};

/// A face that can't be written is dropped under its number; the others come.

ShellPlan planShell(const TopoDS_Shell& shell, const ShellPlanning& planning);

} // namespace server
