// SPDX-License-Identifier: Apache-2.0
/// @file
/// A vector or point of three doubles.
///
/// Nothing here throws: a NaN spreads through sums and products and makes every test false. Lengths
/// are computed from the sum of the squares, so that components whose squares leave the range of a
/// double (above 1e154, or all below 1e-162) count as infinite or as zero.
#pragma once

#include <iosfwd>

/// A vector or point; a plain value without a unit of its own.
struct ZelVector3 {
    /// A component.
    /// @{
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
    /// @}

    /// Exact; a NaN makes it false.
    constexpr bool operator==(const ZelVector3&) const = default;

    /// Adds to each component.
    constexpr void add(double dx, double dy, double dz) {
        x += dx;
        y += dy;
        z += dz;
    }

    /// The sum of the squares, and its root.
    /// @{
    constexpr double lengthSquared() const { return x * x + y * y + z * z; }
    double length() const;
    /// @}

    /// Scales to length 1. Each component is computed from the other two, as its sign times the
    /// root of 1 minus their share of the squares. So an axis stays exact, and a component below
    /// about 1e-8 of the length becomes 0.
    ///
    /// False, with nothing changed, when the squared length isn't above 0 (zero or a NaN). When it
    /// is infinite, an axis is still found; any other vector gets zeros for what can't be told.
    bool normalize();
    /// A copy after normalize(), whether that succeeded or not: zero stays zero.
    ZelVector3 normalized() const;

    /// The component along `onto`, which may have any length; zero when the squared length of
    /// `onto` isn't above 2.220446049250313e-16.
    constexpr ZelVector3 project(const ZelVector3& onto) const;
    /// The rest that project() leaves: the whole vector when `onto` is that short.
    constexpr ZelVector3 reject(const ZelVector3& onto) const;

    /// Whether the length is below the absolute value of `t`; computed with squares.
    constexpr bool isShorterThan(double t) const { return t * t > lengthSquared(); }
    /// Whether the length is from 1 - t to 1 + t, inclusive.
    bool isUnit(double t) const;

    /// Whether the sine of the angle between the vectors is at most about `t`, in either direction.
    /// A zero vector is parallel to all.
    static constexpr bool isParallel(const ZelVector3& a, const ZelVector3& b, double t);
    /// Whether the cosine of the angle between the vectors is at most `t`, in either direction. A
    /// zero vector is perpendicular to all.
    static constexpr bool isPerpendicular(const ZelVector3& a, const ZelVector3& b, double t);
    /// Whether the cosine of the angle between their lines is above `t`, or one of them is too
    /// short to tell.
    static bool isAlignedAbove(const ZelVector3& a, const ZelVector3& b, double t,
                               double minLength);
    /// The same for a cosine below 1 - t.
    static bool isAlignedBelow(const ZelVector3& a, const ZelVector3& b, double t,
                               double minLength);

    /// A vector of length 1 perpendicular to this one. It contains a NaN for the zero vector.
    ZelVector3 perpendicular() const;
    /// Completes `d` to a right-handed frame: `second`, `first` and the direction of `d` are its x,
    /// y and z axis. `d` has any length; false, and nothing written, when it is zero. An output may
    /// be `d` itself.
    static bool perpendicularPair(const ZelVector3& d, ZelVector3& second, ZelVector3& first);
};

/// The zero vector; also the value of matrix rows and columns that don't exist.
inline constexpr ZelVector3 zelZeroVector{};

/// Component by component.
/// @{
constexpr ZelVector3 operator+(const ZelVector3& a, const ZelVector3& b) {
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}
constexpr ZelVector3 operator-(const ZelVector3& a, const ZelVector3& b) {
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}
constexpr ZelVector3 operator*(const ZelVector3& v, double factor) {
    return {v.x * factor, v.y * factor, v.z * factor};
}
/// @}
/// The scalar product and the vector product.
/// @{
constexpr double dot(const ZelVector3& a, const ZelVector3& b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}
constexpr ZelVector3 cross(const ZelVector3& a, const ZelVector3& b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
/// @}

/// "(x,y,z)", the numbers in the stream's own format.
std::ostream& operator<<(std::ostream& out, const ZelVector3& v);
/// Reads that form, with blanks allowed around every token. A wrong or missing character sets
/// failbit; a bad number leaves the state that the stream has set itself. Reading stops there, and
/// `v` is unchanged.
std::istream& operator>>(std::istream& in, ZelVector3& v);

constexpr ZelVector3 ZelVector3::project(const ZelVector3& onto) const {
    const double square = onto.lengthSquared();
    if (!(square > 2.220446049250313e-16)) return zelZeroVector;
    return onto * (dot(*this, onto) / square);
}

constexpr ZelVector3 ZelVector3::reject(const ZelVector3& onto) const {
    return *this - project(onto);
}

constexpr bool ZelVector3::isParallel(const ZelVector3& a, const ZelVector3& b, double t) {
    const double product = dot(a, b);
    return product * product >= a.lengthSquared() * (1 - t * t) * b.lengthSquared();
}

constexpr bool ZelVector3::isPerpendicular(const ZelVector3& a, const ZelVector3& b, double t) {
    const double product = dot(a, b);
    return a.lengthSquared() * (t * t) * b.lengthSquared() >= product * product;
}
