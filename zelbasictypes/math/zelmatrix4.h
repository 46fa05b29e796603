// SPDX-License-Identifier: Apache-2.0
/// @file
/// A transformation of space as a 4 by 4 matrix of doubles.
///
/// The entries are stored row by row: row r, column c is m[4 * r + c]. Points are column vectors on
/// the right. A point p is mapped to the first three rows times (p, 1), divided by the fourth row
/// times (p, 1). So the translation is in the fourth column (3, 7, 11), an affine matrix ends with
/// the row 0 0 0 1, the axes of a frame are the columns of the upper left 3 by 3 block, and `a * b`
/// applies b first.
///
/// Angles are in radians. A positive rotation is counter-clockwise when seen against the direction
/// of its axis.
///
/// Nothing throws. NaNs and infinities spread through the arithmetic, and a NaN in an entry that a
/// test looks at makes the test false.
#pragma once

#include "zelbasictypes/math/zelquaternion.h"
#include "zelbasictypes/math/zelvector3.h"

#include <iosfwd>

class BinInput;
class BinOutput;

/// A transformation; a plain value.
struct ZelMatrix4 {
    /// The entries, row by row.
    double m[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};

    /// The identity.
    constexpr ZelMatrix4() = default;
    /// The entries row by row.
    constexpr ZelMatrix4(double m0, double m1, double m2, double m3, double m4, double m5,
                         double m6, double m7, double m8, double m9, double m10, double m11,
                         double m12, double m13, double m14, double m15)
        : m{m0, m1, m2, m3, m4, m5, m6, m7, m8, m9, m10, m11, m12, m13, m14, m15} {}
    /// Copies 16 values; null gives the identity.
    constexpr explicit ZelMatrix4(const double* values);
    /// The vectors as rows of the upper left block, the rest as in the identity.
    constexpr ZelMatrix4(const ZelVector3& row0, const ZelVector3& row1, const ZelVector3& row2)
        : ZelMatrix4(row0.x, row0.y, row0.z, 0, row1.x, row1.y, row1.z, 0, row2.x, row2.y, row2.z,
                     0, 0, 0, 0, 1) {}

    /// The frame with these axes and this origin.
    static constexpr ZelMatrix4 fromColumns(const ZelVector3& x, const ZelVector3& y,
                                            const ZelVector3& z, const ZelVector3& origin) {
        return {x.x, y.x, z.x, origin.x, x.y, y.y, z.y, origin.y,
                x.z, y.z, z.z, origin.z, 0,   0,   0,   1};
    }
    /// A rotation. The quaternion isn't normalised: one of length L gives the rotation scaled by
    /// L², zero gives the zero block.
    static constexpr ZelMatrix4 fromQuaternion(const ZelQuaternion& q,
                                               const ZelVector3& translation = zelZeroVector);
    /// The identity with this translation.
    static constexpr ZelMatrix4 fromTranslation(const ZelVector3& v) {
        return {1, 0, 0, v.x, 0, 1, 0, v.y, 0, 0, 1, v.z, 0, 0, 0, 1};
    }
    /// Maps the square from -1 to 1 onto the rectangle with the corners (r[0], r[1]) and
    /// (r[2], r[3]).
    static constexpr ZelMatrix4 fromRectangle(const double r[4]);
    /// A scaling about the origin.
    /// @{
    static constexpr ZelMatrix4 uniformScale(double s) { return scaling(s, s, s); }
    static constexpr ZelMatrix4 scaling(double sx, double sy, double sz) {
        return {sx, 0, 0, 0, 0, sy, 0, 0, 0, 0, sz, 0, 0, 0, 0, 1};
    }
    /// @}
    /// A rotation about an axis of any length through the origin. A zero axis gives the unit block
    /// times cos(angle).
    static ZelMatrix4 rotation(const ZelVector3& axis, double angle);
    /// The shortest rotation that takes one direction into the other; for opposite directions, half
    /// a turn about some perpendicular axis. With a zero vector the block is the unit block times
    /// cos(π/2), which is about 6e-17.
    static ZelMatrix4 rotationBetween(const ZelVector3& from, const ZelVector3& to);
    /// I - 2 n nᵀ, which is a reflection only when n has length 1; it isn't normalised here.
    static constexpr ZelMatrix4 reflection(const ZelVector3& normal);
    /// Scales depth to the range from 0 to 1, but puts the offset of the depth at index 14, not 11.
    /// Computed in float arithmetic; extents of 0 give infinities or NaNs.
    static constexpr ZelMatrix4 orthographic(float width, float height, float nearDepth,
                                             float farDepth);
    /// A perspective view along -z. The angles span the whole field of view. Computed in float
    /// arithmetic; equal depths and angles of 0 give infinities or NaNs.
    static ZelMatrix4 perspective(float angleX, float angleY, float nearDepth, float farDepth);

