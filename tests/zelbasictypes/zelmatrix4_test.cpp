// SPDX-License-Identifier: Apache-2.0
// The conventions of the matrix: which side a point stands on, where everything is, what the exact
// tests and the tolerant ones take.
#include "zelbasictypes/math/zelmatrix4.h"

#include "tests/zelbasictypes/mathtest.h"

namespace {

using namespace mathtest;

/// A quarter turn about z, then a shift.
constexpr ZelMatrix4 turnAndShift{0, -1, 0, 10, 1, 0, 0, 20, 0, 0, 1, 30, 0, 0, 0, 1};

static_assert(turnAndShift.transformPoint(ZelVector3{1, 2, 3}) == ZelVector3{8, 21, 33});
static_assert(turnAndShift.transformVector(ZelVector3{1, 2, 3}) == ZelVector3{-2, 1, 3});
static_assert((turnAndShift * ZelMatrix4()).isAffine());
static_assert(ZelMatrix4::scaling(2, 3, 4).determinant() == 24);
static_assert(ZelMatrix4::fromQuaternion({}).isIdentity());

} // namespace

TEST(ZelMatrix4, IsTheIdentityWithoutValues) {
    EXPECT_EQ(turnAndShift * ZelMatrix4(), turnAndShift);
    EXPECT_EQ(zelIdentityMatrix, ZelMatrix4(nullptr));
}

TEST(ZelMatrix4, AppliesTheRightFactorFirst) {
    Numbers numbers;
    for (int i = 0; i < 1000; ++i) {
        const ZelMatrix4 a = numbers.matrix(), b = numbers.matrix();
        const ZelVector3 p = numbers.vector();
        const ZelVector3 oneByOne = a.transformPoint(b.transformPoint(p));
        ASSERT_LT(distance((a * b).transformPoint(p), oneByOne), 1e-9 * (1 + oneByOne.length()));
        ZelMatrix4 product = a;
        product = product * b;
        ZelMatrix4 other;
        ZelMatrix4::multiply(a, b, other);
        ASSERT_EQ(product, other);
    }
    constexpr ZelMatrix4 constant = counting * turnAndShift;
    EXPECT_EQ(ZelMatrix4(counting.m) * ZelMatrix4(turnAndShift.m), constant);
}

TEST(ZelMatrix4, DividesByTheFourthRow) {
    const ZelMatrix4 projective = with({}, 14, 1);
    EXPECT_EQ(projective.transformPoint({2, 4, 1}), (ZelVector3{1, 2, 0.5}));
    EXPECT_EQ(projective.transformPoint({2, -4, -1}), (ZelVector3{infinity, -infinity, -infinity}));
    EXPECT_TRUE(std::isnan(projective.transformPoint({0, 4, -1}).x));
    EXPECT_EQ(projective.transformVector({2, 4, -1}), (ZelVector3{2, 4, -1}));
}

TEST(ZelMatrix4, DividesByMultiplyingWithTheReciprocal) {
    EXPECT_EQ(with({}, 15, 49).transformPoint({49, 98, 0}).x, 49 * (1 / 49.0));
}

TEST(ZelMatrix4, TransformsFloatsInDoublePrecision) {
    const ZelMatrix4 far =
        ZelMatrix4::fromTranslation({-16777216, 0, 0}) * ZelMatrix4::scaling(16777217, 1 / 3.0, 1);
    float p[3] = {1, 1, 1};
    far.transformPoint(p, p);
    EXPECT_EQ(p[0], 1);
    EXPECT_EQ(p[1], static_cast<float>(1 / 3.0));
    float v[3] = {1, 0, 0};
    with(far, 1, 0.5).transformVector(v, v);
    EXPECT_EQ(v[0], 16777216);
}

TEST(ZelMatrix4, TakesVectorsAsRowsOrColumns) {
    const ZelVector3 a{1, 2, 3}, b{4, 5, 6}, c{7, 8, 9};
    const ZelMatrix4 rows(a, b, c);
    EXPECT_EQ(rows, (ZelMatrix4{1, 2, 3, 0, 4, 5, 6, 0, 7, 8, 9, 0, 0, 0, 0, 1}));
    ZelMatrix4 columns = ZelMatrix4::fromColumns(a, b, c, {10, 11, 12});
    EXPECT_EQ(columns.transformPoint({0, 1, 0}), (b + ZelVector3{10, 11, 12}));
    EXPECT_EQ(columns.translation(), (ZelVector3{10, 11, 12}));
    columns.setTranslation(zelZeroVector);
    columns.transposeInPlace();
    EXPECT_EQ(columns, rows);
}

