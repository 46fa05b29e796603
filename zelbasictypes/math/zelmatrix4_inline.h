// SPDX-License-Identifier: Apache-2.0
/// @file
/// The arithmetic of ZelMatrix4 that constant expressions may use; included by its header only.
#pragma once

#include "zelbasictypes/math/zelmatrix4.h"

#include <initializer_list>
#include <type_traits>

namespace zelmath {

constexpr double size(double value) { return value < 0 ? -value : value; }

/// One row of the matrix times the column (x, y, z, 1).
constexpr double rowTimesPoint(const double* row, const ZelVector3& p) {
    return row[0] * p.x + row[1] * p.y + row[2] * p.z + row[3];
}

/// One row of the upper left block times the column (x, y, z).
constexpr double rowTimesVector(const double* row, const ZelVector3& v) {
    return row[0] * v.x + row[1] * v.y + row[2] * v.z;
}

/// Two doubles of a row, as the processor takes them together.
using Pair = double __attribute__((vector_size(16)));

inline Pair load(const double* from) { return Pair{from[0], from[1]}; }

inline void store(double* to, Pair pair) {
    to[0] = pair[0];
    to[1] = pair[1];
}

/// One row of a product: the rows of `b`, each times one number, summed in their order.
inline void multiplyRow(const double* a, const double* b, double* out) {
    const Pair a0{a[0], a[0]}, a1{a[1], a[1]}, a2{a[2], a[2]}, a3{a[3], a[3]};
    store(out, a0 * load(b) + a1 * load(b + 4) + a2 * load(b + 8) + a3 * load(b + 12));
    store(out + 2, a0 * load(b + 2) + a1 * load(b + 6) + a2 * load(b + 10) + a3 * load(b + 14));
}

/// Two rows of a matrix times the column (x, y, z, 1).
inline Pair rowsTimesPoint(const double* a, const double* b, const ZelVector3& p) {
    return Pair{a[0], b[0]} * Pair{p.x, p.x} + Pair{a[1], b[1]} * Pair{p.y, p.y} +
           Pair{a[2], b[2]} * Pair{p.z, p.z} + Pair{a[3], b[3]};
}

/// A term of an expansion, left out where its factor is 0.
constexpr double term(double factor, double minor) { return factor == 0 ? 0.0 : factor * minor; }

} // namespace zelmath

constexpr ZelMatrix4::ZelMatrix4(const double* values) {
    if (!values) return;
    for (int i = 0; i < 16; ++i) m[i] = values[i];
}

constexpr ZelMatrix4 ZelMatrix4::fromQuaternion(const ZelQuaternion& q,
                                                const ZelVector3& translation) {
    const double ww = q.w * q.w, xx = q.x * q.x, yy = q.y * q.y, zz = q.z * q.z;
    const double wx = q.w * q.x, wy = q.w * q.y, wz = q.w * q.z;
    const double xy = q.x * q.y, xz = q.x * q.z, yz = q.y * q.z;
    return fromColumns({ww + xx - yy - zz, 2 * (wz + xy), 2 * (xz - wy)},
                       {2 * (xy - wz), ww + yy - xx - zz, 2 * (wx + yz)},
                       {2 * (wy + xz), 2 * (yz - wx), ww + zz - xx - yy}, translation);
}

constexpr ZelMatrix4 ZelMatrix4::fromRectangle(const double r[4]) {
    ZelMatrix4 map = scaling((r[2] - r[0]) / 2, (r[3] - r[1]) / 2, 1);
    map.setTranslation({(r[0] + r[2]) / 2, (r[3] + r[1]) / 2, 0});
    return map;
}

constexpr ZelMatrix4 ZelMatrix4::reflection(const ZelVector3& normal) {
    const ZelVector3 twice = normal * 2;
    return {ZelVector3{1, 0, 0} - twice * normal.x, ZelVector3{0, 1, 0} - twice * normal.y,
            ZelVector3{0, 0, 1} - twice * normal.z};
}

constexpr ZelMatrix4 ZelMatrix4::orthographic(float width, float height, float nearDepth,
                                              float farDepth) {
    const float depth = farDepth - nearDepth;
    return {2 / width, 0,         0, 0, 0, 2 / height,           0, 0, 0,
            0,         1 / depth, 0, 0, 0, -(nearDepth / depth), 1};
}

constexpr ZelVector3 ZelMatrix4::column(unsigned i) const {
    return i > 3 ? zelZeroVector : ZelVector3{m[i], m[4 + i], m[8 + i]};
}

constexpr ZelVector3 ZelMatrix4::row(unsigned i) const {
    return i > 3 ? zelZeroVector : ZelVector3{m[4 * i], m[4 * i + 1], m[4 * i + 2]};
}

constexpr void ZelMatrix4::setColumn(unsigned i, const ZelVector3& v) {
    if (i > 3) return;
    m[i] = v.x;
    m[4 + i] = v.y;
    m[8 + i] = v.z;
}

constexpr void ZelMatrix4::setRow(unsigned i, const ZelVector3& v) {
    if (i > 3) return;
    m[4 * i] = v.x;
    m[4 * i + 1] = v.y;
    m[4 * i + 2] = v.z;
}

constexpr void ZelMatrix4::swapColumn(int i, double values[4]) {
    if (i < 0 || i > 3) return;
    for (int row = 0; row < 4; ++row) {
        const double kept = m[4 * row + i];
        m[4 * row + i] = values[row];
        values[row] = kept;
    }
}

constexpr void ZelMatrix4::transposeInPlace() {
    for (int row = 1; row < 4; ++row) {
        for (int column = 0; column < row; ++column) {
            const double kept = m[4 * row + column];
            m[4 * row + column] = m[4 * column + row];
            m[4 * column + row] = kept;
        }
    }
}

