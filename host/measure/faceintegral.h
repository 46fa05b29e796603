// SPDX-License-Identifier: Apache-2.0
// Area and volume of a face, by quadrature that refines until it agrees with itself.
//
// The kernel's own integration refines in one parameter only: at any tolerance it can be off by a
// thousandth on a face that waves in the other.
#pragma once

#include <TopoDS_Face.hxx>
#include <gp_Pnt.hxx>

#include <stdexcept>

namespace host {

struct FaceIntegral {
    double area = 0.0;
    /// Between the face and the reference point, negative when the face looks at it. Over a closed
    /// shell the sum is the enclosed volume, whatever the point; it is most exact about a point in
    /// the middle of the shell.
    double volume = 0.0;
};

/// A face whose integral isn't what its border encloses. what() ends a sentence about the face.
class OpenBorder : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The face has curves in its surface's parameters, or is plane. The answer is good to one part in
/// 1e8. Throws OpenBorder when its curves leave a gap there, IntegrationLimit (quadrature.h) when
/// the integral doesn't settle, and what the kernel throws.
FaceIntegral integralOf(const TopoDS_Face& face, const gp_Pnt& reference);

} // namespace host
