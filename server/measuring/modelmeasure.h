// SPDX-License-Identifier: Apache-2.0
// Measures what was written, as it was read, so that a host can hold its own figures against it.
//
// A face that the kernel breaks on costs its own figure only: the measuring goes on in copies of
// the process, each from behind the face where the last one ended.
#pragma once

#include "server/writing/modelwriter.h"

namespace server {

/// Areas and volumes go into the report in millimetres, a note for each face that has none: also
/// those that are left when the processor time is used up.
void measureModel(const std::vector<WrittenBody>& bodies, double processorSeconds,
                  Progress& progress, Report& report);

} // namespace server
