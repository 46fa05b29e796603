// SPDX-License-Identifier: Apache-2.0
// Gives the tests records of known solids: what arrives at the host of a shape that the reference
// server sends.
#pragma once

#include "host/modelling/record.h"

#include <TopoDS_Shape.hxx>

namespace host {

/// `unitMillimetres` is what a length of 1 in the shape stands for.
ModelRecord recordOfShape(const TopoDS_Shape& shape, double unitMillimetres = 1.0);

} // namespace host
