// SPDX-License-Identifier: Apache-2.0
// A mesh as a binary glTF 2.0 file.
#pragma once

#include "host/shape/triangles.h"

#include <string>

namespace host {

/// One node a part. Metres, Y up, as the format wants it; the mesh is in millimetres with Z up.
/// Throws a FileFailure.
void writeGltf(const ShapeMesh& mesh, const std::string& path);

} // namespace host
