// SPDX-License-Identifier: Apache-2.0
// Chunked arrays. Built into two programs: with a chunk manager, and without one.
#include "zelbasictypes/memory/array.h"

#include "tests/support/endings.h"
#include "tests/zelbasictypes/fakehost.h"
#include "tests/zelbasictypes/samplemanager.h"
#include "zelbasictypes/memory/bitvectorsplitter.h"
#include "zelbasictypes/memory/memorymanager.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <vector>

namespace {

using Words = ZelMM::Array<unsigned int, BitVectorSplitter>;
constexpr std::uint32_t chunk = BitVectorSplitter::chunkElements;

class ArrayTest : public testing::Test {
protected:
    ArrayTest() {
        sampleManager().reset();
#ifdef WITH_CHUNK_MANAGER
        fakehost::offer<IZelMManager>(&sampleManager());
#endif
        chunksBefore = sampleManager().inUse.size();
    }
    ~ArrayTest() override {
        EXPECT_EQ(sampleManager().inUse.size(), chunksBefore) << "chunks were left behind";
        fakehost::withdrawAll();
    }

    static int missing(const Words& words) {
        int count = 0;
        for (std::uint32_t i = 0; i < words.chunkCount(); ++i) count += !words.chunkAt(i);
        return count;
    }

    std::size_t chunksBefore = 0;
};

/// Cuts after three elements, so that a size may end inside a chunk.
class Odd : public ZelMM::ArrayBase {
public:
    explicit Odd(std::uint32_t size) : ArrayBase(size, 2, 3, 8) {}

    std::uint16_t* elements(std::uint32_t number) {
        return static_cast<std::uint16_t*>(makeChunk(number, false));
    }
    bool has(std::uint32_t number) const { return chunk(number) != nullptr; }
};

} // namespace

TEST_F(ArrayTest, HasWholeChunksAndReadsZeroWhereNothingWasWritten) {
    Words words(1);
    EXPECT_EQ(words.size(), chunk);
    words.resize(chunk + 1, false);
    EXPECT_EQ(words.size(), 2 * chunk);
    EXPECT_EQ(missing(words), 2);
    words.set(chunk, 0);
    EXPECT_EQ(missing(words), 2) << "a zero makes no chunk";
    words.set(chunk, 7);
    EXPECT_EQ(missing(words), 1);
    EXPECT_EQ(words.at(chunk), 7u);
    EXPECT_EQ(words.at(chunk + 1), 0u);
    EXPECT_EQ(words.at(5), 0u);
    EXPECT_EQ(words.at(2 * chunk), 0u);
    EXPECT_EQ(words.at(0xFFFFFFFF), 0u);
    EXPECT_FALSE(words.allChunksPresent());
    words.allocateAll(true);
    EXPECT_TRUE(words.allChunksPresent());
    EXPECT_EQ(words.at(5), 0u);
    EXPECT_EQ(words.at(chunk), 7u);
}

TEST_F(ArrayTest, BeginsEmptyWithOnePlaceInItsTable) {
    Words words(0);
    EXPECT_EQ(words.size(), 0u);
    EXPECT_EQ(words.chunkCount(), 0u);
    EXPECT_FALSE(words.allChunksPresent());
    words.allocateAll(false);
    words.resize(0, true);
    EXPECT_TRUE(words.allChunksPresent());
    words.resize(3 * chunk, false);
    EXPECT_EQ(missing(words), 3);
}

TEST_F(ArrayTest, TakesTheFirstElementsOfAnotherAndGivesUpWhatThatLacks) {
    Words source(4 * chunk);
    source.set(3, 3);
    source.set(2 * chunk, 4);
    source.set(3 * chunk, 5);
    Words target(2 * chunk);
    target.allocateAll(false);
    target.assign(source, 3 * chunk);
    EXPECT_EQ(target.size(), 3 * chunk);
    EXPECT_EQ(target.at(3), 3u);
    EXPECT_EQ(target.chunkAt(1), nullptr);
    EXPECT_EQ(target.at(2 * chunk), 4u);
    target.assign(source, 6 * chunk);
    EXPECT_EQ(target.at(3 * chunk), 5u);
    EXPECT_EQ(missing(target), 3);
}

