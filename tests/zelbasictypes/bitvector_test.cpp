// SPDX-License-Identifier: Apache-2.0
// The sizes that the storage of a bit vector takes, when its count is known, and what it does at
// its ends. What it holds after long sequences is the affair of setsmodel_test.cpp.
#include "zelbasictypes/sets/bitvector.h"

#include "component/objects/services/izelprogress.h"
#include "component/objects/services/izelrandom.h"
#include "tests/support/service.h"
#include "tests/zelbasictypes/fakehost.h"
#include "tests/zelbasictypes/settest.h"
#include "zelbasictypes/sets/blockbitvector.h"
#include "zelbasictypes/sets/progbitvectoriter.h"

#include <gtest/gtest.h>

#include <functional>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace {

using settest::bitsOf;

BitVector of(const settest::Bits& bits, std::int32_t maxBit = 0) {
    return settest::holding<BitVector>(bits, maxBit);
}

class Progress : public testsupport::Service<IZelProgress> {
public:
    void setProgress(double fraction) override { told.push_back(fraction); }

    std::vector<double> told;
};

/// Draws the lowest number always.
class LowRandom : public testsupport::Service<IZelRandom> {
public:
    void seed(std::int32_t value) override { seeds.push_back(value); }
    std::int32_t below(std::int32_t) override { return 0; }

    std::vector<std::int32_t> seeds;
};

} // namespace

TEST(BitVector, TakesWholeWordsForWhatWasAskedFor) {
    constexpr std::int32_t whole = 4095 * 32 - 1;
    const std::pair<std::int32_t, std::int32_t> cases[] = {
        {-5, 31}, {0, 31}, {10, 31}, {31, 31}, {32, 63}, {100, 127}, {whole, whole}};
    for (const auto& [asked, got] : cases) {
        BitVector shrunk(whole);
        shrunk.resize(asked);
        EXPECT_EQ(shrunk.maxBit(), got) << asked;
        EXPECT_EQ(BitVector(asked).maxBit(), got) << asked;
    }
}

TEST(BitVector, GrowsByDoublingWithinItsLimits) {
    const std::pair<std::int32_t, std::int32_t> cases[] = {
        {20, 31}, {32, 63}, {100, 127}, {4095 * 32, 6144 * 32 - 1}};
    for (const auto& [bit, room] : cases) {
        BitVector vector(10);
        vector.set(bit);
        EXPECT_EQ(vector.maxBit(), room) << bit;
        EXPECT_EQ(bitsOf(vector), std::vector{bit});
    }
    BitVector large(4096 * 32 - 1);
    large.set(7);
    large.set(4096 * 32);
    EXPECT_EQ(large.maxBit(), 2 * 4096 * 32 - 1);
    EXPECT_EQ(bitsOf(large), (std::vector{7, 4096 * 32}));
}

TEST(BitVector, KnowsItsCountUntilAnOperationCannotTell) {
    struct Case {
        std::string what;
        std::function<void(BitVector&)> change;
        std::int32_t count;
    };
    const BitVector pair = of({3, 7});
    const Case cases[] = {
        {"set", [](BitVector& v) { v.set(200), v.set(3); }, 5},
        {"clear", [](BitVector& v) { v.clear(3), v.clear(9), v.clear(5000); }, 3},
        {"clearAll", [](BitVector& v) { v.clearAll(); }, 0},
        {"setAll", [](BitVector& v) { v.setAll(); }, 127},
        {"setFirst", [](BitVector& v) { v.setFirst(40); }, 40},
        {"growing", [](BitVector& v) { v.resize(1000); }, 4},
        {"shrinking", [](BitVector& v) { v.resize(40); }, -1},
        {"complement", [](BitVector& v) { v.complement(); }, -1},
        {"complementTo", [](BitVector& v) { v.complementTo(5); }, -1},
        {"setRange", [](BitVector& v) { v.setRange(3, 3); }, -1},
        {"clearRange", [](BitVector& v) { v.clearRange(3, 3); }, -1},
        {"a range beyond", [](BitVector& v) { v.setRange(128, 130), v.clearRange(128, 130); }, 4},
        {"and", [](BitVector& v) { v &= of({3}); }, -1},
        {"and with nothing", [](BitVector& v) { v &= BitVector(); }, 0},
        {"or", [](BitVector& v) { v |= of({3}); }, -1},
        {"or with nothing", [](BitVector& v) { v |= BitVector(); }, 4},
        {"xor with nothing", [](BitVector& v) { v ^= BitVector(9000); }, 4},
        {"minus", [](BitVector& v) { v -= of({3}); }, -1},
        {"or with blocks", [](BitVector& v) { v |= BlockBitVector(of({3})); }, -1},
        {"or with no blocks", [](BitVector& v) { v |= BlockBitVector(); }, 4},
        {"assign", [&](BitVector& v) { v.assign(BlockBitVector(pair)); }, 2},
        {"thin", [](BitVector& v) { v.thin(2); }, 2},
        {"shiftUp", [](BitVector& v) { v.shiftUp(9); }, 4},
        {"copyBits", [&](BitVector& v) { v.copyBits(pair); }, 2}};
    for (const Case& each : cases) {
        BitVector vector = of({3, 50, 90, 100});
        each.change(vector);
        EXPECT_EQ(settest::countOf(settest::written(vector, 12)), each.count) << each.what;
        const std::int32_t found = vector.count();
        EXPECT_EQ(found, static_cast<std::int32_t>(bitsOf(vector).size())) << each.what;
    }
}

