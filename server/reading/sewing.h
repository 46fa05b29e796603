// SPDX-License-Identifier: Apache-2.0
// Makes shells of faces that belong to none.
//
// The kernel's sewing may crash or run for ever on faces that are otherwise fit to be read. So it
// works in a copy of the process, and the shells come back through a pipe: what breaks the sewing
// costs the sewing, not the faces.
#pragma once

#include "server/report.h"

#include <TopoDS_Shell.hxx>

#include <vector>

namespace server {

struct SewingOptions {
    double tolerance = 1e-3;     ///< in file units
    double processorSeconds = 0; ///< 0: no limit
};

/// A shell that closes by it is turned outward. Where sewing fails, each face comes as a shell of
/// its own and the report has a note.
std::vector<TopoDS_Shell> sewnShells(const std::vector<TopoDS_Shape>& faces,
                                     const SewingOptions& options, Report& report);

} // namespace server
