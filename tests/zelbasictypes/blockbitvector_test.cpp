// SPDX-License-Identifier: Apache-2.0
// Which blocks have storage: single bits, ranges, the algebra in all its cases, the free list. What
// sets hold after long sequences is the affair of setsmodel_test.cpp.
#include "zelbasictypes/sets/blockbitvector.h"

#include "tests/zelbasictypes/settest.h"
#include "zelbasictypes/memory/heapseam.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <set>
#include <string>
#include <thread>
#include <vector>

namespace {

using settest::bitsOf;

constexpr std::int32_t blockBits = BlockBitVector::blockBits;
constexpr std::size_t blockBytes = 4096;

std::set<void*> heapBlocks;

/// A free list that keeps nothing, on a heap that knows which blocks are out.
class BlockStorage : public testing::Test {
protected:
    BlockStorage() {
        BlockBitVector::destroyBlockFreeList();
        BlockBitVector::setBlockFreeListLimit(0);
        heapBlocks.clear();
        zelSetHeap({[](std::size_t bytes) {
                        void* block = std::malloc(bytes);
                        if (bytes == blockBytes) heapBlocks.insert(block);
                        return block;
                    },
                    nullptr,
                    [](void* block) {
                        heapBlocks.erase(block);
                        std::free(block);
                    },
                    nullptr});
    }
    ~BlockStorage() override {
        BlockBitVector::destroyBlockFreeList();
        zelSetHeap({});
    }

    static std::size_t stored() { return heapBlocks.size(); }
};

/// Empty, part of a block, or full: the first block of a vector whose second one has a bit.
BlockBitVector inState(char state) {
    BlockBitVector vector;
    if (state == 'F') vector.setRange(0, blockBits - 1);
    if (state == 'P') vector.setRange(100, 20000);
    vector.set(blockBits + 5);
    return vector;
}

} // namespace

TEST_F(BlockStorage, IsOnlyForBlocksThatAreNeitherEmptyNorFull) {
    BlockBitVector vector;
    vector.setRange(0, blockBits - 1);
    EXPECT_EQ(stored(), 0U);
    EXPECT_EQ(vector.count(), blockBits);
    EXPECT_EQ(vector.nextSet(20), 21);
    EXPECT_FALSE(vector.set(9));
    EXPECT_TRUE(vector.clear(9));
    EXPECT_EQ(stored(), 1U);
    EXPECT_EQ(vector.count(), blockBits - 1);
    EXPECT_FALSE(vector.clear(9));
    EXPECT_TRUE(vector.set(9));
    vector.compact();
    EXPECT_EQ(stored(), 0U);
    EXPECT_TRUE(vector.test(9));

    vector.setRange(2 * blockBits - 10, 5 * blockBits + 10);
    EXPECT_EQ(stored(), 2U);
    EXPECT_EQ(vector.count(), blockBits + 10 + 3 * blockBits + 11);
    vector.clearRange(40, 4 * blockBits - 1);
    EXPECT_EQ(stored(), 2U);
    EXPECT_EQ(vector.count(), 40 + blockBits + 11);
    vector.clearRange(0, BitVector::highestIndex);
    vector.compact();
    EXPECT_EQ(stored(), 0U);
    EXPECT_EQ(vector.count(), 0);
}

TEST_F(BlockStorage, FollowsTheAlgebraInAllItsCases) {
    // A row a state of this block, a column a state of the other one: empty, part, full.
    const struct {
        char operation;
        std::string stored;
    } tables[] = {
        {'&', "000 011 010"}, {'|', "010 110 000"}, {'^', "010 111 010"}, {'-', "000 110 010"}};
    const std::string states = "EPF";
    for (const auto& [operation, table] : tables) {
        for (std::size_t row = 0; row < 3; ++row) {
            for (std::size_t column = 0; column < 3; ++column) {
                SCOPED_TRACE(testing::Message() << states[row] << operation << states[column]);
                BlockBitVector byBlocks = inState(states[row]), byBits = byBlocks;
                BitVector expected(byBlocks);
                const BlockBitVector other = inState(states[column]);
                const std::size_t before = stored();
                settest::combine(byBlocks, other, operation);
                const std::size_t after = stored();
                settest::combine(byBits, BitVector(other), operation);
                settest::combine(expected, BitVector(other), operation);
                const auto storedBefore = std::size_t{states[row] == 'P'};
                EXPECT_EQ(after + storedBefore - before,
                          std::size_t(table[row * 4 + column] - '0'));
                EXPECT_EQ(bitsOf(byBlocks), bitsOf(expected));
                EXPECT_TRUE(byBlocks == byBits);
            }
        }
    }
}

TEST_F(BlockStorage, MovesWithTheVector) {
    BlockBitVector vector;
    vector.setRange(5, 2 * blockBits);
    const std::size_t before = stored();
    BlockBitVector taken(std::move(vector));
    EXPECT_EQ(stored(), before);
    EXPECT_EQ(vector.count(), 0);
    EXPECT_TRUE(vector.set(3));
    EXPECT_EQ(bitsOf(vector), std::vector{3});
    taken.clearAll();
    EXPECT_EQ(stored(), 1U);
}