    /// The first three entries; zero for an index above 3.
    /// @{
    constexpr ZelVector3 column(unsigned i) const;
    constexpr ZelVector3 row(unsigned i) const;
    /// @}
    /// Writes the first three entries; does nothing for an index above 3.
    /// @{
    constexpr void setColumn(unsigned i, const ZelVector3& v);
    constexpr void setRow(unsigned i, const ZelVector3& v);
    /// @}
    /// Exchanges all four entries with those of `values`; does nothing for an index outside 0 to 3.
    constexpr void swapColumn(int i, double values[4]);
    /// The first three entries of the fourth column.
    /// @{
    constexpr ZelVector3 translation() const { return {m[3], m[7], m[11]}; }
    constexpr void setTranslation(const ZelVector3& v) { setColumn(3, v); }
    /// @}
    /// The identity with this translation.
    constexpr ZelMatrix4 translationPart() const { return fromTranslation(translation()); }
    /// The upper left block without translation, with an affine last row.
    constexpr ZelMatrix4 rotationPart() const {
        return {m[0], m[1], m[2], 0, m[4], m[5], m[6], 0, m[8], m[9], m[10], 0, 0, 0, 0, 1};
    }
    /// The lengths of the columns of the upper left block.
    ZelVector3 scaleFactors() const;
    /// Exchanges rows and columns.
    constexpr void transposeInPlace();

    /// Exact in all 16 entries; false when one is a NaN.
    /// @{
    constexpr bool operator==(const ZelMatrix4&) const = default;
    static constexpr bool equals(const ZelMatrix4& a, const ZelMatrix4& b) { return a == b; }
    /// @}
    /// Exact, as operator== is.
    constexpr bool isIdentity() const { return *this == ZelMatrix4(); }
    /// Whether the last row is 0 0 0 1; exact.
    constexpr bool isAffine() const { return m[12] == 0 && m[13] == 0 && m[14] == 0 && m[15] == 1; }
    /// Whether all entries off the diagonal are 0; exact.
    constexpr bool isDiagonal() const;
    /// Whether all entries except the translation are those of the identity; exact. The translation
    /// may be anything, even a NaN.
    constexpr bool isTranslation() const;
    /// Whether this is a uniform scaling: the three factors are within 1e-10 (absolute, exclusive)
    /// of the cube root of their product, so that their signs agree, and everything else is exactly
    /// as in scaling().
    bool isUniformScale() const;
    /// Whether the columns of the upper left block have lengths within 1e-7 of 1 and scalar
    /// products of at most 1e-7 with each other, inclusive. A reflection passes; the rest of the
    /// matrix isn't looked at.
    bool isOrthonormal() const;
    /// Whether the upper left block is a turn, perhaps a mirrored one, times one factor: with L the
    /// squared length of its first column and e = 8 · 2⁻⁵², the other two squares are within
    /// e · max(L, 1) of L and the products of two columns below e · L, all strictly. A zero block
    /// isn't. Unless null, `scale` gets the root of L in any case, negative for a similarity that
    /// mirrors.
    bool isSimilarity(double* scale) const;
    /// Whether the absolute value of an off-diagonal entry of the upper left block is above
    /// `tolerance`.
    constexpr bool hasOffDiagonal(double tolerance) const;
    /// Of the upper left block.
    constexpr double determinant3() const;
    /// Expanded along the first row; where that holds a 0, what stands below doesn't count, be it
    /// infinite or a NaN.
    constexpr double determinant() const;
    /// The cube root of the size of `determinant3()`.
    double scaleFactor() const;
    /// The sum of the squares of the 16 differences; no root is taken.
    constexpr double distanceFromIdentity() const;

