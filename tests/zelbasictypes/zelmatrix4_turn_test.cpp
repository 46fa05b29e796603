// SPDX-License-Identifier: Apache-2.0
// Turns as quaternions, axes and angles, there and back.
#include "tests/zelbasictypes/mathtest.h"

namespace {

using namespace mathtest;

ZelMatrix4 fromAngles(const ZelVector3& angles) {
    return ZelMatrix4::rotation(zAxis, angles.z) * ZelMatrix4::rotation(yAxis, angles.y) *
           ZelMatrix4::rotation(xAxis, angles.x);
}

double distance(const ZelQuaternion& a, const ZelQuaternion& b) {
    return std::abs(a.w - b.w) + std::abs(a.x - b.x) + std::abs(a.y - b.y) + std::abs(a.z - b.z);
}

/// Turns that a case for others fits first: half turns that leave a -1 on the diagonal, and a
/// quarter turn back about y.
bool isTakenForAnother(const ZelMatrix4& turn) {
    return std::min({turn.m[0], turn.m[5], turn.m[10]}) < -1 + 1e-9 || turn.m[8] > 1 - 1e-9;
}

} // namespace

TEST(ZelQuaternion, ComesBackFromEveryTurn) {
    for (const ZelQuaternion& q : denseTurns()) {
        const ZelMatrix4 turn = ZelMatrix4::fromQuaternion(q);
        ASSERT_TRUE(turn.isOrthonormal());
        ASSERT_NEAR(turn.determinant3(), 1, 1e-14);
        const ZelQuaternion back = turn.toQuaternion();
        ASSERT_LT(std::min(distance(back, q), distance(back, {-q.w, -q.x, -q.y, -q.z})), 1e-14)
            << turn;
    }
}

TEST(ZelQuaternion, ConvertsNoTurnAndHalfTurnsExactly) {
    EXPECT_EQ(ZelMatrix4().toQuaternion(), (ZelQuaternion{1, 0, 0, 0}));
    EXPECT_EQ(ZelMatrix4::scaling(1, -1, -1).toQuaternion(), (ZelQuaternion{0, 1, 0, 0}));
    EXPECT_EQ(ZelMatrix4::scaling(-1, 1, -1).toQuaternion(), (ZelQuaternion{0, 0, 1, 0}));
    EXPECT_EQ(ZelMatrix4::scaling(-1, -1, 1).toQuaternion(), (ZelQuaternion{0, 0, 0, 1}));
    EXPECT_EQ(ZelMatrix4::rotation(xAxis, pi).toQuaternion().x, 1);
}

TEST(ZelQuaternion, TurnsAsTheAxisDoes) {
    const double angle = 1.25;
    const ZelVector3 axis = ZelVector3{1, -2, 2} * (std::sin(angle / 2) / 3);
    const ZelMatrix4 turn = ZelMatrix4::fromQuaternion(
        {std::cos(angle / 2), axis.x, axis.y, axis.z}, ZelVector3{4, 5, 6});
    EXPECT_LT(mathtest::distance(turn.rotationPart(), ZelMatrix4::rotation({1, -2, 2}, angle)),
              1e-15);
    EXPECT_EQ(turn.translation(), (ZelVector3{4, 5, 6}));
    EXPECT_TRUE(turn.isAffine());
}

TEST(ZelQuaternion, ScalesByTheSquareOfItsLength) {
    const ZelMatrix4 turn = ZelMatrix4::fromQuaternion({2, 4, 6, 8});
    double scale = 0;
    EXPECT_TRUE(turn.isSimilarity(&scale));
    EXPECT_EQ(scale, 120);
    EXPECT_EQ(ZelMatrix4::fromQuaternion({0, 0, 0, 0}), ZelMatrix4::uniformScale(0));
}

