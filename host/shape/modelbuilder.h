// SPDX-License-Identifier: Apache-2.0
// A model of a record as a shape of the kernel, in millimetres.
#pragma once

#include "host/rebuild/progress.h"

#include <TopoDS_Shape.hxx>

namespace host {

/// A compound of the model's solids and of the shells that are open. An outer shell and the voids
/// inside it are one solid. What can't be built is left out and named; the steps are "edge", "face"
/// and "model". A compound without parts when nothing is left.
TopoDS_Shape shapeOf(const ModelRecord& model, const Progress& progress);

} // namespace host