TEST(ZelMatrix4, MapsTheSquareOntoARectangle) {
    const double r[4] = {1, 10, 5, -20};
    const ZelMatrix4 map = ZelMatrix4::fromRectangle(r);
    EXPECT_EQ(map.transformPoint({-1, -1, 7}), (ZelVector3{1, 10, 7}));
    EXPECT_EQ(map.transformPoint({1, 1, 7}), (ZelVector3{5, -20, 7}));
}

TEST(ZelMatrix4, HasTheDepthOffsetOfAParallelViewBelowTheDepth) {
    EXPECT_EQ(ZelMatrix4::orthographic(4, 8, 2, 6),
              (ZelMatrix4{0.5, 0, 0, 0, 0, 0.25, 0, 0, 0, 0, 0.25, 0, 0, 0, -0.5, 1}));
    EXPECT_EQ(ZelMatrix4::orthographic(3, 1, 0, 1).m[0], static_cast<double>(2.0f / 3.0f));
}

TEST(ZelMatrix4, MapsTheFieldOfViewOntoTheSquareAndItsDepth) {
    const ZelMatrix4 view = ZelMatrix4::perspective(1.0f, 0.5f, 2, 10);
    const double right = std::tan(0.5), top = std::tan(0.25);
    EXPECT_LT(distance(view.transformPoint({2 * right, -2 * top, -2}), {1, -1, 0}), 1e-6);
    EXPECT_LT(distance(view.transformPoint({-10 * right, 10 * top, -10}), {-1, 1, 1}), 1e-6);
    EXPECT_EQ(view.m[11], static_cast<double>(static_cast<float>(view.m[10]) * 2));
    EXPECT_EQ(view.row(3), zAxis * -1);
    EXPECT_EQ(view.m[15], 0);
}

TEST(ZelMatrix4, MirrorsAtThePlaneOfAUnitNormalOnly) {
    const ZelVector3 n = (ZelVector3{1, -2, 2}) * (1 / 3.0);
    const ZelMatrix4 mirror = ZelMatrix4::reflection(n);
    EXPECT_LT(distance(mirror.transformPoint(n), n * -1), 1e-15);
    EXPECT_LT(distance(mirror.transformPoint({2, 1, 0}), {2, 1, 0}), 1e-15);
    EXPECT_TRUE(mirror.isAffine());
    EXPECT_EQ(ZelMatrix4::reflection({2, 0, 0}), ZelMatrix4::scaling(-7, 1, 1));
}

TEST(ZelMatrix4, ReadsAndWritesRowsAndColumnsWithinBounds) {
    for (unsigned i = 0; i < 4; ++i) {
        ZelMatrix4 matrix = counting;
        EXPECT_EQ(matrix.column(i), (ZelVector3{0.0 + i, 4.0 + i, 8.0 + i}));
        EXPECT_EQ(matrix.row(i), (ZelVector3{4.0 * i, 4.0 * i + 1, 4.0 * i + 2}));
        matrix.setColumn(i, {-1, -2, -3});
        EXPECT_EQ(matrix.column(i), (ZelVector3{-1, -2, -3}));
        EXPECT_EQ(matrix.m[12 + i], 12.0 + i);
        matrix.setRow(i, {-4, -5, -6});
        EXPECT_EQ(matrix.row(i), (ZelVector3{-4, -5, -6}));
        EXPECT_EQ(matrix.m[15], 15);
    }
    for (const unsigned i : {4u, ~0u}) {
        ZelMatrix4 matrix = counting;
        matrix.setColumn(i, xAxis);
        matrix.setRow(i, xAxis);
        EXPECT_EQ(matrix, counting);
        EXPECT_EQ(matrix.column(i), zelZeroVector);
        EXPECT_EQ(matrix.row(i), zelZeroVector);
    }
}

TEST(ZelMatrix4, ExchangesWholeColumnsWithinBounds) {
    double values[4] = {-1, -2, -3, -4};
    ZelMatrix4 matrix = counting;
    matrix.swapColumn(2, values);
    EXPECT_EQ(matrix, (ZelMatrix4{0, 1, -1, 3, 4, 5, -2, 7, 8, 9, -3, 11, 12, 13, -4, 15}));
    EXPECT_EQ(values[3], 14);
    for (const int i : {-1, 4}) matrix.swapColumn(i, values);
    matrix.swapColumn(2, values);
    EXPECT_EQ(matrix, counting);
    EXPECT_EQ(values[3], -4);
}

