// SPDX-License-Identifier: Apache-2.0
// The greatest value of a scalar Bezier patch or curve, by subdivision of its control net.
#pragma once

#include <vector>

namespace host {

/// The control net of a scalar rational Bezier patch, row by row. A curve has one column.
///
/// Where all weights are positive, the patch never exceeds the greatest of its control values.
struct BezierNet {
    int rows = 0, columns = 0;
    std::vector<double> products; ///< control values times their weights
    std::vector<double> weights;
};

/// An upper bound of `known` and of all values of the nets, at most `tolerance` above the greatest
/// of them, unless the budget of subdivisions is used up before. Only nets that may exceed `known`
/// are subdivided, so that a good value of it saves nearly all of the work.
double upperBound(std::vector<BezierNet> nets, double known, double tolerance);

} // namespace host
