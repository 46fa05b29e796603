// SPDX-License-Identifier: Apache-2.0
/// @file
/// The values of the messages as those of the host's modelling interfaces: the same numbers.
#pragma once

#include "cadimport/fieldtypes.h"
#include "cadimport/modelling/shapearguments.h"

namespace CADImport {

inline ZelVector3 vector(const Point3& p) { return {p.x, p.y, p.z}; }
inline ZelRange range(const Range2& r) { return {r.first, r.last}; }

} // namespace CADImport