TEST_F(ArrayTest, ZeroesTheRestOfAChunkThatBecomesPartOfIt) {
    for (const bool keepTail : {true, false}) {
        Odd odd(4);
        std::fill_n(odd.elements(1), 3, std::uint16_t{9});
        odd.resize(8, keepTail);
        EXPECT_EQ(odd.size(), 9u);
        EXPECT_EQ(odd.elements(1)[0], 9);
        EXPECT_EQ(odd.elements(1)[1], keepTail ? 0 : 9);
        EXPECT_EQ(odd.elements(1)[2], keepTail ? 0 : 9);
        EXPECT_FALSE(odd.has(2));
    }
}

TEST_F(ArrayTest, GrowsLessTheLargerItIs) {
    constexpr std::uint32_t mebi = 0x100000; // words of 4 bytes
    const std::uint32_t cases[][3] = {
        {0, 0, 1},
        {1, 0, 2},
        {99, 100, 100},
        {100, 100, 200},
        {mebi, mebi, mebi * 3 / 2},
        {mebi - 1, mebi / 2, mebi},
        {8 * mebi, 8 * mebi, 10 * mebi},
        {64 * mebi, 64 * mebi, 72 * mebi},
    };
    for (const auto& [index, from, expected] : cases) {
        std::uint32_t size = from;
        ZelMM::ArrayBase::growTarget(index, size, 4);
        EXPECT_EQ(size, expected) << index << " " << from;
    }
    std::uint32_t size = 1;
    ZelMM::ArrayBase::growTarget(0x7FFFFFFF, size, 4);
    EXPECT_GT(size, 0x7FFFFFFFu);
}

TEST_F(ArrayTest, HoldsWhatAMapHolds) {
    std::mt19937 random(7);
    Words words(chunk);
    std::map<std::uint32_t, unsigned> model;
    const auto below = [&](std::uint32_t limit) {
        return static_cast<std::uint32_t>(random() % limit);
    };
    for (int turn = 0; turn < 3000; ++turn) {
        const std::uint32_t index = below(30 * chunk);
        switch (below(12)) {
        case 0:
            words.resize(index, below(2) != 0);
            model.erase(model.lower_bound(words.size()), model.end());
            break;
        case 1: {
            const std::uint32_t from = index / chunk * chunk;
            const std::uint32_t to = from + below(3 * chunk);
            words.clearRange(from, to);
            model.erase(model.lower_bound(from), model.lower_bound(to));
            break;
        }
        default:
            if (index >= words.size()) break;
            words.set(index, static_cast<unsigned>(turn + 1));
            model[index] = static_cast<unsigned>(turn + 1);
        }
        ASSERT_EQ(words.size() % chunk, 0u);
    }
    for (std::uint32_t i = 0; i < words.size(); ++i) {
        const auto found = model.find(i);
        ASSERT_EQ(words.at(i), found == model.end() ? 0u : found->second) << i;
    }
}

#ifdef WITH_CHUNK_MANAGER

TEST_F(ArrayTest, AsksTheManagerForChunksOfOneSizeAndFreesAllPlaces) {
    {
        Words words(3 * chunk);
        words.set(chunk, 1);
        EXPECT_EQ(sampleManager().chunkBytes, 8192);
        EXPECT_EQ(sampleManager().inUse.size(), chunksBefore + 1);
    }
    EXPECT_EQ(sampleManager().nullsFreed, 2);
}

TEST_F(ArrayTest, AsksForMemoryBackWhenAChunkIsRefused) {
    Words words(chunk);
    sampleManager().refusals = 2;
    sampleManager().left = 2;
    words.set(1, 1);
    EXPECT_EQ(words.at(1), 1u);
    EXPECT_EQ(sampleManager().asked, 2);
    sampleManager().refusals = 1;
    words.resize(2 * chunk, false);
    EXPECT_EXIT(words.set(chunk, 1), testsupport::endedWithMinusOne, "run out of memory");
    sampleManager().refusals = 0;
}

#else

TEST_F(ArrayTest, DoesWithoutAManager) { EXPECT_EQ(zelMemoryManager(), nullptr); }

#endif
