// SPDX-License-Identifier: Apache-2.0
// Takes a shape apart into bodies: assemblies flattened, locations applied.
#pragma once

#include "server/reading/sewing.h"

#include <TopoDS_Shape.hxx>
#include <TopoDS_Shell.hxx>

#include <vector>

namespace server {

/// A solid with a shell for each of its boundaries, or one shell on its own.
struct Body {
    std::vector<TopoDS_Shell> shells;
};

struct BodyOptions {
    bool solidsOnly = false; ///< what lies outside solids is left out
    SewingOptions sewing;    ///< of faces that belong to no shell
};

/// Faces outside any shell are sewn into shells. What can't be part of a body (free edges and
/// points, unsound loose faces) goes into the report.
std::vector<Body> bodiesOf(const TopoDS_Shape& shape, const BodyOptions& options, Report& report);

/// Counts what the shape holds, by kind, into the report.
void countWhatWasRead(const std::vector<Body>& bodies, const TopoDS_Shape& shape, Report& report);

} // namespace server
