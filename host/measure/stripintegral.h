// SPDX-License-Identifier: Apache-2.0
// The inner integral of a face: of a surface's densities over u, at one v.
#pragma once

#include "host/measure/quadrature.h"

#include <BRepAdaptor_Surface.hxx>
#include <gp_Pnt.hxx>

#include <vector>

namespace host {

/// The densities of a surface are |N| for the area and (P - R) . N / 3 for the volume between the
/// surface and a reference point R, with N = dP/du x dP/dv. Planes, cylinders, cones, spheres and
/// tori are integrated by formula, everything else by quadrature between the knots in u.
class StripIntegral {
public:
    /// `surface` outlives this. The tolerances follow from the size of the face and from its
    /// distance to the reference point, so that they don't vanish where the point lies on the face.
    StripIntegral(const BRepAdaptor_Surface& surface, const gp_Pnt& reference);

    /// From the middle of the face's range in u to `u`. May throw IntegrationLimit.
    Measures to(double u, double v) const;

    /// What an integral over the whole range of u and v may be off.
    const Measures& tolerance() const { return faceTolerance_; }

private:
    void settleTolerances();
    Measures density(double u, double v) const;
    Measures ofPlane(double u, double v) const;
    Measures ofRevolution(double u, double v) const;
    Measures byQuadrature(double u, double v) const;

    const BRepAdaptor_Surface& surface_;
    const gp_Pnt reference_;
    double start_ = 0.0;
    std::vector<double> knots_; ///< of the surface in u
    Measures stripTolerance_, faceTolerance_;
    mutable EvaluationBudget budget_;
};

} // namespace host
