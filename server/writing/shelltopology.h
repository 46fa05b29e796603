// SPDX-License-Identifier: Apache-2.0
// A shell as faces, loops and edges that are each used by at most two sides.
//
// The kernel shares an edge between any number of faces. On the wire an edge has two sides that run
// in opposite directions; whatever doesn't fit becomes copies of the edge.
#pragma once

#include "server/report.h"

#include <TopoDS_Edge.hxx>
#include <TopoDS_Face.hxx>
#include <TopoDS_Shell.hxx>

#include <array>
#include <functional>
#include <string>
#include <vector>

namespace server {

/// One place of a loop: an edge of ShellTopology::edges and which side of it is used there.
struct LoopPlace {
    int edge = 0;
    int side = 0;
};

struct ShellLoop {
    std::vector<LoopPlace> places; ///< counter-clockwise as seen from outside
    bool outer = true;
};

struct ShellFace {
    TopoDS_Face face;
    std::vector<ShellLoop> loops; ///< the outer one first
    std::size_t order = 0;        ///< how many wanted faces came before it
};

/// Indices into ShellTopology::faces and the face's loops.
struct EdgeSide {
    int face = -1; ///< -1: there is nothing on this side
    int loop = -1;
};

struct ShellEdge {
    TopoDS_Edge edge;              ///< forward, so that its vertices are in the curve's direction
    std::array<EdgeSide, 2> sides; ///< a single side is always the first
    bool curveAgainstFirst =
        false; ///< the curve runs against the loop of side 0, with that of side 1
};

struct ShellTopology {
    std::vector<ShellFace> faces; ///< each with at least one loop
    std::vector<ShellEdge> edges; ///< in the order of their first use
    bool closed = false;          ///< every edge has both sides
};

/// What is asked about a shell's faces and edges, one face after the other.
struct TopologyOptions {
    std::function<void()> nextFace;                    ///< called before anything else is asked
    std::function<bool(const TopoDS_Face&)> wanted;    ///< may drop the face for reasons of its own
    std::function<bool(const TopoDS_Edge&)> hasExtent; ///< of an edge of a wanted face
    std::function<void(const std::string& why)> dropped; ///< the face can't be part of the shell
};

/// A face whose wires the kernel can't follow is dropped, and the others come.
ShellTopology shellTopology(const TopoDS_Shell& shell, const TopologyOptions& options,
                            Report& report);

} // namespace server
