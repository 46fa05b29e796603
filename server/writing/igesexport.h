// SPDX-License-Identifier: Apache-2.0
// Leaves the shape as an IGES file beside the model.
#pragma once

#include "server/reading/lengthunit.h"

#include <TopoDS_Shape.hxx>

#include <string>

namespace server {

/// The shape's lengths are in `unit`, and so are those of the file. Throws a Failure (unwritable),
/// or what the kernel throws.
void exportIges(const TopoDS_Shape& shape, const LengthUnit& unit, const std::string& path);

} // namespace server
