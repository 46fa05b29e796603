// SPDX-License-Identifier: Apache-2.0
// The three curves that an edge may be sent as, and what can be asked of any of them.
//
// Parameters are angles for arcs and ellipses and the length from the start for lines. A piece is
// always run through from `first` up to `last`.
#pragma once

#include <Bnd_Box.hxx>
#include <gp_Ax2.hxx>
#include <gp_Pnt.hxx>
#include <gp_Vec.hxx>

#include <variant>

namespace server {

struct LinePiece {
    gp_Pnt start, end;
};

/// P(t) = centre + radius (cos t X + sin t Y) on the frame.
struct ArcPiece {
    gp_Ax2 frame;
    double radius = 0.0, first = 0.0, last = 0.0;
};

/// P(t) = centre + major cos t X + minor sin t Y on the frame.
struct EllipsePiece {
    gp_Ax2 frame;
    double major = 0.0, minor = 0.0, first = 0.0, last = 0.0;
};

using CurvePiece = std::variant<LinePiece, ArcPiece, EllipsePiece>;

double firstParameter(const CurvePiece& piece);
double lastParameter(const CurvePiece& piece);
gp_Pnt pointAt(const CurvePiece& piece, double parameter);
gp_Pnt startOf(const CurvePiece& piece);
gp_Pnt endOf(const CurvePiece& piece);

/// The unit tangent in the direction of rising parameters.
gp_Vec tangentAt(const CurvePiece& piece, double parameter);

/// The exact box, without any gap.
Bnd_Box boxOf(const CurvePiece& piece);

/// From `point` to the nearest point of a line or an arc between its ends. Ellipses aren't asked.
gp_Vec offsetTo(const CurvePiece& piece, const gp_Pnt& point);

} // namespace server
