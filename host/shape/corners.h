// SPDX-License-Identifier: Apache-2.0
// Vertices do not arrive: they follow from edges being neighbours in a loop.
#pragma once

#include "host/shape/plan.h"

namespace host {

/// Fills `corners` of the plan and of its edges. Ends of edges that follow each other in a loop are
/// one corner, and whatever follows from that. So are corners at the same place in different loops
/// of a face, unless an edge joins them.
void findCorners(Plan& plan);

} // namespace host
