// SPDX-License-Identifier: Apache-2.0
// What a shape weighs and whether it is sound.
#pragma once

#include "host/rebuild/progress.h"
#include "host/rebuild/rebuild.h"
#include "host/shape/modelbuilder.h"

namespace host {

/// The answer is in metres. The steps are "box", "check" for each face and "fit" (how faces fit
/// together). What the checks find fault with is dropped as "validity", with the face, or 0 where
/// it is the fit. A check that fails or is skipped is noted and leaves the validity open.
RebuiltModel measured(const BuiltModel& model, const Progress& progress);

} // namespace host
