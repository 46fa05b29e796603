// SPDX-License-Identifier: Apache-2.0
// The conventions of the matrix: which side a point stands on, where the translation is.
#include "zelbasictypes/math/zelmatrix4.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

/// A quarter turn about z, then a shift.
constexpr ZelMatrix4 turnAndShift{{0, -1, 0, 10, 1, 0, 0, 20, 0, 0, 1, 30, 0, 0, 0, 1}};

} // namespace

TEST(ZelMatrix4, IsTheIdentityAtFirst) {
    const ZelVector3 p{1, -2, 3};
    EXPECT_EQ(ZelMatrix4().transformPoint(p), p);
    EXPECT_EQ(ZelMatrix4() * turnAndShift, turnAndShift);
    EXPECT_EQ(turnAndShift * ZelMatrix4(), turnAndShift);
}

TEST(ZelMatrix4, TransformsPointsAsColumnsAndVectorsWithoutTheShift) {
    EXPECT_EQ(turnAndShift.transformPoint({1, 2, 3}), (ZelVector3{8, 21, 33}));
    EXPECT_EQ(turnAndShift.transformVector({1, 2, 3}), (ZelVector3{-2, 1, 3}));
    EXPECT_EQ(ZelMatrix4::fromTranslation({1, 2, 3}).transformPoint({1, 1, 1}),
              (ZelVector3{2, 3, 4}));
    EXPECT_EQ(ZelMatrix4::scaling(2, 3, 4).transformPoint({1, 1, 1}), (ZelVector3{2, 3, 4}));
    EXPECT_EQ(ZelMatrix4::uniformScale(0.5).transformVector({2, 4, 6}), (ZelVector3{1, 2, 3}));
}

TEST(ZelMatrix4, AppliesTheRightFactorFirst) {
    const ZelMatrix4 scale = ZelMatrix4::scaling(2, 3, 4);
    const ZelVector3 p{1, 2, 3};
    EXPECT_EQ((turnAndShift * scale).transformPoint(p),
              turnAndShift.transformPoint(scale.transformPoint(p)));
    EXPECT_EQ((scale * turnAndShift).transformPoint(p),
              scale.transformPoint(turnAndShift.transformPoint(p)));
}

TEST(ZelMatrix4, DividesByTheFourthRow) {
    ZelMatrix4 projective;
    projective.m[14] = 1;
    EXPECT_EQ(projective.transformPoint({2, 4, 1}), (ZelVector3{1, 2, 0.5}));
    EXPECT_TRUE(std::isinf(projective.transformPoint({2, 4, -1}).x));
}

TEST(ZelMatrix4, IsNotEqualWithANumberMissing) {
    ZelMatrix4 broken;
    broken.m[5] = std::numeric_limits<double>::quiet_NaN();
    const ZelMatrix4 same = broken;
    EXPECT_FALSE(broken == same);
}
