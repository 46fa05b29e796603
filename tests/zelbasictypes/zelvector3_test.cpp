// SPDX-License-Identifier: Apache-2.0
// Lengths, angles and parts of vectors, each tolerance from both sides.
#include "zelbasictypes/math/zelvector3.h"

#include "tests/zelbasictypes/mathtest.h"

#include <sstream>

namespace {

using namespace mathtest;

static_assert(ZelVector3{1, 2, 3}.project({0, 2, 0}) == ZelVector3{0, 2, 0});
static_assert(ZelVector3::isPerpendicular({1, 0, 0}, {0, 1, 0}, 0));

ZelVector3 turned(double angle) { return {std::cos(angle), std::sin(angle), 0}; }

} // namespace

TEST(ZelVector3, NormalizesAlongItsDirection) {
    Numbers numbers;
    for (int i = 0; i < 10'000; ++i) {
        const ZelVector3 v = numbers.vector();
        const ZelVector3 n = v.normalized();
        ASSERT_NEAR(n.length(), 1, 1e-15);
        ASSERT_LT(cross(v, n).length(), 5e-8 * v.length());
        ASSERT_GT(dot(v, n), 0);
    }
}

TEST(ZelVector3, NormalizesAnAxisOfAnyLengthExactly) {
    for (const double length : {3.0, 0.1, 1e-150, 1e150, 1e200, infinity}) {
        ZelVector3 v{0, -length, 0};
        EXPECT_TRUE(v.normalize());
        EXPECT_EQ(v, (ZelVector3{0, -1, 0})) << length;
        EXPECT_EQ((ZelVector3{0, 0, length}).normalized(), zAxis) << length;
    }
    EXPECT_FALSE(std::signbit((ZelVector3{-0.0, 1, 0}).normalized().x));
}

TEST(ZelVector3, DropsComponentsThatAreTooSmallBesideTheOthers) {
    EXPECT_EQ((ZelVector3{-1, 1e-9, -1e-9}).normalized(), (ZelVector3{-1, 0, 0}));
}

TEST(ZelVector3, DoesNotNormalizeWithoutALength) {
    ZelVector3 zero;
    EXPECT_FALSE(zero.normalize());
    EXPECT_EQ(zero, zelZeroVector);
    ZelVector3 tiny{1e-200, 0, 0};
    EXPECT_FALSE(tiny.normalize());
    EXPECT_EQ(tiny.x, 1e-200);
    ZelVector3 broken{2, notANumber, 0};
    EXPECT_FALSE(broken.normalize());
    EXPECT_EQ(broken.x, 2);
}

TEST(ZelVector3, SplitsIntoThePartAlongAnotherAndTheRest) {
    Numbers numbers;
    for (int i = 0; i < 1000; ++i) {
        const ZelVector3 v = numbers.vector();
        const ZelVector3 onto = numbers.vector();
        ASSERT_LT(distance(v.project(onto) + v.reject(onto), v), 1e-14);
        ASSERT_LT(cross(v.project(onto), onto).length(), 1e-13);
        ASSERT_NEAR(dot(v.reject(onto), onto), 0, 1e-13);
    }
}

TEST(ZelVector3, HasNoPartAlongWhatIsTooShort) {
    const ZelVector3 v{1, 2, 3};
    const double shortest = 0x1p-26;
    EXPECT_EQ(v.project({shortest, 0, 0}), zelZeroVector);
    EXPECT_EQ(v.reject({shortest, 0, 0}), v);
    EXPECT_LT(distance(v.project({above(shortest), 0, 0}), xAxis), 1e-15);
    EXPECT_EQ(v.project({notANumber, 0, 0}), zelZeroVector);
}