constexpr bool ZelMatrix4::isDiagonal() const {
    for (int i = 0; i < 16; ++i)
        if (i % 5 != 0 && m[i] != 0) return false;
    return true;
}

constexpr bool ZelMatrix4::isTranslation() const {
    ZelMatrix4 rest = *this;
    rest.setTranslation(zelZeroVector);
    return rest.isIdentity();
}

constexpr bool ZelMatrix4::hasOffDiagonal(double tolerance) const {
    for (const int i : {1, 2, 4, 6, 8, 9})
        if (zelmath::size(m[i]) > tolerance) return true;
    return false;
}

constexpr double ZelMatrix4::determinant3() const {
    return m[0] * (m[5] * m[10] - m[6] * m[9]) - m[1] * (m[4] * m[10] - m[6] * m[8]) +
           m[2] * (m[4] * m[9] - m[5] * m[8]);
}

constexpr double ZelMatrix4::determinant() const {
    // Of the two lowest rows, by the columns taken.
    const double c01 = m[8] * m[13] - m[9] * m[12], c02 = m[8] * m[14] - m[10] * m[12];
    const double c03 = m[8] * m[15] - m[11] * m[12], c12 = m[9] * m[14] - m[10] * m[13];
    const double c13 = m[9] * m[15] - m[11] * m[13], c23 = m[10] * m[15] - m[11] * m[14];
    using zelmath::term;
    return term(m[0], m[5] * c23 - m[6] * c13 + m[7] * c12) -
           term(m[1], m[4] * c23 - m[6] * c03 + m[7] * c02) +
           term(m[2], m[4] * c13 - m[5] * c03 + m[7] * c01) -
           term(m[3], m[4] * c12 - m[5] * c02 + m[6] * c01);
}

constexpr double ZelMatrix4::distanceFromIdentity() const {
    double sum = 0;
    for (int i = 0; i < 16; ++i) {
        const double difference = m[i] - (i % 5 == 0 ? 1 : 0);
        sum += difference * difference;
    }
    return sum;
}

constexpr ZelVector3 ZelMatrix4::transformPoint(const ZelVector3& p) const {
    using zelmath::rowTimesPoint;
    if (!std::is_constant_evaluated()) {
        const zelmath::Pair upper = zelmath::rowsTimesPoint(m, m + 4, p);
        const zelmath::Pair lower = zelmath::rowsTimesPoint(m + 8, m + 12, p);
        const double factor = 1 / lower[1];
        return {upper[0] * factor, upper[1] * factor, lower[0] * factor};
    }
    const double factor = 1 / rowTimesPoint(m + 12, p);
    return ZelVector3{rowTimesPoint(m, p), rowTimesPoint(m + 4, p), rowTimesPoint(m + 8, p)} *
           factor;
}

constexpr ZelVector3 ZelMatrix4::transformVector(const ZelVector3& v) const {
    using zelmath::rowTimesVector;
    return {rowTimesVector(m, v), rowTimesVector(m + 4, v), rowTimesVector(m + 8, v)};
}

constexpr void ZelMatrix4::transformPoint(const float p[3], float out[3]) const {
    const ZelVector3 result = transformPoint(ZelVector3{p[0], p[1], p[2]});
    out[0] = static_cast<float>(result.x);
    out[1] = static_cast<float>(result.y);
    out[2] = static_cast<float>(result.z);
}

constexpr void ZelMatrix4::transformVector(const float v[3], float out[3]) const {
    const ZelVector3 result = transformVector(ZelVector3{v[0], v[1], v[2]});
    out[0] = static_cast<float>(result.x);
    out[1] = static_cast<float>(result.y);
    out[2] = static_cast<float>(result.z);
}

constexpr void ZelMatrix4::multiply(const ZelMatrix4& a, const ZelMatrix4& b, ZelMatrix4& out) {
    if (!std::is_constant_evaluated()) {
        for (int row = 0; row < 16; row += 4) zelmath::multiplyRow(a.m + row, b.m, out.m + row);
        return;
    }
    for (int row = 0; row < 16; row += 4)
        for (int column = 0; column < 4; ++column)
            out.m[row + column] = a.m[row] * b.m[column] + a.m[row + 1] * b.m[4 + column] +
                                  a.m[row + 2] * b.m[8 + column] + a.m[row + 3] * b.m[12 + column];
}

constexpr ZelMatrix4 operator*(const ZelMatrix4& a, const ZelMatrix4& b) {
    ZelMatrix4 product;
    ZelMatrix4::multiply(a, b, product);
    return product;
}

constexpr bool ZelMatrix4::solve3(const ZelVector3& rhs, ZelVector3& out) const {
    const double all = determinant3();
    if (all == 0) return false;
    ZelVector3 solution;
    double* const parts[] = {&solution.x, &solution.y, &solution.z};
    for (unsigned i = 0; i < 3; ++i) {
        ZelMatrix4 replaced = *this;
        replaced.setColumn(i, rhs);
        *parts[i] = replaced.determinant3() / all;
    }
    out = solution;
    return true;
}

constexpr bool ZelMatrix4::solve4(const double rhs[4], double out[4]) const {
    const double all = determinant();
    if (!(zelmath::size(all) > 1e-16)) return false;
    double solution[4] = {};
    for (int i = 0; i < 4; ++i) {
        double replacement[4] = {rhs[0], rhs[1], rhs[2], rhs[3]};
        ZelMatrix4 replaced = *this;
        replaced.swapColumn(i, replacement);
        solution[i] = replaced.determinant() / all;
    }
    for (int i = 0; i < 4; ++i) out[i] = solution[i];
    return true;
}
