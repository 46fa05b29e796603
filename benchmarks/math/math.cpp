// SPDX-License-Identifier: Apache-2.0
// Matrices raced against Eigen and GLM, all built with the same flags. Products, inverses and
// determinants go over 4096 matrices, which stay in the second cache: too many for the processor to
// learn which pivots are coming, as it does with some hundred. The points are a million and come
// from memory. Each peer keeps its own storage order and works on the same numbers.
#include "benchmarks/math/primes.h"
#include "benchmarks/support/race.h"
#include "zelbasictypes/math/zelmatrix4.h"

#include <Eigen/Dense>
#include <glm/glm.hpp>
#include <glm/gtc/matrix_inverse.hpp>
#include <glm/matrix.hpp>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace {

constexpr std::size_t matrixCount = 4096;
constexpr std::size_t pointCount = 1'000'000;

/// The same numbers in all peers' matrices.
template <class Matrix> Matrix from(const double (&rows)[16]);

template <> ZelMatrix4 from(const double (&rows)[16]) { return ZelMatrix4(rows); }

template <> Eigen::Matrix4d from(const double (&rows)[16]) {
    return Eigen::Map<const Eigen::Matrix<double, 4, 4, Eigen::RowMajor>>(rows);
}

template <> glm::dmat4 from(const double (&rows)[16]) {
    glm::dmat4 result;
    for (int i = 0; i < 16; ++i) result[i % 4][i / 4] = rows[i];
    return result;
}

using Rows = double[16];

void fillAtRandom(Rows& rows, std::mt19937_64& engine) {
    std::uniform_real_distribution<double> numbers(-3, 3);
    for (double& value : rows) value = numbers(engine);
}

/// A turn, a scale and a shift.
void fillAsPlacement(Rows& rows, std::mt19937_64& engine) {
    Rows n;
    fillAtRandom(n, engine);
    const ZelMatrix4 placement = ZelMatrix4::fromTranslation({n[0], n[1], n[2]}) *
                                 ZelMatrix4::rotation({n[3], n[4], n[5]}, n[6]) *
                                 ZelMatrix4::uniformScale(n[7]);
    std::copy(placement.m, placement.m + 16, rows);
}

template <class Matrix>
std::vector<Matrix> matrices(unsigned seed, void (*fill)(Rows&, std::mt19937_64&) = fillAtRandom) {
    std::mt19937_64 engine(seed);
    std::vector<Matrix> result;
    for (std::size_t i = 0; i < matrixCount; ++i) {
        Rows rows;
        fill(rows, engine);
        result.push_back(from<Matrix>(rows));
    }
    return result;
}

/// Applies `job` to each index, over and over.
template <class Job> void each(benchmark::State& state, std::size_t count, Job job) {
    for (auto _ : state) {
        for (std::size_t i = 0; i < count; ++i) job(i);
        benchmark::ClobberMemory();
    }
}

template <class Matrix> void multiply(benchmark::State& state) {
    const std::vector<Matrix> a = matrices<Matrix>(1), b = matrices<Matrix>(2);
    std::vector<Matrix> out = a;
    benchmark::DoNotOptimize(out.data());
    each(state, matrixCount, [&](std::size_t i) { out[i] = a[i] * b[i]; });
}

ZelMatrix4 inverseOf(const ZelMatrix4& matrix) { return matrix.inverse(); }
Eigen::Matrix4d inverseOf(const Eigen::Matrix4d& matrix) { return matrix.inverse(); }
glm::dmat4 inverseOf(const glm::dmat4& matrix) { return glm::inverse(matrix); }

ZelMatrix4 affineInverseOf(const ZelMatrix4& matrix) { return matrix.inverse(); }
Eigen::Matrix4d affineInverseOf(const Eigen::Matrix4d& matrix) {
    return Eigen::Affine3d(matrix).inverse(Eigen::Affine).matrix();
}
glm::dmat4 affineInverseOf(const glm::dmat4& matrix) { return glm::affineInverse(matrix); }

template <class Matrix> void invert(benchmark::State& state) {
    const std::vector<Matrix> a = matrices<Matrix>(3);
    std::vector<Matrix> out = a;
    benchmark::DoNotOptimize(out.data());
    each(state, matrixCount, [&](std::size_t i) { out[i] = inverseOf(a[i]); });
}

template <class Matrix> void invertPlacement(benchmark::State& state) {
    const std::vector<Matrix> a = matrices<Matrix>(6, fillAsPlacement);
    std::vector<Matrix> out = a;
    benchmark::DoNotOptimize(out.data());
    each(state, matrixCount, [&](std::size_t i) { out[i] = affineInverseOf(a[i]); });
}

double determinantOf(const ZelMatrix4& matrix) { return matrix.determinant(); }
double determinantOf(const Eigen::Matrix4d& matrix) { return matrix.determinant(); }
double determinantOf(const glm::dmat4& matrix) { return glm::determinant(matrix); }

template <class Matrix> void determinant(benchmark::State& state) {
    const std::vector<Matrix> a = matrices<Matrix>(4);
    std::vector<double> out(matrixCount);
    benchmark::DoNotOptimize(out.data());
    each(state, matrixCount, [&](std::size_t i) { out[i] = determinantOf(a[i]); });
}

ZelVector3 transformed(const ZelMatrix4& matrix, const ZelVector3& p) {
    return matrix.transformPoint(p);
}
Eigen::Vector3d transformed(const Eigen::Matrix4d& matrix, const Eigen::Vector3d& p) {
    const Eigen::Vector4d result = matrix * p.homogeneous();
    return result.head<3>() * (1 / result.w());
}
glm::dvec3 transformed(const glm::dmat4& matrix, const glm::dvec3& p) {
    const glm::dvec4 result = matrix * glm::dvec4(p, 1);
    return glm::dvec3(result) * (1 / result.w);
}

template <class Point> std::vector<Point> points() {
    std::vector<Point> result;
    for (std::size_t i = 0; i < pointCount; ++i) {
        const double t = static_cast<double>(i);
        result.push_back(Point{t, 2 - t, t * 0.5});
    }
    return result;
}

template <class Matrix, class Point> void transform(benchmark::State& state) {
    const Matrix matrix = matrices<Matrix>(5).front();
    const std::vector<Point> in = points<Point>();
    std::vector<Point> out = in;
    benchmark::DoNotOptimize(out.data());
    each(state, pointCount, [&](std::size_t i) { out[i] = transformed(matrix, in[i]); });
}

/// Enters one job for all peers.
void add(const std::string& job, void (*ours)(benchmark::State&), void (*eigen)(benchmark::State&),
         void (*glm)(benchmark::State&)) {
    race::add(job, "ZelMatrix4", ours);
    race::add(job, "Eigen", eigen);
    race::add(job, "GLM", glm);
}

} // namespace

int main(int argc, char** argv) {
    using Eigen::Matrix4d;
    using glm::dmat4;
    add("4096 products", multiply<ZelMatrix4>, multiply<Matrix4d>, multiply<dmat4>);
    add("a million points", transform<ZelMatrix4, ZelVector3>, transform<Matrix4d, Eigen::Vector3d>,
        transform<dmat4, glm::dvec3>);
    add("4096 inverses", invert<ZelMatrix4>, invert<Matrix4d>, invert<dmat4>);
    add("4096 inverses of placements, known to be affine", invertPlacement<ZelMatrix4>,
        invertPlacement<Matrix4d>, invertPlacement<dmat4>);
    add("4096 determinants", determinant<ZelMatrix4>, determinant<Matrix4d>, determinant<dmat4>);
    addPrimes();
    return race::run(argc, argv);
}
