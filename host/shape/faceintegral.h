// SPDX-License-Identifier: Apache-2.0
// Area and volume of a face, by quadrature that refines until it agrees with itself.
//
// The kernel's own integration refines in one parameter only: at any tolerance it can be off by a
// thousandth on a face that waves in the other.
#pragma once

#include <TopoDS_Face.hxx>
#include <gp_Pnt.hxx>

namespace host {

struct FaceIntegral {
    double area = 0.0;
    /// Between the face and the reference point, negative when the face looks at it. Over a closed
    /// shell the sum is the enclosed volume, whatever the point.
    double volume = 0.0;
};

/// The face has curves in its surface's parameters, or is plane. May throw what the kernel throws.
FaceIntegral integralOf(const TopoDS_Face& face, const gp_Pnt& reference);

} // namespace host
