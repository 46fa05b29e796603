// SPDX-License-Identifier: Apache-2.0
// A model of a record as a shape of the kernel, in millimetres.
#pragma once

#include "host/rebuild/progress.h"

#include <TopoDS_Face.hxx>
#include <TopoDS_Shape.hxx>

#include <utility>
#include <vector>

namespace host {

struct BuiltModel {
    TopoDS_Shape shape; ///< a compound; without parts when nothing is left
    /// The faces in it with their identifiers, in the order in which they were built.
    std::vector<std::pair<Identifier, TopoDS_Face>> faces;
};

/// The compound is of the model's solids and of the shells that are open. An outer shell and the
/// voids inside it are one solid. What can't be built is left out and named; the steps are "edge",
/// "face" and "model".
BuiltModel builtModel(const ModelRecord& model, const Progress& progress);

} // namespace host
