// SPDX-License-Identifier: Apache-2.0
// What takes a root, and the text form.
#include "zelbasictypes/math/zelvector3.h"

#include <algorithm>
#include <cmath>
#include <istream>
#include <ostream>

namespace {

/// One component of a normalised vector, from the squares of the other two. The order of `max` lets
/// a NaN, infinity over infinity, count as 0.
double unitComponent(double component, double otherSquares, double allSquares) {
    const double size = std::sqrt(std::max(0.0, 1 - otherSquares / allSquares));
    return component < 0 ? -size : size;
}

double alignment(const ZelVector3& a, const ZelVector3& b) {
    return std::abs(dot(a.normalized(), b.normalized()));
}

bool isOneTooShort(const ZelVector3& a, const ZelVector3& b, double minLength) {
    return a.isShorterThan(minLength) || b.isShorterThan(minLength);
}

/// Never divides by the least of the three.
ZelVector3 anyPerpendicular(const ZelVector3& v) {
    const double ax = std::abs(v.x);
    const double ay = std::abs(v.y);
    const double az = std::abs(v.z);
    if (ax <= ay) {
        if (az < ax) return {-v.z / v.x, 0, 1};
        if (az < ay) return {0, -v.z / v.y, 1};
        return {1, 0, -v.x / v.z};
    }
    if (ay > az) return {-v.z / v.x, 0, 1};
    if (az < ax) return {-v.y / v.x, 1, 0};
    return {0, 1, -v.y / v.z};
}

bool expect(std::istream& in, char wanted) {
    char c = 0;
    in >> c;
    if (c == wanted) return true;
    in.clear(std::ios::failbit);
    return false;
}

} // namespace

double ZelVector3::length() const { return std::sqrt(lengthSquared()); }

bool ZelVector3::normalize() {
    const double squares = lengthSquared();
    if (!(squares > 0)) return false;
    const double xx = x * x;
    const double yy = y * y;
    const double zz = z * z;
    x = unitComponent(x, yy + zz, squares);
    y = unitComponent(y, xx + zz, squares);
    z = unitComponent(z, xx + yy, squares);
    return true;
}

ZelVector3 ZelVector3::normalized() const {
    ZelVector3 copy = *this;
    copy.normalize();
    return copy;
}

bool ZelVector3::isUnit(double t) const { return length() >= 1 - t && length() <= 1 + t; }

bool ZelVector3::isAlignedAbove(const ZelVector3& a, const ZelVector3& b, double t,
                                double minLength) {
    return isOneTooShort(a, b, minLength) || alignment(a, b) > t;
}

bool ZelVector3::isAlignedBelow(const ZelVector3& a, const ZelVector3& b, double t,
                                double minLength) {
    return isOneTooShort(a, b, minLength) || alignment(a, b) < 1 - t;
}

ZelVector3 ZelVector3::perpendicular() const { return anyPerpendicular(*this).normalized(); }

bool ZelVector3::perpendicularPair(const ZelVector3& d, ZelVector3& second, ZelVector3& first) {
    const ZelVector3 n = d.normalized();
    if (n.length() < 0.5) return false;
    const ZelVector3 reference = std::abs(n.x) < 0.8 ? ZelVector3{1, 0, 0} : ZelVector3{0, 1, 0};
    const ZelVector3 side = cross(n, reference).normalized();
    first = side;
    second = cross(side, n).normalized();
    return true;
}

std::ostream& operator<<(std::ostream& out, const ZelVector3& v) {
    return out << '(' << v.x << ',' << v.y << ',' << v.z << ')';
}

std::istream& operator>>(std::istream& in, ZelVector3& v) {
    if (!in) return in;
    ZelVector3 read;
    if (expect(in, '(') && in >> read.x && expect(in, ',') && in >> read.y && expect(in, ',') &&
        in >> read.z && expect(in, ')'))
        v = read;
    return in;
}
