// SPDX-License-Identifier: Apache-2.0
// The bit vector against a plain set, the sizes that its storage takes, when its count is known,
// and what it does at its ends.
#include "zelbasictypes/sets/bitvector.h"

#include "component/objects/queryinterface.h"
#include "component/objects/services/izelprogress.h"
#include "component/objects/services/izelrandom.h"
#include "tests/zelbasictypes/fakehost.h"
#include "zelbasictypes/data/bigendian.h"
#include "zelbasictypes/data/binmemory.h"
#include "zelbasictypes/sets/blockbitvector.h"
#include "zelbasictypes/sets/progbitvectoriter.h"

#include <gtest/gtest.h>

#include <functional>
#include <random>
#include <set>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace {

BitVector of(const std::vector<std::int32_t>& bits, std::int32_t maxBit = 0) {
    BitVector made(maxBit);
    for (const std::int32_t bit : bits) made.set(bit);
    return made;
}

std::vector<std::int32_t> bitsOf(const BitVector& vector) {
    std::vector<std::int32_t> bits;
    for (std::int32_t i = vector.nextSet(-1); i >= 0; i = vector.nextSet(i)) bits.push_back(i);
    return bits;
}

/// What the vector's cache holds, as it stands in a stream of words.
std::int32_t knownCount(const BitVector& vector) {
    BinOutputMemory out;
    out.setVersion(12);
    vector.write(out);
    out.flushBuffer();
    return bigendian::load<std::int32_t>(&out.bytes()[16]);
}

class Progress : public IZelProgress {
public:
    void qi(const char* name, void** result, std::int32_t) override {
        zelAnswerQuery<IZelProgress>(this, className(), name, result);
    }
    const char* className() override { return "Progress"; }
    void setProgress(double fraction) override { told.push_back(fraction); }

    std::vector<double> told;
};

/// Draws the lowest number always.
class LowRandom : public IZelRandom {
public:
    void qi(const char* name, void** result, std::int32_t) override {
        zelAnswerQuery<IZelRandom>(this, className(), name, result);
    }
    const char* className() override { return "LowRandom"; }
    void seed(std::int32_t value) override { seeds.push_back(value); }
    std::int32_t below(std::int32_t limit) override {
        limits.push_back(limit);
        return 0;
    }

    std::vector<std::int32_t> seeds, limits;
};

} // namespace