TEST(ZelMatrix4, ComesApartIntoShiftTurnAndScale) {
    EXPECT_EQ(counting.translationPart(), ZelMatrix4::fromTranslation({3, 7, 11}));
    EXPECT_EQ(counting.rotationPart(), ZelMatrix4({0, 1, 2}, {4, 5, 6}, {8, 9, 10}));
    const ZelMatrix4 scaled = ZelMatrix4::rotation({1, 2, 3}, 1) * ZelMatrix4::scaling(-2, 3, 4);
    EXPECT_LT(distance(scaled.scaleFactors(), {2, 3, 4}), 1e-14);
    EXPECT_NEAR(scaled.scaleFactor(), std::cbrt(24), 1e-14);
    EXPECT_NEAR(scaled.determinant3(), -24, 1e-13);
}

TEST(ZelMatrix4, ComparesExactlyWhatEachTestLooksAt) {
    for (int i = 0; i < 16; ++i)
        for (const double change : {above(zelIdentityMatrix.m[i]), -1e-300, notANumber, infinity}) {
            const ZelMatrix4 changed = with({}, i, change);
            const bool isShift = i == 3 || i == 7 || i == 11;
            EXPECT_FALSE(changed.isIdentity()) << i;
            EXPECT_FALSE(ZelMatrix4::equals(changed, {})) << i;
            EXPECT_EQ(ZelMatrix4::equals(changed, changed), !std::isnan(change)) << i;
            EXPECT_EQ(changed.isAffine(), i < 12) << i;
            EXPECT_EQ(changed.isDiagonal(), i % 5 == 0) << i;
            EXPECT_EQ(changed.isTranslation(), isShift) << i;
        }
    EXPECT_TRUE(with({}, 1, -0.0).isIdentity());
    EXPECT_TRUE(ZelMatrix4().isAffine() && ZelMatrix4().isDiagonal() &&
                ZelMatrix4().isTranslation());
}

TEST(ZelMatrix4, KnowsAUniformScaleByTheCubeRoot) {
    for (const double s : {1.0, -2.0, 1e-3, 0.0})
        EXPECT_TRUE(ZelMatrix4::uniformScale(s).isUniformScale()) << s;
    // One factor off by d moves the cube root by a third of it.
    EXPECT_TRUE(ZelMatrix4::scaling(1, 1, 1 + 1.49e-10).isUniformScale());
    EXPECT_FALSE(ZelMatrix4::scaling(1, 1 + 1.51e-10, 1).isUniformScale());
    EXPECT_FALSE(ZelMatrix4::scaling(-1, -1, 1).isUniformScale());
    EXPECT_FALSE(ZelMatrix4::scaling(infinity, infinity, infinity).isUniformScale());
    for (const int i : {1, 2, 3, 4, 6, 7, 8, 9, 11, 12, 13, 14})
        EXPECT_FALSE(with({}, i, 1e-300).isUniformScale()) << i;
    EXPECT_FALSE(with({}, 15, above(1)).isUniformScale());
}

TEST(ZelMatrix4, IsOrthonormalWithinItsTolerance) {
    const ZelMatrix4 turn = ZelMatrix4::rotation({1, 2, 3}, 1);
    EXPECT_TRUE(turn.isOrthonormal());
    EXPECT_TRUE((turn * ZelMatrix4::scaling(1, -1, 1)).isOrthonormal());
    EXPECT_TRUE(with(turn, 12, 5).isOrthonormal());
    for (const double sign : {1.0, -1.0})
        for (int axis = 0; axis < 3; ++axis) {
            const auto stretched = [&](double d) { return with({}, 5 * axis, 1 + sign * d); };
            EXPECT_TRUE((turn * stretched(0.99e-7)).isOrthonormal());
            EXPECT_FALSE((turn * stretched(1.01e-7)).isOrthonormal());
            const int beside = axis == 2 ? 2 : axis + 1 + 4 * axis; // 1, 6, 2
            EXPECT_TRUE((turn * with({}, beside, sign * 0.99e-7)).isOrthonormal());
            EXPECT_FALSE((turn * with({}, beside, sign * 1.01e-7)).isOrthonormal());
        }
    EXPECT_FALSE(with(turn, 0, notANumber).isOrthonormal());
}

