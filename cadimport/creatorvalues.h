// SPDX-License-Identifier: Apache-2.0
/// @file
/// Converts the values of messages to those of the host's modelling interfaces. The numbers stay
/// the same.
#pragma once

#include "cadimport/fieldtypes.h"
#include "cadimport/modelling/shapearguments.h"

namespace CADImport {

/// The same numbers in the host's type.
/// @{
inline ZelVector3 vector(const Point3& p) { return {p.x, p.y, p.z}; }
inline ZelRange range(const Range2& r) { return {r.first, r.last}; }
/// @}

} // namespace CADImport
