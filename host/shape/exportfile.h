// SPDX-License-Identifier: Apache-2.0
// A shape as a file for other programs.
#pragma once

#include <TopoDS_Shape.hxx>

#include <string>

namespace host {

/// By the extension of the name: .brep, .step or .stp, .stl, .glb. In millimetres, but for .glb,
/// which is in metres. Throws a FileFailure, or what the kernel throws.
void exportShape(const TopoDS_Shape& shape, const std::string& path);

} // namespace host