TEST(ZelMatrix4, IsASimilarityWithinItsTolerance) {
    // Squares of lengths and products are exact here, so that each bound can be met on the dot.
    const double unit = 0x1p-49;
    const auto block = [](double factor, double a, double b) {
        return ZelMatrix4({factor, a, 0}, {0, factor, 0}, {0, 0, factor + b});
    };
    EXPECT_TRUE(block(4, unit * 3.99, 0).isSimilarity(nullptr));
    EXPECT_FALSE(block(4, unit * 4, 0).isSimilarity(nullptr));
    EXPECT_FALSE(block(4, -unit * 4, 0).isSimilarity(nullptr));
    EXPECT_TRUE(block(4, 0, unit * 1.5).isSimilarity(nullptr));
    EXPECT_FALSE(block(4, 0, unit * 2).isSimilarity(nullptr));
    EXPECT_FALSE(block(4, 0, -unit * 2).isSimilarity(nullptr));
    // Below 1 the products are bound by the square, the lengths are not.
    EXPECT_TRUE(block(0x1p-4, 0x1p-54, 0).isSimilarity(nullptr));
    EXPECT_FALSE(block(0x1p-4, 0x1p-53, 0).isSimilarity(nullptr));
    EXPECT_TRUE(block(0x1p-4, 0, 0x1p-47).isSimilarity(nullptr));
    EXPECT_FALSE(block(0x1p-4, 0, 0x1p-46).isSimilarity(nullptr));
}

TEST(ZelMatrix4, TellsTheScaleOfWhatMayBeASimilarity) {
    const struct {
        ZelMatrix4 matrix;
        bool is;
        double scale;
    } cases[] = {
        {ZelMatrix4::uniformScale(3), true, 3},
        {ZelMatrix4::uniformScale(-3), true, -3},
        {ZelMatrix4({0, 2, 0}, {2, 0, 0}, {0, 0, 2}), true, -2},
        {ZelMatrix4::scaling(3, 3, -4), false, 3},
        {ZelMatrix4::uniformScale(0), false, 0},
    };
    for (const auto& c : cases) {
        double scale = notANumber;
        EXPECT_EQ(c.matrix.isSimilarity(&scale), c.is) << c.scale;
        EXPECT_EQ(scale, c.scale);
    }
    double scale = 0;
    EXPECT_FALSE(with({}, 0, notANumber).isSimilarity(&scale));
    EXPECT_TRUE(std::isnan(scale));
}

TEST(ZelMatrix4, LooksBesideTheDiagonalOfItsBlockOnly) {
    for (int i = 0; i < 16; ++i) {
        const bool counts = i % 5 != 0 && i % 4 != 3 && i < 12;
        EXPECT_EQ(with({}, i, -2).hasOffDiagonal(1.5), counts) << i;
        EXPECT_FALSE(with({}, i, -2).hasOffDiagonal(2)) << i;
        EXPECT_FALSE(with({}, i, notANumber).hasOffDiagonal(0)) << i;
    }
}

TEST(ZelMatrix4, MultipliesDeterminantsWithMatrices) {
    Numbers numbers;
    for (int i = 0; i < 1000; ++i) {
        const ZelMatrix4 a = numbers.matrix(), b = numbers.matrix();
        ZelMatrix4 turned = a;
        turned.transposeInPlace();
        ASSERT_NEAR((a * b).determinant(), a.determinant() * b.determinant(), 1e-9);
        ASSERT_NEAR(a.determinant(), turned.determinant(), 1e-11);
        ASSERT_NEAR(a.rotationPart().determinant(), a.determinant3(), 1e-11);
        std::swap_ranges(turned.m, turned.m + 4, turned.m + 8);
        ASSERT_NEAR(a.determinant(), -turned.determinant(), 1e-11);
    }
}

TEST(ZelMatrix4, LeavesOutWhatStandsBelowAZeroOfTheFirstRow) {
    // With only m[5 + i] of the next row, the term of m[0] would be the only one to meet the NaN.
    const ZelMatrix4 holed{0, 2, 0, 0, 3, 0, 0, notANumber, 0, 0, 5, 0, 0, 0, 0, 7};
    EXPECT_TRUE(std::isnan(holed.determinant()));
    const ZelMatrix4 skipped{0,          0, 0, 0, notANumber, notANumber, infinity, notANumber,
                             notANumber, 1, 1, 1, 1,          1,          1,        notANumber};
    EXPECT_EQ(skipped.determinant(), 0);
    const ZelMatrix4 oneTerm{0, 2, 0, 0, 3, infinity, 0, 0, 0, notANumber, 5, 0, 0, 0, 0, 7};
    EXPECT_EQ(oneTerm.determinant(), -2 * 3 * 5 * 7);
}

TEST(ZelMatrix4, MeasuresItsDistanceFromTheIdentityInSquares) {
    EXPECT_EQ(ZelMatrix4().distanceFromIdentity(), 0);
    for (int i = 0; i < 16; ++i)
        EXPECT_EQ(with({}, i, zelIdentityMatrix.m[i] - 3).distanceFromIdentity(), 9) << i;
}
