// SPDX-License-Identifier: Apache-2.0
// What the tests of the mathematics share: numbers without end, and matrices compared by distance.
#pragma once

#include "zelbasictypes/math/zelmatrix4.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <random>
#include <vector>

namespace mathtest {

inline constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
inline constexpr double infinity = std::numeric_limits<double>::infinity();
inline constexpr double pi = std::numbers::pi;
inline constexpr ZelVector3 xAxis{1, 0, 0};
inline constexpr ZelVector3 yAxis{0, 1, 0};
inline constexpr ZelVector3 zAxis{0, 0, 1};

inline double above(double value) { return std::nextafter(value, infinity); }
inline double below(double value) { return std::nextafter(value, -infinity); }

/// The same numbers in every run.
class Numbers {
public:
    double next() { return distribution_(engine_); }
    ZelVector3 vector() {
        const double x = next(), y = next(), z = next();
        return {x, y, z};
    }
    ZelMatrix4 matrix() {
        ZelMatrix4 result;
        for (double& value : result.m) value = next();
        return result;
    }

private:
    std::mt19937_64 engine_{20};
    std::uniform_real_distribution<double> distribution_{-3, 3};
};

/// Every turn whose quaternion has the direction of whole numbers from -2 to 2, so that quarter,
/// third and half turns about all axes of a cube are among them.
inline std::vector<ZelQuaternion> denseTurns() {
    std::vector<ZelQuaternion> turns;
    for (int code = 0; code < 625; ++code) {
        const double w = code % 5 - 2, x = code / 5 % 5 - 2, y = code / 25 % 5 - 2;
        const double z = code / 125 - 2;
        const double length = std::sqrt(w * w + x * x + y * y + z * z);
        if (length > 0) turns.push_back({w / length, x / length, y / length, z / length});
    }
    return turns;
}

inline double distance(const ZelMatrix4& a, const ZelMatrix4& b) {
    double greatest = 0;
    for (int i = 0; i < 16; ++i) {
        const double difference = std::abs(a.m[i] - b.m[i]);
        if (!(difference <= greatest)) greatest = difference; // lets a NaN through
    }
    return greatest;
}

inline double distance(const ZelVector3& a, const ZelVector3& b) { return (a - b).length(); }

/// The matrix with one entry replaced.
inline ZelMatrix4 with(ZelMatrix4 matrix, int index, double value) {
    matrix.m[index] = value;
    return matrix;
}

/// The entries 0 to 15.
inline constexpr ZelMatrix4 counting{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15};

} // namespace mathtest
