// SPDX-License-Identifier: Apache-2.0
// How exact the conversions are, in file units.
#pragma once

#include <algorithm>

namespace server {

struct Tolerances {
    double recognition = 1e-6; ///< a free-form edge this close to a line or circle is one
    double chain = 1e-4;       ///< how far a point of a chain may stray from a free-form edge
    double surface = 1e-6;     ///< how far a surface without an exact form may stray
    double shortest = 1e-7;    ///< an edge shorter than this has no extent
    double leastOffset = 5e-8; ///< what the border of a face may always stray on average

    /// 1e-6 mm for recognition, the smaller of 1e-4 mm and 1e-5 of the diagonal for chains.
    static Tolerances of(double unitMillimetres, double boxDiagonal) {
        const double millimetre = 1.0 / unitMillimetres;
        Tolerances t;
        t.recognition = 1e-6 * millimetre;
        t.chain = std::min(1e-4 * millimetre, std::max(1e-5 * boxDiagonal, t.recognition));
        t.surface = t.recognition;
        t.leastOffset = 5e-8 * millimetre;
        return t;
    }

    /// How far the border of a face may lie to one side of where it was, on average: as much as
    /// takes or adds the share 4e-7 of the area.
    double meanOffset(double faceArea, double borderLength) const {
        constexpr double share = 4e-7;
        return std::max(share * faceArea / borderLength, leastOffset);
    }
};

} // namespace server
