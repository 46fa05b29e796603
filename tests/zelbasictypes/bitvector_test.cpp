// SPDX-License-Identifier: Apache-2.0
// The bit vector against a plain set, and the sizes that its storage takes.
#include "zelbasictypes/sets/bitvector.h"

#include <gtest/gtest.h>

#include <random>
#include <set>
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
