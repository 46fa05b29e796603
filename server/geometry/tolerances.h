// SPDX-License-Identifier: Apache-2.0
// How exact the conversions are, in file units.
#pragma once

#include <algorithm>

namespace server {

struct Tolerances {
    double recognition = 1e-6; ///< a free-form edge this close to a line or circle is one
    double chain = 1e-4;       ///< how far arcs and lines may stray from a free-form edge
    double surface = 1e-6;     ///< how far a surface without an exact form may stray
    double shortest = 1e-7;    ///< an edge shorter than this has no extent

    /// 1e-6 mm for recognition, the smaller of 1e-4 mm and 1e-5 of the diagonal for chains.
    static Tolerances of(double unitMillimetres, double boxDiagonal) {
        const double millimetre = 1.0 / unitMillimetres;
        Tolerances t;
        t.recognition = 1e-6 * millimetre;
        t.chain = std::min(1e-4 * millimetre, std::max(1e-5 * boxDiagonal, t.recognition));
        t.surface = t.recognition;
        return t;
    }
};

} // namespace server
