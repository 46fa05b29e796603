// SPDX-License-Identifier: Apache-2.0
// A loop in the parameters of its surface, as one unbroken walk.
#pragma once

#include "host/shape/faces.h"
#include "host/shape/footprint.h"

#include <vector>

namespace host {

struct TracedUse {
    PlannedUse use; ///< of a pole: the use that begins there
    Trace trace;    ///< in the edge's own direction; of a pole in that of the loop
    bool isPole = false;

    const gp_Pnt2d& start() const { return use.along || isPole ? trace.start() : trace.end(); }
    const gp_Pnt2d& end() const { return use.along || isPole ? trace.end() : trace.start(); }
};

struct LoopTrace {
    std::vector<TracedUse> uses; ///< poles included
    bool closes = true;          ///< false when the loop goes round a periodic surface
    double area = 0.0;           ///< in the parameters, positive when counter-clockwise
    double size = 0.0;           ///< of its box, in millimetres

    double middle(int direction) const;
    /// Moves by whole periods so that the middle is as near to `wanted` as it gets.
    void moveNear(int direction, double period, double wanted);
};

/// With `reversed` the loop is run the other way round, as the surface's own side sees it.
LoopTrace loopTraceOf(const PlannedLoop& loop, const EdgeStore& store, const ParameterSpace& space,
                      bool reversed);

} // namespace host
