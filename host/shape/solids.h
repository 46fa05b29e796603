// SPDX-License-Identifier: Apache-2.0
// Which shells are the outside of a solid, and which are the voids in it.
#pragma once

#include <TopoDS_Compound.hxx>
#include <TopoDS_Shell.hxx>

#include <vector>

namespace host {

struct MeasuredShell {
    TopoDS_Shell shell;
    double volume = 0.0; ///< within it when it is closed, negative when its faces look inwards
};

/// Adds to `result` a solid for each closed shell that encloses material, with the voids that lie
/// in it, and each open shell as it is. A void that lies in nothing is a solid of its own.
void addSolids(const std::vector<MeasuredShell>& shells, TopoDS_Compound& result);

} // namespace host