TEST(BitVector, TakesWholeWordsForWhatWasAskedFor) {
    const std::pair<std::int32_t, std::int32_t> cases[] = {{-5, 31},
                                                           {0, 31},
                                                           {10, 31},
                                                           {31, 31},
                                                           {32, 63},
                                                           {100, 127},
                                                           {4095 * 32 - 1, 4095 * 32 - 1}};
    for (const auto& [asked, got] : cases) EXPECT_EQ(BitVector(asked).maxBit(), got) << asked;
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

TEST(BitVector, CutsBehindTheWordOfItsNewEnd) {
    BitVector vector = of({0, 31, 32, 63, 64, 500});
    vector.resize(40);
    EXPECT_EQ(vector.maxBit(), 63);
    EXPECT_EQ(vector.count(), 4);
    EXPECT_FALSE(vector.test(64));
    vector.resize(-1);
    EXPECT_EQ(bitsOf(vector), (std::vector{0, 31}));
}

TEST(BitVector, FollowsAPlainSetThroughRandomChanges) {
    std::mt19937 random(20);
    BitVector vector;
    std::set<std::int32_t> model;
    for (int step = 0; step < 3000; ++step) {
        const auto bit = static_cast<std::int32_t>(random() % 700);
        switch (random() % 40) {
        case 0:
            vector.clearAll();
            model.clear();
            break;
        case 1:
            vector.resize(bit);
            model.erase(model.upper_bound(vector.maxBit()), model.end());
            break;
        default:
            if (random() % 3) {
                EXPECT_TRUE(vector.set(bit));
                model.insert(bit);
            } else {
                EXPECT_TRUE(vector.clear(bit));
                model.erase(bit);
            }
        }
        ASSERT_EQ(vector.count(), static_cast<std::int32_t>(model.size()));
        ASSERT_EQ(vector.recount(), static_cast<std::int32_t>(model.size()));
        ASSERT_EQ(vector.test(bit), model.count(bit) == 1);
        const auto above = model.upper_bound(bit);
        ASSERT_EQ(vector.nextSet(bit), above == model.end() ? -1 : *above);
    }
    EXPECT_EQ(bitsOf(vector), std::vector<std::int32_t>(model.begin(), model.end()));
}

TEST(BitVector, WalksFromBitZeroToTheLastRoom) {
    EXPECT_EQ(bitsOf(of({0, 1, 31, 32, 95})), (std::vector{0, 1, 31, 32, 95}));
    EXPECT_EQ(of({1}).nextSet(-1), 1);
    EXPECT_EQ(of({95}).nextSet(95), -1);
    EXPECT_EQ(of({95}).nextSet(100000), -1);
    EXPECT_EQ(BitVector(1000).nextSet(-1), -1);
}

TEST(BitVector, ComparesBitsWhateverTheRoom) {
    EXPECT_TRUE(of({3, 40}) == of({3, 40}, 5000));
    EXPECT_TRUE(of({3, 40}, 5000) == of({3, 40}));
    EXPECT_FALSE(of({3, 40}) == of({3, 41}));
    EXPECT_FALSE(of({3}) == of({3, 4000}));
    BitVector cut = of({3, 4000});
    cut.resize(31);
    EXPECT_TRUE(cut == of({3}));
}

TEST(BitVector, CopiesAreDeepAndKeepTheRoomOfTheTarget) {
    BitVector source = of({2, 70});
    BitVector copy(source);
    copy.set(3);
    EXPECT_FALSE(source.test(3));

    BitVector wide = of({900});
    const std::int32_t room = wide.maxBit();
    wide = source;
    EXPECT_EQ(wide.maxBit(), room);
    EXPECT_EQ(bitsOf(wide), (std::vector{2, 70}));
    BitVector narrow;
    narrow = of({1000});
    EXPECT_EQ(bitsOf(narrow), std::vector{1000});
    EXPECT_EQ(narrow.count(), 1);

    BitVector taken(std::move(narrow));
    EXPECT_EQ(bitsOf(taken), std::vector{1000});
}

TEST(BitVector, KnowsItsCountUntilAnOperationCannotTell) {
    const struct {
        std::string what;
        std::function<void(BitVector&)> change;
        std::int32_t count;
    } cases[] = {
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
        {"assign",
         [](BitVector& v) {
             v.assign(BlockBitVector(of({3, 7})));
         },
         2},
        {"thin", [](BitVector& v) { v.thin(2); }, 2},
        {"shiftUp", [](BitVector& v) { v.shiftUp(9); }, 4},
        {"copyBits",
         [](BitVector& v) {
             v.copyBits(of({3, 7}));
         },
         2}};
    for (const auto& each : cases) {
        BitVector vector = of({3, 50, 90, 100});
        each.change(vector);
        EXPECT_EQ(knownCount(vector), each.count) << each.what;
        const std::int32_t found = vector.count();
        EXPECT_EQ(found, static_cast<std::int32_t>(bitsOf(vector).size())) << each.what;
    }
}

TEST(BitVector, SetsAndClearsRangesWithinItsRoom) {
    BitVector word(10);
    EXPECT_TRUE(word.setRange(5, 1000));
    EXPECT_EQ(word.count(), 27);
    EXPECT_EQ(word.maxBit(), 31);
    EXPECT_FALSE(word.setRange(32, 40));
    EXPECT_TRUE(word.clearRange(-4, 30));
    EXPECT_EQ(bitsOf(word), std::vector{31});
    EXPECT_TRUE(word.setRange(9, 8));
    EXPECT_EQ(bitsOf(word), std::vector{31});
    word.setAll();
    EXPECT_EQ(word.count(), 31);
    EXPECT_FALSE(word.test(0));
}

TEST(BitVector, SearchesDownFromBeyondItsEnd) {
    const BitVector word = of({4, 31});
    EXPECT_EQ(word.prevClear(1000), 999);
    EXPECT_EQ(word.prevClear(32), 30);
    EXPECT_EQ(word.prevClear(33), 32);
    EXPECT_EQ(word.prevSet(1000), 31);
    EXPECT_EQ(word.prevSet(31), 4);
    EXPECT_EQ(word.prevSet(0), -1);
    EXPECT_EQ(word.prevClear(-2), -1);
    EXPECT_EQ(word.nextClear(-9), 0);
    EXPECT_EQ(word.nextClear(31), -1);
    EXPECT_EQ(word.nextClear(BitVector::highestIndex), -1);
}

TEST(BitVector, LeavesNegativeIndicesAlone) {
    BitVector vector = of({4});
    EXPECT_TRUE(vector.set(-1));
    EXPECT_TRUE(vector.clear(-1));
    EXPECT_FALSE(vector.test(-1));
    EXPECT_EQ(bitsOf(vector), std::vector{4});
    EXPECT_EQ(vector.countAfter(-50), 1);
    EXPECT_EQ(vector.countBelow(-50), 0);
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

TEST(BitVector, DrawsOnceForEachBitWhenThinnedRandomly) {
    LowRandom random;
    BitVector vector = of({0, 3, 5, 60, 61});
    vector.thinRandomly(0.5, &random);
    EXPECT_EQ(bitsOf(vector), (std::vector{0, 3, 5}));
    EXPECT_EQ(random.limits, (std::vector{5, 4, 3, 2, 1}));
    EXPECT_TRUE(random.seeds.empty());
    vector.thinRandomly(7.0, &random);
    EXPECT_EQ(vector.count(), 3);
    EXPECT_EQ(random.limits.size(), 8U);
    vector.thinRandomly(-1.0, &random);
    EXPECT_EQ(vector.count(), 0);
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
