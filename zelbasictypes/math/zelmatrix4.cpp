// SPDX-License-Identifier: Apache-2.0
// Matrices that need an angle, and the measures that need a root.
#include "zelbasictypes/math/zelmatrix4.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

/// The columns of the upper left block.
struct Columns {
    explicit Columns(const ZelMatrix4& matrix)
        : c0(matrix.column(0)), c1(matrix.column(1)), c2(matrix.column(2)) {}

    ZelVector3 c0, c1, c2;
};

bool isOrthonormalLength(const ZelVector3& column) { return std::abs(column.length() - 1) <= 1e-7; }

bool isOrthonormalProduct(const ZelVector3& a, const ZelVector3& b) {
    return std::abs(dot(a, b)) <= 1e-7;
}

} // namespace

ZelMatrix4 ZelMatrix4::rotation(const ZelVector3& axis, double angle) {
    const auto [x, y, z] = axis.normalized();
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    const double t = 1 - c;
    return {{x * x * t + c, x * y * t - z * s, x * z * t + y * s},
            {x * y * t + z * s, y * y * t + c, y * z * t - x * s},
            {x * z * t - y * s, y * z * t + x * s, z * z * t + c}};
}

ZelMatrix4 ZelMatrix4::rotationBetween(const ZelVector3& from, const ZelVector3& to) {
    const ZelVector3 a = from.normalized();
    const ZelVector3 b = to.normalized();
    const double angle = std::acos(std::clamp(dot(a, b), -1.0, 1.0));
    if (angle < 1e-7) return {};
    if (angle > 3.1415925535897933) { // 1e-7 below half a turn
        ZelVector3 second, first;
        ZelVector3::perpendicularPair(a, second, first);
        return rotation(second, std::numbers::pi);
    }
    return rotation(cross(a, b).normalized(), angle);
}

ZelMatrix4 ZelMatrix4::perspective(float angleX, float angleY, float nearDepth, float farDepth) {
    ZelMatrix4 result = scaling(1 / std::tan(angleX / 2), 1 / std::tan(angleY / 2), 0);
    const float depth = farDepth / (nearDepth - farDepth);
    result.m[10] = depth;
    result.m[11] = depth * nearDepth;
    result.m[14] = -1;
    result.m[15] = 0;
    return result;
}

ZelVector3 ZelMatrix4::scaleFactors() const {
    const Columns columns(*this);
    return {columns.c0.length(), columns.c1.length(), columns.c2.length()};
}

bool ZelMatrix4::isUniformScale() const {
    if (!isAffine() || !isDiagonal()) return false;
    const double factor = std::cbrt(m[0] * m[5] * m[10]);
    return std::abs(m[0] - factor) < 1e-10 && std::abs(m[5] - factor) < 1e-10 &&
           std::abs(m[10] - factor) < 1e-10;
}

bool ZelMatrix4::isOrthonormal() const {
    const auto [c0, c1, c2] = Columns(*this);
    return isOrthonormalLength(c0) && isOrthonormalLength(c1) && isOrthonormalLength(c2) &&
           isOrthonormalProduct(c0, c1) && isOrthonormalProduct(c0, c2) &&
           isOrthonormalProduct(c1, c2);
}

bool ZelMatrix4::isSimilarity(double* scale) const {
    const auto [c0, c1, c2] = Columns(*this);
    constexpr double unit = 1.7763568394002505e-15;
    const double square = c0.lengthSquared();
    const double products = square * unit;
    const double squares = square < 1 ? unit : products;
    const bool result = std::abs(c1.lengthSquared() - square) < squares &&
                        std::abs(c2.lengthSquared() - square) < squares &&
                        std::abs(dot(c0, c1)) < products && std::abs(dot(c0, c2)) < products &&
                        std::abs(dot(c1, c2)) < products;
    if (scale) {
        *scale = std::sqrt(square);
        if (result && determinant3() < 0) *scale = -*scale;
    }
    return result;
}

double ZelMatrix4::scaleFactor() const { return std::cbrt(std::abs(determinant3())); }

bool ZelMatrix4::orthonormalize() {
    auto [c0, c1, c2] = Columns(*this);
    c0.normalize();
    c1 = c1.reject(c0);
    c1.normalize();
    c2 = c2.reject(c0).reject(c1);
    const bool result = c2.normalize();
    setColumn(0, c0);
    setColumn(1, c1);
    setColumn(2, c2);
    return result;
}