TEST(ZelMatrix4Rotation, TurnsCounterClockwiseAboutAnAxisOfAnyLength) {
    const ZelMatrix4 quarter = ZelMatrix4::rotation({0, 0, 5}, pi / 2);
    EXPECT_LT(distance(quarter.transformPoint(xAxis), yAxis), 1e-15);
    for (const ZelVector3& axis : {ZelVector3{1, 2, 3}, ZelVector3{-4, 1, 0}}) {
        EXPECT_LT(distance(ZelMatrix4::rotation(axis, 2).transformPoint(axis), axis), 1e-14);
        EXPECT_LT(distance(ZelMatrix4::rotation(axis, 0.5) * ZelMatrix4::rotation(axis, 1.5),
                           ZelMatrix4::rotation(axis * 7, 2)),
                  1e-14);
    }
    const ZelMatrix4 none = ZelMatrix4::rotation(zelZeroVector, 1);
    EXPECT_EQ(none, ZelMatrix4::uniformScale(std::cos(1)));
}

TEST(ZelMatrix4Rotation, TellsItsAxisAndAngle) {
    const ZelMatrix4 turn = ZelMatrix4::rotation({1, 2, 3}, 1.25);
    EXPECT_NEAR(turn.rotationAngle(), 1.25, 1e-14);
    EXPECT_LT(distance(turn.rotationAxis(), ZelVector3{1, 2, 3}.normalized()), 1e-14);
    // The other way round the opposite axis it is the same turn, with w negative.
    EXPECT_NEAR(ZelMatrix4::rotation({-1, 0, 0}, 3).rotationAngle(), 2 * pi - 3, 1e-14);
    for (const ZelQuaternion& q : denseTurns()) {
        const ZelMatrix4 any = ZelMatrix4::fromQuaternion(q);
        if (any.distanceFromIdentity() < 1e-6 || any.toQuaternion().w > 1) continue;
        const ZelMatrix4 again = ZelMatrix4::rotation(any.rotationAxis(), any.rotationAngle());
        ASSERT_LT(mathtest::distance(again, any), 1e-7) << any;
    }
    EXPECT_EQ(ZelMatrix4().rotationAngle(), 0);
    EXPECT_EQ(ZelMatrix4().rotationAxis(), zelZeroVector);
    EXPECT_TRUE(std::isnan(ZelMatrix4::uniformScale(2).rotationAngle()));
}

TEST(ZelMatrix4Rotation, TakesOneDirectionIntoAnother) {
    Numbers numbers;
    for (int i = 0; i < 1000; ++i) {
        const ZelVector3 from = numbers.vector(), to = numbers.vector();
        const ZelMatrix4 turn = ZelMatrix4::rotationBetween(from, to);
        ASSERT_TRUE(turn.isOrthonormal());
        ASSERT_LT(distance(turn.transformVector(from.normalized()), to.normalized()), 1e-7);
        ASSERT_TRUE(ZelMatrix4::rotationBetween(from, from * 3).isIdentity());
        const ZelMatrix4 back = ZelMatrix4::rotationBetween(from, from * -3);
        ASSERT_LT(distance(back.transformVector(from), from * -1), 1e-6);
        ASSERT_NEAR(back.determinant3(), 1, 1e-7);
    }
}

TEST(ZelMatrix4Rotation, TakesNearlyEqualAndNearlyOppositeDirectionsForExact) {
    const auto between = [](double angle) {
        return ZelMatrix4::rotationBetween(xAxis, {std::cos(angle), std::sin(angle), 0});
    };
    EXPECT_TRUE(between(0.9e-7).isIdentity());
    EXPECT_NEAR(between(1.1e-7).m[4], 1.1e-7, 2e-9);
    EXPECT_LT(distance(between(pi - 0.9e-7).transformVector(xAxis), xAxis * -1), 1e-15);
    EXPECT_NEAR(between(pi - 1.1e-7).m[4], 1.1e-7, 2e-9);
    EXPECT_LT(
        distance(ZelMatrix4::rotationBetween(xAxis, zelZeroVector), ZelMatrix4::uniformScale(0)),
        1e-16);
}

TEST(ZelMatrix4Euler, RebuildsTurnsFromAGridOfAngles) {
    for (int x = -180; x < 180; x += 15)
        for (int y = -180; y < 180; y += 15)
            for (int z = -180; z < 180; z += 15) {
                const ZelMatrix4 turn =
                    fromAngles(ZelVector3{x + 0.0, y + 0.0, z + 0.0} * (pi / 180));
                if (isTakenForAnother(turn)) continue;
                ASSERT_LT(mathtest::distance(fromAngles(turn.toEulerAngles()), turn), 1e-12)
                    << x << ' ' << y << ' ' << z;
            }
}

