// SPDX-License-Identifier: Apache-2.0
// Adaptive Gauss-Kronrod quadrature of an area and a volume at once.
#pragma once

#include <array>
#include <cmath>
#include <cstdint>
#include <stdexcept>
#include <string>

namespace host {

/// An area and a volume, or densities of both.
struct Measures {
    double area = 0.0, volume = 0.0;

    Measures& operator+=(const Measures& other) {
        area += other.area;
        volume += other.volume;
        return *this;
    }
    Measures operator*(double factor) const { return {area * factor, volume * factor}; }
};

/// An integral that doesn't settle within its budget. what() ends a sentence about the face.
class IntegrationLimit : public std::runtime_error {
public:
    explicit IntegrationLimit(std::int64_t evaluations)
        : std::runtime_error("its integral needs more than " + std::to_string(evaluations) +
                             " evaluations of its surface") {}
};

/// Counts the evaluations of a surface and throws IntegrationLimit beyond the last.
class EvaluationBudget {
public:
    explicit EvaluationBudget(std::int64_t evaluations)
        : evaluations_(evaluations), left_(evaluations) {}

    void spendOne() {
        if (--left_ < 0) throw IntegrationLimit(evaluations_);
    }

private:
    std::int64_t evaluations_, left_;
};

/// A non-negative node of a Kronrod rule. Every second node is one of a Gauss rule as well, whose
/// weight is 0 at the others.
struct QuadratureNode {
    double at, kronrod, gauss;
};

/// 7 points, 3 of them Gauss's: for pieces of low degree, such as a surface between two knots.
inline constexpr std::array<QuadratureNode, 4> shortRule{{
    {0.960491268708020283423507092629080, 0.104656226026467265193823857192073, 0.0},
    {0.774596669241483377035853079956480, 0.268488089868333440728569280666710,
     0.555555555555555555555555555555556},
    {0.434243749346802558002071502844628, 0.401397414775962222905051818618432, 0.0},
    {0.0, 0.450916538658474142345110087045571, 0.888888888888888888888888888888889},
}};
/// 15 points, 7 of them Gauss's.
inline constexpr std::array<QuadratureNode, 8> longRule{{
    {0.991455371120812639206854697526329, 0.022935322010529224963732008058970, 0.0},
    {0.949107912342758524526189684047851, 0.063092092629978553290700663189204,
     0.129484966168869693270611432679082},
    {0.864864423359769072789712788640926, 0.104790010322250183839876322541518, 0.0},
    {0.741531185599394439863864773280788, 0.140653259715525918745189590510238,
     0.279705391489276667901467771423780},
    {0.586087235467691130294144691693003, 0.169004726639267902826583426598550, 0.0},
    {0.405845151377397166906606412076961, 0.190350578064785409913256402421014,
     0.381830050505118944950369775488975},
    {0.207784955007898467600689403773245, 0.204432940075298892414161999234649, 0.0},
    {0.0, 0.209482141084727828012999174891714, 0.417959183673469387755102040816327},
}};

/// Halves an interval at most this often.
inline constexpr int greatestQuadratureDepth = 12;

/// The integral of `f` from `from` to `to`. An interval is halved until the Kronrod and the Gauss
/// rule differ by no more than `tolerance` in both figures; the true error of the Kronrod rule is
/// far below that difference.
template <class Rule, class Function>
Measures quadrature(const Rule& rule, const Function& f, double from, double to,
                    const Measures& tolerance, int depth = greatestQuadratureDepth) {
    const double middle = 0.5 * (from + to), half = 0.5 * (to - from);
    Measures fine, coarse;
    for (const QuadratureNode& node : rule) {
        Measures value = f(middle + half * node.at);
        if (node.at > 0.0) value += f(middle - half * node.at);
        fine += value * node.kronrod;
        coarse += value * node.gauss;
    }
    fine = fine * half;
    coarse = coarse * half;
    const bool agrees = std::abs(fine.area - coarse.area) <= tolerance.area &&
                        std::abs(fine.volume - coarse.volume) <= tolerance.volume;
    if (agrees || depth == 0) return fine;
    Measures result = quadrature(rule, f, from, middle, tolerance, depth - 1);
    result += quadrature(rule, f, middle, to, tolerance, depth - 1);
    return result;
}

} // namespace host
