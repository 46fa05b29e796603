// SPDX-License-Identifier: Apache-2.0
// What a shape weighs and whether it is sound.
#pragma once

#include "host/rebuild/progress.h"
#include "host/rebuild/rebuild.h"

#include <TopoDS_Shape.hxx>

namespace host {

/// Of a shape in millimetres; the answer is in metres. The steps are "measure" and "check", each
/// for the whole model; a stage that fails or is skipped leaves its figures at 0 or false.
RebuiltModel measured(const TopoDS_Shape& shape, const Progress& progress);

/// The volume within a closed shell in cubic millimetres, negative when its faces look inwards.
/// Good for the sign and for comparing.
double roughVolume(const TopoDS_Shape& shell);

} // namespace host