TEST(ZelVector3, MeasuresItsLengthAgainstBounds) {
    ZelVector3 v;
    v.add(3, 4, 0);
    EXPECT_EQ(v.lengthSquared(), 25);
    EXPECT_FALSE(v.isShorterThan(5));
    EXPECT_TRUE(v.isShorterThan(above(5)));
    EXPECT_TRUE(v.isShorterThan(-6));
    for (const double length : {0.5, 1.5}) {
        const ZelVector3 end{0, length, 0};
        EXPECT_TRUE(end.isUnit(0.5));
        EXPECT_FALSE(end.isUnit(0.4999)) << length;
    }
    EXPECT_FALSE((ZelVector3{notANumber, 0, 0}).isUnit(0.5));
    EXPECT_FALSE((ZelVector3{notANumber, 0, 0}).isShorterThan(5));
}

TEST(ZelVector3, TellsDirectionsApartAtTheTolerance) {
    const double t = 0.01;
    const double angle = std::asin(t);
    for (const double length : {1e-3, 7.0})
        for (const double half : {0.0, pi}) {
            const ZelVector3 near = turned(half + angle * 0.9999) * length;
            const ZelVector3 far = turned(half + angle * 1.0001) * length;
            EXPECT_TRUE(ZelVector3::isParallel(xAxis, near, t));
            EXPECT_FALSE(ZelVector3::isParallel(xAxis, far, t));
            EXPECT_TRUE(ZelVector3::isPerpendicular(yAxis, near, t));
            EXPECT_FALSE(ZelVector3::isPerpendicular(yAxis, far, t));
        }
    EXPECT_TRUE(ZelVector3::isParallel(xAxis, zelZeroVector, 0));
    EXPECT_TRUE(ZelVector3::isPerpendicular(xAxis, zelZeroVector, 0));
    EXPECT_FALSE(ZelVector3::isParallel(xAxis, {notANumber, 0, 0}, 1));
    EXPECT_FALSE(ZelVector3::isPerpendicular(xAxis, {notANumber, 0, 0}, 1));
}

TEST(ZelVector3, ComparesAlignmentWithACosine) {
    const ZelVector3 a{2, 0, 0};
    for (const double half : {0.0, pi}) {
        const ZelVector3 b = turned(half + std::acos(0.75)) * 5;
        EXPECT_TRUE(ZelVector3::isAlignedAbove(a, b, 0.7499, 1));
        EXPECT_FALSE(ZelVector3::isAlignedAbove(a, b, 0.7501, 1));
        EXPECT_TRUE(ZelVector3::isAlignedBelow(a, b, 0.2499, 1));
        EXPECT_FALSE(ZelVector3::isAlignedBelow(a, b, 0.2501, 1));
    }
    EXPECT_FALSE(ZelVector3::isAlignedAbove(a, a, 1, 2));
    EXPECT_FALSE(ZelVector3::isAlignedBelow(a, a, 0, 2));
}

TEST(ZelVector3, TakesWhatIsTooShortForAligned) {
    const ZelVector3 a{2, 0, 0};
    EXPECT_FALSE(ZelVector3::isAlignedAbove(a, yAxis, 0.5, 1));
    EXPECT_TRUE(ZelVector3::isAlignedAbove(a, yAxis, 0.5, above(1)));
    EXPECT_TRUE(ZelVector3::isAlignedAbove(yAxis, a, 0.5, above(1)));
    EXPECT_FALSE(ZelVector3::isAlignedBelow(a, xAxis, 0.5, 1));
    EXPECT_TRUE(ZelVector3::isAlignedBelow(a, xAxis, 0.5, above(1)));
}

TEST(ZelVector3, FindsThePerpendicularOfEachOrderOfItsComponents) {
    const struct {
        ZelVector3 v, direction;
    } cases[] = {
        {{1, 0, 0}, {0, 1, 0}},    {{0, 0, 2}, {1, 0, 0}},    {{0, 5, 0}, {0, 0, 1}},
        {{2, 3, 1}, {-1, 0, 2}},   {{1, -3, 2}, {0, 2, 3}},   {{1, 2, 3}, {3, 0, -1}},
        {{3, 2, 1}, {-1, 0, 3}},   {{-3, 1, 2}, {1, 3, 0}},   {{2, 1, 3}, {0, 3, -1}},
        {{1, 1, 1}, {1, 0, -1}},   {{2, 2, 1}, {-1, 0, 2}},   {{1, 2, 2}, {1, 0, -0.5}},
        {{2, 1, 2}, {0, 1, -0.5}}, {{2, 1, 1}, {-0.5, 1, 0}}, {{1, 2, 1}, {0, -0.5, 1}},
    };
    for (const auto& c : cases) {
        const ZelVector3 found = c.v.perpendicular();
        EXPECT_LT(distance(found, c.direction.normalized()), 1e-15) << c.v;
        EXPECT_NEAR(dot(found, c.v), 0, 1e-15) << c.v;
    }
}

