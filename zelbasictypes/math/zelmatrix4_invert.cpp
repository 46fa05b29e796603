// SPDX-License-Identifier: Apache-2.0
// The inverse, by elimination in registers.
//
// The second matrix of the elimination starts as the identity; at every step one more of its
// columns differs from that, while one column of the first matrix is done with. So one working copy
// holds both, the new column where the finished one was. Exchanged rows leave its columns in
// another order, which is undone at the end. Columns that are still the identity's hold zeros of
// one sign in a row, and that is kept too. So every number goes through the operations that it
// would in two matrices, down to the last bit. Only a number that isn't finite would also meet
// zeros that one copy doesn't hold, and then two matrices do it over.
#include "zelbasictypes/math/zelmatrix4.h"

#include <cmath>
#include <utility>

#define ZEL_INLINE __attribute__((always_inline)) inline

namespace {

using zelmath::Pair;

struct Row {
    Pair lo, hi;
};

/// Rows are named by constants and all functions that take them inlined, so that they stay in
/// registers.
struct Square {
    Row row[4];
    double zero[4] = {}; ///< what a row holds in the second matrix's columns that are yet to come
};

template <int column> ZEL_INLINE double entry(const Row& row) {
    return column < 2 ? row.lo[column % 2] : row.hi[column % 2];
}

template <int lane> ZEL_INLINE Pair replaced(Pair pair, double value) {
    return lane == 0 ? Pair{value, pair[1]} : Pair{pair[0], value};
}

template <int column> ZEL_INLINE Row replaced(const Row& row, double value) {
    if constexpr (column < 2)
        return {replaced<column>(row.lo, value), row.hi};
    else
        return {row.lo, replaced<column - 2>(row.hi, value)};
}

/// How many rows take part: the last one of an affine matrix never changes.
constexpr int all = 4;
constexpr int affine = 3;

template <int column, int rows, int at>
ZEL_INLINE void weigh(const Square& s, double& greatest, int& found) {
    if constexpr (at >= column && at < rows) {
        const double size = std::abs(entry<column>(s.row[at]));
        if (!(size > greatest)) return;
        greatest = size;
        found = at;
    }
}

template <int column, int rows> ZEL_INLINE int pivotRow(const Square& s) {
    double greatest = 0;
    int found = -1;
    weigh<column, rows, 0>(s, greatest, found);
    weigh<column, rows, 1>(s, greatest, found);
    weigh<column, rows, 2>(s, greatest, found);
    weigh<column, rows, 3>(s, greatest, found);
    return found;
}

template <int column> ZEL_INLINE void exchangeRows(Square& s, int with) {
    if (with == column) return;
    if constexpr (column < 1)
        if (with == 1) return std::swap(s.row[column], s.row[1]);
    if constexpr (column < 2)
        if (with == 2) return std::swap(s.row[column], s.row[2]);
    std::swap(s.row[column], s.row[3]);
}

template <int column> ZEL_INLINE void divide(Square& s) {
    Row& row = s.row[column];
    const double pivot = entry<column>(row);
    row = replaced<column>(row, 1);
    row.lo /= Pair{pivot, pivot};
    row.hi /= Pair{pivot, pivot};
    s.zero[column] = std::copysign(0.0, pivot);
}

template <int column, int rows, int at> ZEL_INLINE void subtract(Square& s) {
    if constexpr (at != column && at < rows) {
        const double factor = entry<column>(s.row[at]);
        const Row cleared = replaced<column>(s.row[at], s.zero[at]);
        s.row[at].lo = cleared.lo - s.row[column].lo * Pair{factor, factor};
        s.row[at].hi = cleared.hi - s.row[column].hi * Pair{factor, factor};
        // A row that was no pivot yet takes from +0, which stays that.
        if constexpr (at < column) s.zero[at] -= s.zero[column] * factor;
    }
}

template <int column, int rows> ZEL_INLINE bool clear(Square& s, int& pivot) {
    pivot = pivotRow<column, rows>(s);
    if (pivot < 0) return false;
    exchangeRows<column>(s, pivot);
    divide<column>(s);
    subtract<column, rows, 0>(s);
    subtract<column, rows, 1>(s);
    subtract<column, rows, 2>(s);
    subtract<column, rows, 3>(s);
    return true;
}

template <int a, int b> ZEL_INLINE void exchangeEntries(Row& row) {
    const double kept = entry<a>(row);
    row = replaced<a>(row, entry<b>(row));
    row = replaced<b>(row, kept);
}

template <int a, int b> ZEL_INLINE void exchangeColumns(Square& s) {
    exchangeEntries<a, b>(s.row[0]);
    exchangeEntries<a, b>(s.row[1]);
    exchangeEntries<a, b>(s.row[2]);
    exchangeEntries<a, b>(s.row[3]);
}

template <int column> ZEL_INLINE void restoreColumn(Square& s, int with) {
    if (with == column) return;
    if constexpr (column < 1)
        if (with == 1) return exchangeColumns<column, 1>(s);
    if constexpr (column < 2)
        if (with == 2) return exchangeColumns<column, 2>(s);
    exchangeColumns<column, 3>(s);
}

/// In the reverse order of the exchanges. The last row was never exchanged by its own step.
ZEL_INLINE void restoreColumns(Square& s, const int* pivots) {
    restoreColumn<2>(s, pivots[2]);
    restoreColumn<1>(s, pivots[1]);
    restoreColumn<0>(s, pivots[0]);
}

/// False when a column has nothing to divide by.
ZEL_INLINE bool invertAll(Square& s) {
    int pivots[4];
    if (!clear<0, all>(s, pivots[0]) || !clear<1, all>(s, pivots[1]) ||
        !clear<2, all>(s, pivots[2]) || !clear<3, all>(s, pivots[3]))
        return false;
    restoreColumns(s, pivots);
    return true;
}

/// The last row stays as it is, and the last step has nothing to divide.
ZEL_INLINE bool invertAffine(Square& s) {
    int pivots[3];
    if (!clear<0, affine>(s, pivots[0]) || !clear<1, affine>(s, pivots[1]) ||
        !clear<2, affine>(s, pivots[2]))
        return false;
    s.row[3] = {Pair{0, 0}, Pair{0, 1}};
    subtract<3, affine, 0>(s);
    subtract<3, affine, 1>(s);
    subtract<3, affine, 2>(s);
    restoreColumns(s, pivots);
    return true;
}

ZEL_INLINE bool isFinite(const Square& s) {
    const Pair sum = (s.row[0].lo + s.row[0].hi) + (s.row[1].lo + s.row[1].hi) +
                     ((s.row[2].lo + s.row[2].hi) + (s.row[3].lo + s.row[3].hi));
    return std::isfinite(sum[0] + sum[1]);
}

ZEL_INLINE Row load(const double* from) { return {zelmath::load(from), zelmath::load(from + 2)}; }

ZEL_INLINE void store(double* to, const Row& row) {
    zelmath::store(to, row.lo);
    zelmath::store(to + 2, row.hi);
}

/// The elimination in two matrices, whatever the numbers.
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

bool eliminateInTwo(const ZelMatrix4& matrix, ZelMatrix4& out) {
    Elimination elimination{matrix, {}};
    for (int column = 0; column < 4; ++column)
        if (!elimination.clear(column)) return false;
    out = elimination.right;
    return true;
}

} // namespace

bool ZelMatrix4::invert(ZelMatrix4& out) const {
    Square square{.row = {load(m), load(m + 4), load(m + 8), load(m + 12)}};
    if (!(isAffine() ? invertAffine(square) : invertAll(square))) return false;
    if (!isFinite(square)) return eliminateInTwo(*this, out);
    store(out.m, square.row[0]);
    store(out.m + 4, square.row[1]);
    store(out.m + 8, square.row[2]);
    store(out.m + 12, square.row[3]);
    return true;
}

ZelMatrix4 ZelMatrix4::inverse() const {
    ZelMatrix4 result;
    invert(result);
    return result;
}
