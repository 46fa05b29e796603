// SPDX-License-Identifier: Apache-2.0
// Inverses, against the plain elimination, and solutions, against the products that they undo.
#include "tests/zelbasictypes/mathtest.h"

#include <array>
#include <bit>
#include <cstdint>

namespace {

using namespace mathtest;

/// The elimination in its plainest form, for the sums to be compared to the last bit.
bool eliminate(std::array<std::array<double, 8>, 4> rows, ZelMatrix4& out) {
    for (int c = 0; c < 4; ++c) {
        int pivot = -1;
        double greatest = 0;
        for (int r = c; r < 4; ++r)
            if (std::abs(rows[r][c]) > greatest) greatest = std::abs(rows[pivot = r][c]);
        if (pivot < 0) return false;
        std::swap(rows[pivot], rows[c]);
        const double divisor = rows[c][c];
        for (double& value : rows[c]) value /= divisor;
        for (int r = 0; r < 4; ++r) {
            const double factor = rows[r][c];
            for (int i = 0; r != c && i < 8; ++i) rows[r][i] -= factor * rows[c][i];
        }
    }
    for (int i = 0; i < 16; ++i) out.m[i] = rows[i / 4][4 + i % 4];
    return true;
}

/// Zeros of unlike signs aren't the same.
bool isSame(double a, double b) {
    return std::isnan(a) ? std::isnan(b)
                         : std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

void expectPlainElimination(const ZelMatrix4& matrix) {
    std::array<std::array<double, 8>, 4> rows{};
    for (int i = 0; i < 16; ++i) rows[i / 4][i % 4] = matrix.m[i];
    for (int i = 0; i < 4; ++i) rows[i][4 + i] = 1;
    ZelMatrix4 expected = counting, found = counting;
    const bool isRegular = eliminate(rows, expected);
    ASSERT_EQ(matrix.invert(found), isRegular);
    ZelMatrix4 inPlace = matrix;
    inPlace.invert(inPlace);
    const ZelMatrix4 given = matrix.inverse();
    for (int i = 0; i < 16; ++i) {
        ASSERT_TRUE(isSame(found.m[i], expected.m[i]))
            << matrix << "at " << i << ": " << found.m[i] << ", not " << expected.m[i];
        ASSERT_TRUE(isSame(inPlace.m[i], (isRegular ? expected : matrix).m[i])) << matrix;
        ASSERT_TRUE(isSame(given.m[i], (isRegular ? expected : ZelMatrix4()).m[i])) << matrix;
    }
}

} // namespace

TEST(ZelMatrix4Inverse, FollowsTheEliminationToTheLastBit) {
    Numbers numbers;
    std::mt19937 engine(8);
    // Few values make ties between pivots and zeros; the extreme ones overflow and underflow.
    const double few[] = {0, 1, -1, 2, 0.3, -0.3, 7};
    const double extreme[] = {0, 1, 1e300, -1e-300, infinity, notANumber, 1e160, -3};
    expectPlainElimination({});
    for (int i = 0; i < 20'000; ++i) {
        ZelMatrix4 matrix = numbers.matrix();
        expectPlainElimination(matrix);
        expectPlainElimination(matrix.rotationPart());
        for (double& value : matrix.m) value = few[engine() % 7];
        expectPlainElimination(matrix);
        for (int row = 12; row < 16; ++row) matrix.m[row] = row == 15;
        expectPlainElimination(matrix);
        for (double& value : matrix.m)
            if (engine() % 4 == 0) value = extreme[engine() % 8];
        expectPlainElimination(matrix);
        for (double& value : matrix.m) value = extreme[engine() % 8];
        expectPlainElimination(matrix);
    }
}

TEST(ZelMatrix4Solve, FindsWhatTheBlockWasMultipliedWith) {
    Numbers numbers;
    for (int i = 0; i < 10'000; ++i) {
        const ZelMatrix4 matrix = numbers.matrix();
        const ZelVector3 wanted = numbers.vector();
        ZelVector3 found = matrix.transformVector(wanted);
        ASSERT_TRUE(matrix.solve3(found, found));
        ASSERT_LT(distance(found, wanted), 1e-12 / std::abs(matrix.determinant3()));
        ZelVector3 byRows;
        ASSERT_TRUE(ZelMatrix4::solve3(matrix.row(0), matrix.row(1), matrix.row(2),
                                       matrix.transformVector(wanted), byRows));
        ASSERT_EQ(byRows, found);
    }
}

TEST(ZelMatrix4Solve, FindsWhatTheWholeWasMultipliedWith) {
    Numbers numbers;
    for (int i = 0; i < 10'000; ++i) {
        const ZelMatrix4 matrix = numbers.matrix();
        const double wanted[4] = {numbers.next(), numbers.next(), numbers.next(), numbers.next()};
        double found[4] = {};
        for (int k = 0; k < 16; ++k) found[k / 4] += matrix.m[k] * wanted[k % 4];
        ASSERT_TRUE(matrix.solve4(found, found));
        for (int k = 0; k < 4; ++k)
            ASSERT_NEAR(found[k], wanted[k], 1e-11 / std::abs(matrix.determinant()));
    }
}

TEST(ZelMatrix4Solve, RefusesByTheDeterminant) {
    ZelVector3 out = zAxis;
    EXPECT_FALSE(ZelMatrix4::scaling(1, 0, 1).solve3(xAxis, out));
    EXPECT_EQ(out, zAxis);
    EXPECT_TRUE(ZelMatrix4::scaling(1, 1, 1e-300).solve3({0, 0, 1e-300}, out));
    EXPECT_EQ(out, zAxis);

    const double rhs[4] = {0, 1, 0, 0};
    double four[4] = {9, 9, 9, 9};
    for (const double sign : {1.0, -1.0}) {
        EXPECT_FALSE(ZelMatrix4::scaling(sign * 1e-16, 1, 1).solve4(rhs, four));
        EXPECT_EQ(four[1], 9);
    }
    EXPECT_FALSE(with({}, 0, notANumber).solve4(rhs, four));
    EXPECT_TRUE(ZelMatrix4::scaling(-above(1e-16), 1, 1).solve4(rhs, four));
    EXPECT_EQ(four[1], 1);
}

TEST(ZelMatrix4Orthonormalize, KeepsTheSpansOfTheColumns) {
    Numbers numbers;
    for (int i = 0; i < 1000; ++i) {
        const ZelMatrix4 before = numbers.matrix();
        ZelMatrix4 matrix = before;
        ASSERT_TRUE(matrix.orthonormalize());
        ASSERT_TRUE(matrix.isOrthonormal());
        ASSERT_GT(dot(matrix.column(0), before.column(0)), 0);
        ASSERT_LT(cross(matrix.column(0), before.column(0)).length(), 1e-6);
        ASSERT_GT(dot(matrix.column(1), before.column(1)), 0);
        ASSERT_NEAR(dot(matrix.column(2), before.column(1)), 0, 1e-6);
        ASSERT_GT(dot(matrix.column(2), before.column(2)), 0);
        matrix.setColumn(0, before.column(0));
        matrix.setColumn(1, before.column(1));
        matrix.setColumn(2, before.column(2));
        ASSERT_EQ(matrix, before); // nothing beside the block has changed
    }
}

TEST(ZelMatrix4Orthonormalize, AnswersForTheThirdColumnOnly) {
    ZelMatrix4 flat({2, 0, 3}, {0, 2, 4}, {0, 0, 0});
    EXPECT_FALSE(flat.orthonormalize());
    EXPECT_EQ(flat, ZelMatrix4::scaling(1, 1, 0));
    ZelMatrix4 doubled({2, 3, 3}, {0, 0, 4}, {0, 0, 0});
    EXPECT_TRUE(doubled.orthonormalize());
    EXPECT_EQ(doubled, ZelMatrix4({1, 0, 0}, {0, 0, 1}, {0, 0, 0}));
}
