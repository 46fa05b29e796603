// SPDX-License-Identifier: Apache-2.0
// The curve of an edge in the parameters of a surface, with the edge's own parameter.
#pragma once

#include "host/shape/geometry.h"
#include "host/shape/parameterspace.h"

#include <Geom2d_Curve.hxx>

#include <vector>

namespace host {

/// Where an edge lies in the parameters of a surface. The parameters run on unbroken, so that on a
/// periodic surface they may leave the basic range.
struct Trace {
    struct Node {
        double parameter = 0.0; ///< of the edge
        gp_Pnt2d uv;
        gp_Vec2d speed;
    };
    /// Rising parameters, two at least. On planes only as close as a look at the shape asks for.
    std::vector<Node> nodes;
    bool isStraight = false; ///< the straight line between the ends is exact

    const gp_Pnt2d& start() const { return nodes.front().uv; }
    const gp_Pnt2d& end() const { return nodes.back().uv; }
    void move(const gp_Vec2d& by);

    /// As a curve of the kernel between the edge's own bounds.
    Handle(Geom2d_Curve) curve() const;
};

/// How a loop, which runs counter-clockwise in the parameters, uses an edge. It decides on which of
/// two coinciding borders of a surface the edge lies.
struct LoopSide {
    bool along = true;   ///< the curve runs with the loop
    bool isSeam = false; ///< the loop uses the edge twice
};

Trace traceOf(const ParameterSpace& space, const BoundedCurve& edge, const LoopSide& side);

/// The greatest distance seen between the edge and the curve on the surface, in millimetres. On a
/// plane that between the edge and the plane, since the kernel projects onto planes by itself.
double deviationOf(const ParameterSpace& space, const BoundedCurve& edge,
                   const Handle(Geom2d_Curve) & curve);

} // namespace host