TEST(BitVector, AnswersForIndicesFarOutside) {
    BitVector vector = of({4, 31});
    EXPECT_TRUE(vector.set(-1));
    EXPECT_TRUE(vector.clear(-1));
    EXPECT_FALSE(vector.test(-1));
    EXPECT_EQ(bitsOf(vector), (std::vector{4, 31}));
    EXPECT_EQ(vector.countAfter(-50), 2);
    EXPECT_EQ(vector.countBelow(-50), 0);
    EXPECT_EQ(vector.nextClear(-9), 0);
    EXPECT_EQ(vector.prevClear(-2), -1);
    EXPECT_EQ(vector.prevClear(1000), 999);
    EXPECT_EQ(vector.prevSet(100000), 31);
    EXPECT_EQ(vector.nextSet(100000), -1);
    EXPECT_EQ(vector.nextClear(BitVector::highestIndex), -1);
}

TEST(BitVector, IsRenumberedByAMapOfAnySize) {
    BitVector vector = of({2, 3, 40});
    BitVector::IndexMap map(70);
    map.set(2, 1);
    map.set(40, 2);
    vector.renumber(map);
    EXPECT_EQ(bitsOf(vector), (std::vector{1, 2}));
    EXPECT_EQ(vector.maxBit(), 31);
    vector.renumber(BitVector::IndexMap(0));
    EXPECT_EQ(bitsOf(vector), (std::vector{1, 2}));
}

TEST(BitVector, IsThinnedByAShareOfNoneToAll) {
    LowRandom random;
    BitVector vector = of({0, 3, 5});
    vector.thinRandomly(7.0, &random);
    EXPECT_EQ(vector.count(), 3);
    vector.thinRandomly(-1.0, &random);
    EXPECT_EQ(vector.count(), 0);
    EXPECT_TRUE(random.seeds.empty());
}

TEST(BitVector, SeedsTheRandomNumbersOfTheHostByItsCount) {
    BitVector vector = of({1, 2, 3, 4});
    vector.thinRandomly(0.5);
    EXPECT_EQ(vector.count(), 4);
    LowRandom random;
    random.addRef();
    fakehost::offer<IZelRandom>(&random);
    vector.thinRandomly(0.5);
    fakehost::offer<IZelRandom>(nullptr);
    EXPECT_EQ(vector.count(), 2);
    EXPECT_EQ(random.seeds, std::vector{420});
}

TEST(BitVector, PrintsEightBitsToALine) {
    std::ostringstream text, full;
    of({0, 2, 4, 6, 8, 10, 12, 14, 99}).print(text);
    EXPECT_EQ(text.str(), "numSet=9\n0 2 4 6 8 10 12 14 \n99 \n");
    of({0, 2, 4, 6, 8, 10, 12, 14}).print(full);
    EXPECT_EQ(full.str(), "numSet=8\n0 2 4 6 8 10 12 14 \n");
    testing::internal::CaptureStdout();
    BitVector().print();
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "numSet=0\n\n\n");
}

TEST(ProgBitVectorIter, TellsTheHostHowFarItIs) {
    Progress progress;
    progress.addRef();
    fakehost::offer<IZelProgress>(&progress);
    BitVector vector(3199);
    vector.setRange(0, 2000);
    {
        ProgBitVectorIter walk(vector, true);
        EXPECT_EQ(walk.current(), -1);
        for (std::int32_t i = 0; i <= 2000; ++i) ASSERT_EQ(walk.next(), i);
        EXPECT_EQ(walk.next(), -1);
        EXPECT_EQ(progress.told.size(), 2001U / 31);
        EXPECT_DOUBLE_EQ(progress.told.front(), 30.0 / 3199);

        const BitVector few = of({0, 5});
        walk.rebind(few);
        EXPECT_EQ(walk.next(), 0);
        EXPECT_EQ(walk.current(), 0);
    }
    EXPECT_DOUBLE_EQ(progress.told.back(), 1.0);
    fakehost::offer<IZelProgress>(nullptr);
    ProgBitVectorIter clear(vector, false);
    EXPECT_EQ(clear.next(), 2001);
}
