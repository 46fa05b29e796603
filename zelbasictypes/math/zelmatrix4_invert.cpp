// SPDX-License-Identifier: Apache-2.0
// The inverse.
#include "zelbasictypes/math/zelmatrix4.h"

#include <cmath>
#include <utility>

namespace {

struct Elimination {
    ZelMatrix4 left;  ///< becomes the identity
    ZelMatrix4 right; ///< becomes the inverse

    int pivotRow(int column) const {
        int found = -1;
        double greatest = 0;
        for (int row = column; row < 4; ++row) {
            const double size = std::abs(left.m[4 * row + column]);
            if (!(size > greatest)) continue;
            greatest = size;
            found = row;
        }
        return found;
    }

    void swapRows(int a, int b) {
        for (int i = 0; i < 4; ++i) {
            std::swap(left.m[4 * a + i], left.m[4 * b + i]);
            std::swap(right.m[4 * a + i], right.m[4 * b + i]);
        }
    }

    void divide(int row, double pivot) {
        for (int i = 0; i < 4; ++i) {
            left.m[4 * row + i] /= pivot;
            right.m[4 * row + i] /= pivot;
        }
    }

    void subtract(int row, int times, double factor) {
        for (int i = 0; i < 4; ++i) {
            left.m[4 * row + i] -= left.m[4 * times + i] * factor;
            right.m[4 * row + i] -= right.m[4 * times + i] * factor;
        }
    }

    bool clear(int column) {
        const int found = pivotRow(column);
        if (found < 0) return false;
        swapRows(found, column);
        divide(column, left.m[5 * column]);
        for (int row = 0; row < 4; ++row)
            if (row != column) subtract(row, column, left.m[4 * row + column]);
        return true;
    }
};

} // namespace

bool ZelMatrix4::invert(ZelMatrix4& out) const {
    Elimination elimination{*this, {}};
    for (int column = 0; column < 4; ++column)
        if (!elimination.clear(column)) return false;
    out = elimination.right;
    return true;
}

ZelMatrix4 ZelMatrix4::inverse() const {
    ZelMatrix4 result;
    invert(result);
    return result;
}
