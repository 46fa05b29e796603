// SPDX-License-Identifier: Apache-2.0
// A vector or point of three doubles, a plain value.
#pragma once

struct ZelVector3 {
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;

    constexpr bool operator==(const ZelVector3&) const = default;
};

constexpr ZelVector3 operator+(const ZelVector3& a, const ZelVector3& b) {
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}
constexpr ZelVector3 operator-(const ZelVector3& a, const ZelVector3& b) {
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}
constexpr ZelVector3 operator*(const ZelVector3& v, double factor) {
    return {v.x * factor, v.y * factor, v.z * factor};
}
/// The scalar product.
constexpr double dot(const ZelVector3& a, const ZelVector3& b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}
constexpr ZelVector3 cross(const ZelVector3& a, const ZelVector3& b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