TEST(ZelVector3, CompletesADirectionToARightHandedFrame) {
    Numbers numbers;
    for (int i = 0; i < 1000; ++i) {
        const ZelVector3 d = numbers.vector();
        ZelVector3 second, first;
        ASSERT_TRUE(ZelVector3::perpendicularPair(d, second, first));
        ASSERT_LT(distance(cross(second, first), d.normalized()), 1e-7);
        ASSERT_NEAR(dot(second, first), 0, 1e-7);
        ASSERT_TRUE(second.isUnit(1e-14) && first.isUnit(1e-14));
    }
}

TEST(ZelVector3, TakesTheReferenceOfAFrameByTheFirstComponent) {
    ZelVector3 second, first;
    ZelVector3::perpendicularPair({0, 0, 4}, second, first);
    EXPECT_EQ(second, xAxis);
    EXPECT_EQ(first, yAxis);
    ZelVector3::perpendicularPair({0.79, 0, std::sqrt(1 - 0.79 * 0.79)}, second, first);
    EXPECT_EQ(first, yAxis);
    ZelVector3::perpendicularPair({0.81, 0, std::sqrt(1 - 0.81 * 0.81)}, second, first);
    EXPECT_EQ(second, yAxis);
}

TEST(ZelVector3, MakesNoFrameOfZero) {
    ZelVector3 second = xAxis, first = yAxis;
    EXPECT_FALSE(ZelVector3::perpendicularPair(zelZeroVector, second, first));
    EXPECT_EQ(second, xAxis);
    EXPECT_EQ(first, yAxis);
    ZelVector3 d{0, 0, 2};
    EXPECT_TRUE(ZelVector3::perpendicularPair(d, first, d));
    EXPECT_EQ(d, yAxis);
}

TEST(ZelVector3, ReadsWhatItWrites) {
    std::stringstream text;
    text.precision(17);
    const ZelVector3 v{0.1, -2, 1e100};
    text << v;
    EXPECT_EQ(text.str(), "(0.10000000000000001,-2,1e+100)");
    ZelVector3 read;
    text >> read;
    EXPECT_EQ(read, v);
    std::istringstream spaced(" ( 1 , 2\t,\n3 ) rest");
    EXPECT_TRUE(spaced >> read);
    EXPECT_EQ(read, (ZelVector3{1, 2, 3}));
}

TEST(ZelVector3, FailsOnTextThatIsNoVector) {
    for (const char* text :
         {"", "1,2,3", "(1;2,3)", "(1,2 3)", "(1,2,3", "(1,2,3]", "(a,2,3)", "(1,,3)", "(1,2,)"}) {
        std::istringstream in(text);
        ZelVector3 v{7, 8, 9};
        in >> v;
        EXPECT_TRUE(in.fail()) << text;
        EXPECT_FALSE(in.bad()) << text;
        EXPECT_EQ(v, (ZelVector3{7, 8, 9})) << text;
    }
}

TEST(ZelVector3, LeavesTheRestOfATextBehindAFault) {
    std::istringstream in("[1,2,3)");
    ZelVector3 v;
    in >> v;
    EXPECT_EQ(in.rdstate(), std::ios::failbit);
    in.clear();
    std::string rest;
    in >> rest;
    EXPECT_EQ(rest, "1,2,3)");
    in.clear(std::ios::badbit);
    in >> v;
    EXPECT_EQ(in.rdstate(), std::ios::badbit);
}
