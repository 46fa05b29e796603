// SPDX-License-Identifier: Apache-2.0
// A surface seen from its parameters: where the foot of a point is, where parameters repeat, where
// they stop making sense.
#pragma once

#include <GeomAdaptor_Surface.hxx>
#include <Geom_Surface.hxx>
#include <ShapeAnalysis_Surface.hxx>
#include <gp_Pnt.hxx>
#include <gp_Pnt2d.hxx>
#include <gp_Vec2d.hxx>

#include <array>
#include <optional>

namespace host {

class ParameterSpace {
public:
    explicit ParameterSpace(const Handle(Geom_Surface) & surface);

    const Handle(Geom_Surface) & surface() const { return surface_; }
    bool isPlane() const { return isPlane_; }
    bool isElementary() const { return isElementary_; }

    /// The period of u (0) or v (1); 0 for none.
    double period(int direction) const { return periods_[static_cast<std::size_t>(direction)]; }

    /// Whether u (0) or v (1) has two borders: of a spline surface without a period there.
    bool isBounded(int direction) const { return !isElementary_ && period(direction) <= 0.0; }
    /// Whether the two borders of u (0) or v (1) are the same curve of a surface without a period.
    bool isClosed(int direction) const { return closed_[static_cast<std::size_t>(direction)]; }
    double least(int direction) const { return least_[static_cast<std::size_t>(direction)]; }
    double greatest(int direction) const { return greatest_[static_cast<std::size_t>(direction)]; }

    gp_Pnt point(const gp_Pnt2d& uv) const { return adaptor_.Value(uv.X(), uv.Y()); }

    /// The parameters of the nearest point of the surface; `near` says which of several is meant
    /// and keeps the result within half a period.
    gp_Pnt2d foot(const gp_Pnt& point) const;
    gp_Pnt2d foot(const gp_Pnt& point, const gp_Pnt2d& near) const;

    /// How fast the parameters run along a curve through `uv` with the derivative `along`; nothing
    /// where the surface has no two directions.
    std::optional<gp_Vec2d> speed(const gp_Pnt2d& uv, const gp_Vec& along) const;

    /// Whether moving in u (0) or v (1) doesn't move the point: a pole, an apex.
    bool isSingular(const gp_Pnt2d& uv, int direction) const;

private:
    void measureSpline();
    gp_Pnt2d elementaryFoot(const gp_Pnt& point) const;
    gp_Pnt2d refined(const gp_Pnt& point, gp_Pnt2d uv) const;
    /// Whether the parameter stands at its border and would have to go beyond.
    bool isPushedOut(const gp_Pnt2d& uv, int direction, double slope) const;

    Handle(Geom_Surface) surface_;
    GeomAdaptor_Surface adaptor_; ///< remembers the span of a spline that was asked last
    Handle(ShapeAnalysis_Surface) search_;
    bool isPlane_ = false, isElementary_ = false;
    std::array<double, 2> periods_{}, least_{}, greatest_{};
    std::array<bool, 2> closed_{};
    std::array<double, 2> greatestSpeed_{}; ///< of a point, by each parameter
    /// A foot further off than this, in millimetres, is looked for all over the surface. Grows
    /// where that doesn't help, since the edges of an inexact model are off everywhere.
    mutable double suspicious_ = 1e-3;
};

} // namespace host
