// SPDX-License-Identifier: Apache-2.0
// What a shape weighs and whether it is sound.
#pragma once

#include "host/rebuild/progress.h"
#include "host/rebuild/rebuild.h"
#include "host/shape/modelbuilder.h"

#include <TopoDS_Shape.hxx>

namespace host {

/// The answer is in metres. Integrating and checking a face are again steps "face", so that a face
/// that the kernel can't bear is known. The other steps are "measure" (the box) and "check" (how
/// the faces fit together); one that fails or is skipped leaves its figures at 0 or false.
RebuiltModel measured(const BuiltModel& model, const Progress& progress);

/// The volume within a closed shell in cubic millimetres, negative when its faces look inwards.
double volumeWithin(const TopoDS_Shape& shell);

} // namespace host
