// SPDX-License-Identifier: Apache-2.0
// A turn as a quaternion, as an axis with an angle, and as angles about the axes.
#include "zelbasictypes/math/zelmatrix4.h"

#include <cmath>
#include <numbers>
#include <optional>

namespace {

constexpr double closeness = 0.0001;

bool isNear(double a, double b) { return std::abs(a - b) <= closeness; }

/// The upper left block, cleaned, entry by entry.
struct Turn {
    double r00, r01, r02, r10, r11, r12, r20, r21, r22;
};

using Angles = std::optional<ZelVector3>;

Angles aboutX(const Turn& t) {
    if (t.r01 != 0 || t.r02 != 0 || t.r10 != 0 || t.r20 != 0) return {};
    return ZelVector3{std::atan2(t.r21, t.r11), 0, 0};
}

Angles aboutY(const Turn& t) {
    if (t.r01 != 0 || t.r10 != 0 || t.r12 != 0 || t.r21 != 0) return {};
    return ZelVector3{0, std::atan2(-t.r20, t.r00), 0};
}

Angles aboutZ(const Turn& t) {
    if (t.r20 != 0 || t.r21 != 0 || t.r02 != 0 || t.r12 != 0) return {};
    return ZelVector3{0, 0, std::atan2(t.r10, t.r00)};
}

/// A quarter turn about y, where x and z turn about the same line.
Angles quarterAboutY(const Turn& t) {
    if (t.r00 != 0 || t.r10 != 0 || t.r21 != 0 || t.r22 != 0) return {};
    return ZelVector3{std::atan2(t.r01, t.r02), std::numbers::pi / 2, 0};
}

Angles aboutXThenY(const Turn& t) {
    const double a = -t.r12;
    const double b = -t.r20;
    if (t.r10 != 0 || !isNear(t.r01, a * b) || !isNear(t.r21, a * t.r00) ||
        !isNear(t.r02, b * t.r11) || !isNear(t.r22, t.r11 * t.r00))
        return {};
    return ZelVector3{std::atan2(a, t.r11), std::atan2(b, t.r00), 0};
}

Angles aboutXThenZ(const Turn& t) {
    if (t.r20 != 0 || !isNear(t.r22 * t.r10 + t.r01, 0) || !isNear(t.r02 - t.r21 * t.r10, 0) ||
        !isNear(t.r11 - t.r22 * t.r00, 0) || !isNear(t.r21 * t.r00 + t.r12, 0))
        return {};
    return ZelVector3{std::atan2(t.r21, t.r22), 0, std::atan2(t.r10, t.r00)};
}

Angles aboutYThenZ(const Turn& t) {
    const double b = -t.r20;
    const double c = -t.r01;
    if (t.r21 != 0 || !isNear(t.r00, t.r22 * t.r11) || !isNear(t.r10, c * t.r22) ||
        !isNear(t.r02, b * t.r11) || !isNear(t.r12, b * c))
        return {};
    return ZelVector3{0, std::atan2(b, t.r22), std::atan2(c, t.r11)};
}

Angles aboutAll(const Turn& t) {
    double y = -std::asin(t.r20);
    if (y < 0) y = std::numbers::pi - y;
    const double k = 1 / std::cos(y);
    return ZelVector3{std::atan2(k * t.r21, k * t.r22), y, std::atan2(k * t.r10, k * t.r00)};
}

void cleanColumn(double* top) {
    double squares = 0;
    for (int i = 0; i < 9; i += 3) {
        if (std::abs(top[i]) < closeness) top[i] = 0;
        squares += top[i] * top[i];
    }
    if (squares == 1 || squares == 0) return;
    const double factor = 1 / std::sqrt(squares);
    for (int i = 0; i < 9; i += 3) top[i] *= factor;
}

} // namespace

ZelQuaternion ZelMatrix4::toQuaternion() const {
    const double trace = m[0] + m[5] + m[10];
    if (trace > 0) {
        const double h = 0.5 / std::sqrt(trace + 1);
        return {0.25 / h, (m[9] - m[6]) * h, (m[2] - m[8]) * h, (m[4] - m[1]) * h};
    }
    if (m[0] > m[5] && m[0] > m[10]) {
        const double s = 2 * std::sqrt(m[0] + 1 - m[5] - m[10]);
        return {(m[9] - m[6]) / s, s / 4, (m[4] + m[1]) / s, (m[8] + m[2]) / s};
    }
    if (m[5] > m[10]) {
        const double s = 2 * std::sqrt(m[5] + 1 - m[0] - m[10]);
        return {(m[2] - m[8]) / s, (m[4] + m[1]) / s, s / 4, (m[6] + m[9]) / s};
    }
    const double s = 2 * std::sqrt(m[10] + 1 - m[0] - m[5]);
    return {(m[4] - m[1]) / s, (m[2] + m[8]) / s, (m[6] + m[9]) / s, s / 4};
}

ZelVector3 ZelMatrix4::toEulerAngles() const {
    double r[9] = {m[0], m[1], m[2], m[4], m[5], m[6], m[8], m[9], m[10]};
    cleanRotation(r);
    const Turn turn{r[0], r[1], r[2], r[3], r[4], r[5], r[6], r[7], r[8]};
    for (const auto attempt :
         {aboutX, aboutY, aboutZ, quarterAboutY, aboutXThenY, aboutXThenZ, aboutYThenZ})
        if (const Angles angles = attempt(turn)) return *angles;
    return *aboutAll(turn);
}

double ZelMatrix4::rotationAngle() const { return 2 * std::acos(toQuaternion().w); }

ZelVector3 ZelMatrix4::rotationAxis() const {
    const ZelQuaternion q = toQuaternion();
    const double sine = std::sin(std::acos(q.w));
    if (sine == 0) return zelZeroVector;
    return {q.x / sine, q.y / sine, q.z / sine};
}

void ZelMatrix4::cleanRotation(double block[9]) {
    for (int column = 0; column < 3; ++column) cleanColumn(block + column);
}
