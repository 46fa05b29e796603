// SPDX-License-Identifier: Apache-2.0
// What a shape weighs and whether it is sound.
#pragma once

#include "host/rebuild/progress.h"
#include "host/rebuild/rebuild.h"
#include "host/shape/modelbuilder.h"

#include <TopoDS_Shape.hxx>

namespace host {

/// The answer is in metres. Integrating and checking a face is a step "measure"; a face for which
/// it fails or is skipped adds nothing and makes the model invalid. The other steps are "box" and
/// "check" (how the faces fit together); one that fails or is skipped leaves its figures at 0 or
/// false.
RebuiltModel measured(const BuiltModel& model, const Progress& progress);

/// The volume within a closed shell in cubic millimetres, negative when its faces look inwards.
double volumeWithin(const TopoDS_Shape& shell);

} // namespace host
