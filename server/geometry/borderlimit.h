// SPDX-License-Identifier: Apache-2.0
// How far the border of a face may stray before the face's area shows it.
#pragma once

#include "server/geometry/tolerances.h"

#include <NCollection_DataMap.hxx>
#include <TopTools_ShapeMapHasher.hxx>
#include <TopoDS_Edge.hxx>
#include <TopoDS_Face.hxx>
#include <gp_Vec.hxx>

#include <optional>
#include <vector>

namespace server {

/// One of the faces at an edge, seen from the edge's curve.
class BorderLimit {
public:
    /// Nothing when the face doesn't say where on it the edge lies.
    static std::optional<BorderLimit> of(const TopoDS_Edge& edge, const TopoDS_Face& face,
                                         double meanOffset);

    /// The normal of the face where the edge's curve has the parameter `t`: of length 1 or nearly
    /// so, or 0 where the surface has none.
    gp_Vec normalAt(double t) const;

    /// How far, on average over any stretch, a replacement of the curve may lie to one side of it
    /// within the face.
    double meanOffset() const { return meanOffset_; }

private:
    double first_ = 0.0, last_ = 0.0, meanOffset_ = 0.0;
    std::vector<gp_Vec> normals_; ///< at even steps of the parameter; one if they are all the same
};

/// Tells for each face how far its border may stray, and remembers it.
class BorderLimits {
public:
    explicit BorderLimits(const Tolerances& tolerances) : tolerances_(tolerances) {}

    /// The limits of the faces at the edge that have one. A face that the kernel fails on has none.
    std::vector<BorderLimit> at(const TopoDS_Edge& edge, const std::vector<TopoDS_Face>& faces);

private:
    double meanOffsetOf(const TopoDS_Face& face);

    Tolerances tolerances_;
    NCollection_DataMap<TopoDS_Shape, double, TopTools_ShapeMapHasher> known_;
};

} // namespace server