TEST_F(BlockStorage, IsKeptOnTheFreeListUpToItsLimit) {
    BlockBitVector::setBlockFreeListLimit(2);
    std::uint32_t* blocks[] = {BlockBitVector::allocateBlock(0), BlockBitVector::allocateBlock(0),
                               BlockBitVector::allocateBlock(0)};
    for (std::uint32_t*& block : blocks) {
        BlockBitVector::releaseBlock(block);
        EXPECT_EQ(block, nullptr);
        BlockBitVector::releaseBlock(block);
    }
    EXPECT_EQ(stored(), 2U);
    std::uint32_t* again = BlockBitVector::allocateBlock(1);
    EXPECT_EQ(stored(), 2U);
    BlockBitVector::setBlockFreeListLimit(0);
    EXPECT_EQ(stored(), 1U);
    BlockBitVector::releaseBlock(again);
    EXPECT_EQ(stored(), 0U);
}

TEST_F(BlockStorage, OfTheFreeListNeedsNoMoreWhateverItsLimit) {
    std::uint32_t* block = BlockBitVector::allocateBlock(0);
    for (const std::int32_t limit : {0x7FFFFFFF, 1, -5}) {
        zelSetHeap({[](std::size_t) -> void* { std::abort(); }, nullptr,
                    [](void* freed) { heapBlocks.erase(freed), std::free(freed); }, nullptr});
        BlockBitVector::setBlockFreeListLimit(limit);
        BlockBitVector::releaseBlock(block);
        EXPECT_EQ(stored(), limit > 0 ? 1U : 0U);
        if (limit > 0) block = BlockBitVector::allocateBlock(0);
    }
}

TEST_F(BlockStorage, GoesWithARangeThatIsClearedWithOrWithoutBits) {
    BlockBitVector vector;
    for (std::int32_t b = 0; b < 5; ++b) vector.set(b * blockBits + 7);
    for (std::int32_t b = 1; b < 4; ++b) vector.clear(b * blockBits + 7);
    EXPECT_EQ(stored(), 5U);
    vector.clearRange(8, 4 * blockBits + 6);
    EXPECT_EQ(stored(), 2U);
    EXPECT_EQ(bitsOf(vector), (std::vector{7, 4 * blockBits + 7}));
}

TEST_F(BlockStorage, HoldsWhatItWasAskedFor) {
    BitVector::LargeWords array(4096);
    array.set(1, 7);
    const std::uint32_t source[] = {1, 2, 3};
    const struct {
        std::uint32_t* block;
        std::vector<std::uint32_t> start;
    } cases[] = {{BlockBitVector::allocateBlock(2), {~0U, ~0U, 0}},
                 {BlockBitVector::allocateBlockFrom(source, 3), {1, 2, 3, 0}},
                 {BlockBitVector::allocateBlockFrom(array, 1, 2), {7, 0, 0}},
                 {BlockBitVector::allocateBlockFrom(array, 2048, 1024), {0, 0}}};
    for (auto [block, start] : cases) {
        std::vector<std::uint32_t> expected = start;
        expected.resize(BlockBitVector::blockWords);
        EXPECT_EQ(std::vector(block, block + BlockBitVector::blockWords), expected);
        std::fill_n(block, BlockBitVector::blockWords, 0xEEEEEEEEU);
        BlockBitVector::releaseBlock(block);
        BlockBitVector::setBlockFreeListLimit(1);
    }
}

TEST(BlockBitVector, SharesItsFreeListBetweenThreads) {
    BlockBitVector::setBlockFreeListLimit(3);
    std::vector<std::thread> threads;
    std::int32_t counts[4] = {};
    for (std::int32_t& count : counts) {
        threads.emplace_back([&count] {
            for (std::int32_t turn = 0; turn < 50; ++turn) {
                BlockBitVector vector;
                for (std::int32_t b = 0; b < 6; ++b) vector.set(b * blockBits + turn);
                count += vector.count();
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    for (const std::int32_t count : counts) EXPECT_EQ(count, 300);
    BlockBitVector::setBlockFreeListLimit(512);
}

TEST(BlockBitVector, AnswersForIndicesOutside) {
    auto vector = settest::holding<BlockBitVector>({0, 2 * blockBits - 1});
    EXPECT_EQ(vector.nextSet(-7), 0);
    EXPECT_EQ(vector.nextSet(BitVector::highestIndex), -1);
    EXPECT_EQ(vector.prevSet(BitVector::highestIndex), 2 * blockBits - 1);
    EXPECT_EQ(vector.prevSet(-3), -1);
    EXPECT_FALSE(vector.set(-1));
    EXPECT_FALSE(vector.clear(-1));
    EXPECT_FALSE(vector.test(-1));
}

TEST(BlockBitVector, ReachesTheHighestIndex) {
    BlockBitVector vector;
    EXPECT_TRUE(vector.set(BitVector::highestIndex));
    BlockBitVectorIter walk(vector);
    walk.begin();
    EXPECT_EQ(walk.position(), BitVector::highestIndex);
    walk.next();
    EXPECT_TRUE(walk.atEnd());
    EXPECT_EQ(vector.nextSet(BitVector::highestIndex - 1), BitVector::highestIndex);
    vector.setRange(BitVector::highestIndex - blockBits, BitVector::highestIndex);
    EXPECT_EQ(vector.count(), blockBits + 1);
    vector.clearRange(BitVector::highestIndex, BitVector::highestIndex);
    EXPECT_EQ(vector.prevSet(BitVector::highestIndex), BitVector::highestIndex - 1);
}
