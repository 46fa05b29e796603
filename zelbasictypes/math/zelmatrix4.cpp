// SPDX-License-Identifier: Apache-2.0
// Products and transforms.
#include "zelbasictypes/math/zelmatrix4.h"

namespace {

/// One row of the matrix times the column (x, y, z, w).
double rowTimes(const double* row, const ZelVector3& v, double w) {
    return row[0] * v.x + row[1] * v.y + row[2] * v.z + row[3] * w;
}

} // namespace

ZelVector3 ZelMatrix4::transformPoint(const ZelVector3& p) const {
    const double factor = 1.0 / rowTimes(m + 12, p, 1.0);
    return ZelVector3{rowTimes(m, p, 1.0), rowTimes(m + 4, p, 1.0), rowTimes(m + 8, p, 1.0)} *
           factor;
}

ZelVector3 ZelMatrix4::transformVector(const ZelVector3& v) const {
    return {m[0] * v.x + m[1] * v.y + m[2] * v.z, m[4] * v.x + m[5] * v.y + m[6] * v.z,
            m[8] * v.x + m[9] * v.y + m[10] * v.z};
}

ZelMatrix4 operator*(const ZelMatrix4& a, const ZelMatrix4& b) {
    ZelMatrix4 product;
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column) {
            double sum = 0;
            for (int k = 0; k < 4; ++k) sum += a.m[4 * row + k] * b.m[4 * k + column];
            product.m[4 * row + column] = sum;
        }
    }
    return product;
}
