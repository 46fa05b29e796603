// SPDX-License-Identifier: Apache-2.0
// A transformation of space as a 4 by 4 matrix of doubles, a plain value.
//
// The entries stand row by row: row r, column c is m[4 * r + c]. Points are column vectors on the
// right, so that the translation stands in the fourth column (3, 7, 11), the axes of a frame are
// the columns of the upper left block, and `a * b` applies b first.
#pragma once

#include "zelbasictypes/math/zelvector3.h"

struct ZelMatrix4 {
    double m[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};

    static constexpr ZelMatrix4 scaling(double sx, double sy, double sz) {
        return {{sx, 0, 0, 0, 0, sy, 0, 0, 0, 0, sz, 0, 0, 0, 0, 1}};
    }
    static constexpr ZelMatrix4 uniformScale(double s) { return scaling(s, s, s); }
    static constexpr ZelMatrix4 fromTranslation(const ZelVector3& v) {
        return {{1, 0, 0, v.x, 0, 1, 0, v.y, 0, 0, 1, v.z, 0, 0, 0, 1}};
    }

    /// Exact; a NaN makes it false.
    constexpr bool operator==(const ZelMatrix4&) const = default;

    /// Divides by the fourth row's value, untested: a point on the plane at infinity gives
    /// infinities or NaNs.
    ZelVector3 transformPoint(const ZelVector3& p) const;
    /// The upper left block only: no translation and no division.
    ZelVector3 transformVector(const ZelVector3& v) const;
};

ZelMatrix4 operator*(const ZelMatrix4& a, const ZelMatrix4& b);
