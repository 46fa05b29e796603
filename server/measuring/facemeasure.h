// SPDX-License-Identifier: Apache-2.0
// Area and volume of a face, taken in two ways that share nothing; a mesh decides where they
// differ.
#pragma once

#include <TopoDS_Face.hxx>
#include <gp_Pnt.hxx>

#include <optional>

namespace server {

/// In file units.
struct FaceMeasure {
    double area = 0.0;
    /// Between the face and the reference point, negative when the face looks at it.
    double volume = 0.0;
    double areaUncertainty = 0.0, volumeUncertainty = 0.0; ///< beyond one part in a million
};

/// `reach` is the greatest distance of the face from the reference point. Nothing when there is no
/// figure to be had. Catches what the kernel throws.
std::optional<FaceMeasure> measured(const TopoDS_Face& face, const gp_Pnt& reference, double reach);

} // namespace server