TEST(ZelMatrix4Euler, RebuildsWithinWhatCleaningTakesAway) {
    Numbers numbers;
    for (int i = 0; i < 100'000; ++i) {
        const ZelVector3 angles{numbers.next() * 1e-4, numbers.next() * 1e-4,
                                i % 2 ? numbers.next() : numbers.next() * 1e-4};
        const ZelMatrix4 turn = fromAngles(angles);
        ASSERT_LT(mathtest::distance(fromAngles(turn.toEulerAngles()), turn), 4e-4) << angles;
    }
}

TEST(ZelMatrix4Euler, TakesTheFirstCaseThatFits) {
    const struct {
        ZelVector3 turned, told;
    } cases[] = {
        {{-2, 0, 0}, {-2, 0, 0}},
        {{0, -2, 0}, {0, -2, 0}},
        {{0, 0, -2}, {0, 0, -2}},
        {{pi, 0, 0}, {pi, 0, 0}},
        {{2, pi / 2, 0.5}, {1.5, pi / 2, 0}},
        {{0.5, -0.6, 0}, {0.5, -0.6, 0}},
        {{0.5, 0, -0.6}, {0.5, 0, -0.6}},
        {{0, -0.5, 0.6}, {0, -0.5, 0.6}},
        {{0.5, 0.6, 0.7}, {0.5, 0.6, 0.7}},
        // A negative y comes out beyond the half turn, and x and z with it.
        {{0.5, -0.6, 0.7}, {0.5 - pi, pi + 0.6, 0.7 - pi}},
        // Nothing looks at the -1.
        {{0, 0, pi}, {pi, 0, 0}},
        {{0.5, pi, 0}, {-0.5, 0, 0}},
        // The quarter turn forward fits, although the turn was one back.
        {{0.5, -pi / 2, 0}, {0.5 - pi, pi / 2, 0}},
    };
    for (const auto& c : cases)
        EXPECT_LT(distance(fromAngles(c.turned).toEulerAngles(), c.told), 1e-12) << c.turned;
    EXPECT_EQ(ZelMatrix4::rotation(xAxis, pi / 2).toEulerAngles(), (ZelVector3{pi / 2, 0, 0}));
    EXPECT_TRUE(std::isnan(with({}, 5, notANumber).toEulerAngles().x));
}

TEST(ZelMatrix4Euler, CleansTheBlockBeforeItLooks) {
    const ZelVector3 angles =
        ZelMatrix4({1, 0.00009, 0}, {-0.00009, 2, 0}, {0, 0, 5}).toEulerAngles();
    EXPECT_EQ(angles, zelZeroVector);
    EXPECT_NEAR(ZelMatrix4({1, -0.00011, 0}, {0.00011, 1, 0}, {0, 0, 1}).toEulerAngles().z, 0.00011,
                1e-12);
}

TEST(ZelMatrix4Clean, DropsSmallEntriesAndBringsColumnsToLengthOne) {
    double block[9] = {3, -0.00009, 0, 4, 0.5, below(0.0001), 0, 0, 0.0001};
    ZelMatrix4::cleanRotation(block);
    const double expected[9] = {3 * (1 / 5.0), 0, 0, 4 * (1 / 5.0), 1, 0, 0, 0, 1};
    for (int i = 0; i < 9; ++i) EXPECT_DOUBLE_EQ(block[i], expected[i]) << i;
}

TEST(ZelMatrix4Clean, LeavesWhatIsCleanAsItIs) {
    double block[9] = {0.6, 0, 0, 0.8, 0, -1, 0, 0, 0}; // a zero column has no direction
    const std::vector<double> before(block, block + 9);
    ZelMatrix4::cleanRotation(block);
    for (int i = 0; i < 9; ++i) EXPECT_EQ(block[i], before[i]) << i;
}
