// SPDX-License-Identifier: Apache-2.0
// Bringing a record from model units to metres: points and lengths are multiplied; directions,
// angles, knots, weights and ranges that are no lengths stay as they are.
#pragma once

#include "host/modelling/record.h"

namespace host {

void scale(LineRecord& line, double factor);
void scale(ArcRecord& arc, double factor);
void scale(EllipseRecord& ellipse, double factor);
void scale(PlaneRecord& plane, double factor);
void scale(CylinderRecord& cylinder, double factor);
void scale(ConeRecord& cone, double factor);
void scale(SphereRecord& sphere, double factor);
void scale(TorusRecord& torus, double factor);
void scale(NurbSurfaceRecord& surface, double factor);

} // namespace host