    /// Maps a point. The division by the fourth row's value is unchecked: a point on the plane at
    /// infinity gives infinities or NaNs.
    constexpr ZelVector3 transformPoint(const ZelVector3& p) const;
    /// Maps a direction, by the upper left block only: without translation and division.
    constexpr ZelVector3 transformVector(const ZelVector3& v) const;
    /// The same for three floats, computed in double and rounded once. `out` may be the input.
    /// @{
    constexpr void transformPoint(const float p[3], float out[3]) const;
    constexpr void transformVector(const float v[3], float out[3]) const;
    /// @}

    /// `out` must be neither `a` nor `b`; `a * b` has no such limit.
    static constexpr void multiply(const ZelMatrix4& a, const ZelMatrix4& b, ZelMatrix4& out);

    /// Gauss-Jordan elimination with partial pivoting and no tolerance: false, with `out` as it
    /// was, only when a column has nothing but zeros (or NaNs) left to divide by. What is singular
    /// but for rounding gives huge entries. `out` may be this matrix.
    bool invert(ZelMatrix4& out) const;
    /// The inverse, or the identity when there is none.
    ZelMatrix4 inverse() const;
    /// Solves the upper left block times `out` = `rhs`. False, with `out` as it was, when the
    /// determinant is exactly 0. `out` may be `rhs`, here and below.
    constexpr bool solve3(const ZelVector3& rhs, ZelVector3& out) const;
    /// The same for the block with these rows.
    static constexpr bool solve3(const ZelVector3& rowA, const ZelVector3& rowB,
                                 const ZelVector3& rowC, const ZelVector3& rhs, ZelVector3& out) {
        return ZelMatrix4(rowA, rowB, rowC).solve3(rhs, out);
    }
    /// Solves this matrix times `out` = `rhs`. False, with `out` as it was, unless the determinant
    /// is above 1e-16 in size.
    constexpr bool solve4(const double rhs[4], double out[4]) const;
    /// Makes the columns of the upper left block orthonormal, each by removing its components along
    /// the columns before it. False when nothing is left of the third. A column of which nothing is
    /// left stays short, and all three are written in any case.
    bool orthonormalize();

    /// The rotation of the upper left block. A block that isn't a rotation gives meaningless
    /// numbers.
    ZelQuaternion toQuaternion() const;
    /// The rotation as one about the x axis, followed by one about the y axis and one about the z
    /// axis. The block is cleaned first (cleanRotation()). A rotation about one or two axes has 0
    /// as its third angle; otherwise y is from 0 to π/2 or above π, never negative.
    ///
    /// The cases are tried in a fixed order, and the first that fits isn't always the right one.
    /// With a -1 on the diagonal the rotation is taken for one about a single axis, and a y of -π/2
    /// together with another rotation is taken for π/2. A block that isn't a rotation gives
    /// meaningless numbers or NaNs.
    ZelVector3 toEulerAngles() const;
    /// The angle of the rotation, from 0 to 2π. A NaN when a scale or rounding makes the w of the
    /// quaternion greater than 1.
    double rotationAngle() const;
    /// The axis of that rotation; zero when there is none.
    ZelVector3 rotationAxis() const;
    /// Cleans a 3 by 3 block stored row by row: in each column, entries below 0.0001 in absolute
    /// value become 0, and then the column is scaled to length 1. A column of zeros stays as it is.
    static void cleanRotation(double block[9]);

    /// Transfers four typed values per row. False at the first row that fails; the rows before it
    /// have been transferred.
    /// @{
    bool write(BinOutput& out) const;
    bool read(BinInput& in);
    /// @}
    /// Prints one line per row and an empty line to standard output, after the line of the title,
    /// if there is one.
    /// @{
    void dump() const;
    void dump(const char* title) const;
    /// @}
};

/// The identity.
inline constexpr ZelMatrix4 zelIdentityMatrix{};

/// The product, which applies b first.
constexpr ZelMatrix4 operator*(const ZelMatrix4& a, const ZelMatrix4& b);

/// Writes the 16 numbers row by row, each followed by a blank, in the stream's own format.
std::ostream& operator<<(std::ostream& out, const ZelMatrix4& matrix);
/// Reads 16 numbers. When one fails, the stream is in a failed state and `matrix` unchanged.
std::istream& operator>>(std::istream& in, ZelMatrix4& matrix);

#include "zelbasictypes/math/zelmatrix4_inline.h"
