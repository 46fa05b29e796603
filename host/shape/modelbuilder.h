// SPDX-License-Identifier: Apache-2.0
// A model of a record as a shape of the kernel, in millimetres.
#pragma once

#include "host/measure/faceintegral.h"
#include "host/rebuild/progress.h"

#include <TopoDS_Face.hxx>
#include <TopoDS_Shape.hxx>

#include <optional>
#include <vector>

namespace host {

struct ModelFace {
    Identifier identifier = 0;
    TopoDS_Face face;
    /// About the middle of the model's box, in square and cubic millimetres; none when the face
    /// can't be measured.
    std::optional<FaceIntegral> integral;
};

struct BuiltModel {
    TopoDS_Shape shape;           ///< a compound; without parts when nothing is left
    std::vector<ModelFace> faces; ///< those in it, in the order in which they were built
};

/// The compound is of the model's solids and of the shells that are open. An outer shell and the
/// voids inside it are one solid. Faces are measured on the way, since the sign of a shell's volume
/// tells a void from a body. What can't be built or measured is named; the steps are "edge",
/// "face", "measure" and "model".
BuiltModel builtModel(const ModelRecord& model, const Progress& progress);

} // namespace host
