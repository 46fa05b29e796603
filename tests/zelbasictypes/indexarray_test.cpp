// SPDX-License-Identifier: Apache-2.0
// Index arrays against plain vectors: their room, their streams, and the forest.
#include "zelbasictypes/sets/indexarray.h"

#include "tests/zelbasictypes/settest.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <numeric>
#include <random>
#include <vector>

namespace {

using settest::readInto;
using Entries = std::map<std::uint32_t, std::uint32_t>;

constexpr std::uint32_t chunk = 2048;

Entries entriesOf(const IndexArray& array) {
    Entries found;
    for (IndexArrayIter i(array); !i.atEnd(); i.next())
        found[static_cast<std::uint32_t>(i.index())] = i.value();
    return found;
}

void fill(IndexArray& array, const Entries& entries) {
    for (const auto& [i, value] : entries) {
        array.extendFor(i);
        array.set(i, value);
    }
}

} // namespace

TEST(IndexArray, IsWalkedPastMissingChunks) {
    const Entries entries = {{0, 3}, {1, 1}, {chunk - 1, 9}, {5 * chunk, 0xFFFFFFFF}};
    IndexArray array;
    fill(array, entries);
    EXPECT_EQ(entriesOf(array), entries);
    EXPECT_GE(array.size(), 6 * chunk);
    EXPECT_TRUE(IndexArrayIter(IndexArray()).atEnd());
}

TEST(IndexArray, TakesTheRoomThatItIsToldToTake) {
    struct Case {
        std::uint32_t elements;
        std::int32_t capacity;
        std::uint32_t chunks;
    };
    for (const Case& each : {Case{3000, -1, 2},
                             {0, -1, 0},
                             {3000, 0, 4},
                             {5 * chunk, 0, 5},
                             {3000, 9000, 4},
                             {4 * chunk + 1, 9 * chunk, 9}}) {
        IndexArray array(4 * chunk);
        fill(array, {{1, 1}, {4 * chunk - 1, 7}});
        array.setSize(each.elements, each.capacity, true);
        EXPECT_EQ(array.size(), each.chunks * chunk) << each.elements << " " << each.capacity;
        EXPECT_EQ(array.at(1), each.chunks > 0 ? 1U : 0U);
        EXPECT_EQ(array.at(4 * chunk - 1), each.chunks >= 4 ? 7U : 0U);
    }
}

TEST(IndexArray, ComparesEntriesWhateverTheRoom) {
    IndexArray a, b(9 * chunk);
    fill(a, {{3, 4}, {3000, 5}});
    fill(b, {{3, 4}, {3000, 5}});
    b.set(8 * chunk, 1);
    EXPECT_FALSE(a == b);
    EXPECT_FALSE(b == a);
    b.set(8 * chunk, 0);
    EXPECT_TRUE(a == b);
    EXPECT_TRUE(b == a);
    b.set(3000, 6);
    EXPECT_FALSE(a == b);
}

TEST(IndexArray, MapsElementsToThemselves) {
    IndexArray some, all(chunk), ofBits;
    some.setIdentity(3, 5);
    EXPECT_EQ(entriesOf(some), (Entries{{3, 3}, {4, 4}, {5, 5}}));
    all.setIdentity(chunk - 2, -1);
    EXPECT_EQ(entriesOf(all), (Entries{{chunk - 2, chunk - 2}, {chunk - 1, chunk - 1}}));
    BitVector bits;
    bits.set(0);
    bits.set(70000);
    ofBits.setIdentityOn(bits);
    EXPECT_EQ(entriesOf(ofBits), (Entries{{70000, 70000}}));
}

TEST(IndexArray, InvertsWithTheLastOneWinning) {
    IndexArray array, target;
    fill(array, {{1, 5}, {2, 9000}, {3, 5}, {4, 0xFFFFFFFF}});
    fill(target, {{5, 8}, {6, 8}});
    array.invertInto(target);
    EXPECT_EQ(entriesOf(target), (Entries{{5, 3}, {6, 8}, {9000, 2}}));
}

TEST(IndexArray, IsRenumberedInPlaceInAscendingOrder) {
    struct Case {
        Entries entries, map, result;
        std::uint32_t chunks;
    };
    const Case cases[] = {{{{1, 10}, {2, 20}, {3, 30}}, {{2, 1}, {3, 2}}, {{1, 20}, {2, 30}}, 1},
                          {{{1, 10}}, {{1, 2}, {2, 5000}}, {{5000, 10}}, 3},
                          {{{1, 10}, {6000, 60}}, {{1, 1}}, {{1, 10}}, 1},
                          {{{1, 10}}, {{1, 3}, {2, 4}}, {}, 1},
                          {{{1, 10}}, {}, {{1, 10}}, 1}};
    for (const Case& each : cases) {
        IndexArray array, map;
        fill(array, each.entries);
        fill(map, each.map);
        array.renumber(map);
        EXPECT_EQ(array.size(), each.chunks * chunk);
        EXPECT_EQ(entriesOf(array), each.result);
    }
}

TEST(IndexArray, MayBeRenumberedByItself) {
    IndexArray array;
    fill(array, {{1, 2}, {5, 6}});
    array.renumber(array);
    EXPECT_EQ(entriesOf(array), (Entries{{2, 2}, {6, 6}}));
}

TEST(IndexArray, UnitesSetsUnderTheirSmallestElement) {
    constexpr std::uint32_t count = 5000;
    IndexArray forest(10);
    forest.setIdentity(0, count - 1);
    std::vector<std::uint32_t> roots(count);
    std::iota(roots.begin(), roots.end(), 0U);
    std::mt19937 random(8);
    for (int step = 0; step < 400; ++step) {
        const auto a = static_cast<std::uint32_t>(random() % count);
        const auto b = static_cast<std::uint32_t>(random() % count);
        const auto [smaller, larger] = std::minmax(roots[a], roots[b]);
        ASSERT_EQ(forest.unite(a, b), smaller);
        std::replace(roots.begin(), roots.end(), std::uint32_t{larger}, std::uint32_t{smaller});
    }
    for (std::uint32_t i = 0; i < count; ++i) ASSERT_EQ(forest.findRoot(i), roots[i]) << i;
    for (std::uint32_t i = 0; i < count; ++i) ASSERT_EQ(forest.at(i), roots[i]) << i;
}

TEST(IndexArray, FindsNoRootWhereLinksLeadToNothing) {
    IndexArray forest;
    fill(forest, {{7, 3}, {3, 2}});
    EXPECT_EQ(forest.findRoot(7), 0U);
    EXPECT_EQ(entriesOf(forest), (Entries{{3, 2}}));
    EXPECT_EQ(forest.findRoot(9000), 0U);
    EXPECT_GT(forest.size(), 9000U);
    EXPECT_EQ(forest.findRoot(0xFFFFF801), 0U);
    EXPECT_EQ(entriesOf(forest), (Entries{{3, 2}}));
}

TEST(IndexArrayStream, WritesTheGoldenBytes) {
    IndexArray array;
    fill(array, {{1, 5}, {3, 0x01020304}, {2 * chunk, 1}});
    EXPECT_EQ(writtenBy([&](BinOutput& out) { return array.write(out, 4); }), bytes(R"(
        00 00 00 04
        00 00 00 00  00 00 00 05  00 00 00 00  01 02 03 04)"));
    EXPECT_EQ(writtenBy([&](BinOutput& out) { return array.write(out, 0); }), bytes("00 00 00 00"));
    const Bytes all = writtenBy([&](BinOutput& out) { return array.write(out); });
    EXPECT_EQ(bigendian::load<std::uint32_t>(all.data()), array.size());
    EXPECT_EQ(all.size(), 4 + 4 * std::size_t{array.size()});
    EXPECT_EQ(all, writtenBy([&](BinOutput& out) { return array.write(out, 0x7FFFFFFF); }));
    IndexArray again;
    fill(again, {{4, 4}, {9 * chunk, 4}});
    EXPECT_TRUE(readInto(again, all));
    EXPECT_TRUE(again == array);
    EXPECT_EQ(again.size(), array.size());
    EXPECT_FALSE(again.allChunksPresent());
}

TEST(IndexArrayStream, TakesWhatIsThereOfAStreamThatLiesOrIsCut) {
    IndexArray array;
    fill(array, {{2, 9}});
    EXPECT_FALSE(readInto(array, bytes("FF FF FF FF 00 00 00 01")));
    EXPECT_FALSE(readInto(array, bytes("00 00 00")));
    EXPECT_EQ(entriesOf(array), (Entries{{2, 9}}));

    const Bytes lying = bytes("7F FF FF FF  00 00 00 00  00 00 00 06  00 00 00 07");
    for (std::size_t length = 4; length <= lying.size(); ++length) {
        SCOPED_TRACE(length);
        EXPECT_TRUE(readInto(array, Bytes(lying.begin(), lying.begin() + std::ptrdiff_t(length))));
        EXPECT_EQ(array.size(), chunk);
        EXPECT_EQ(array.at(1), length >= 12 ? 6U : 0U);
        EXPECT_EQ(array.at(2), length >= 16 ? 7U : 0U);
        EXPECT_EQ(array.at(3), 0U);
    }
}

TEST(IndexArrayStream, MovesRangesChunkByChunkAndTellsHowFarItIs) {
    IndexArray array(100 * chunk), again(chunk);
    for (std::uint32_t i = 0; i < array.size(); i += 999) array.set(i, i + 1);
    const std::int32_t first = chunk - 2, last = 99 * chunk;
    std::vector<float> shares;
    const auto hear = [&](float share) {
        shares.push_back(share);
        return true;
    };
    const Bytes bytes =
        writtenBy([&](BinOutput& out) { return array.writeRange(out, first, last, hear); });
    EXPECT_EQ(bytes.size(), 4 * std::size_t(last - first + 1));
    EXPECT_EQ(shares.size(), 50U);
    EXPECT_FLOAT_EQ(shares.front(), 0.02F);
    EXPECT_EQ(shares.back(), 1.0F);

    BinInputMemory in(bytes);
    EXPECT_TRUE(again.readRange(in, first, last));
    EXPECT_GT(again.size(), std::uint32_t(last));
    for (std::int32_t i = 0; i <= last; ++i)
        ASSERT_EQ(again.at(std::uint32_t(i)), i < first ? 0 : array.at(std::uint32_t(i))) << i;
}

TEST(IndexArrayStream, MakesMissingChunksWhenItWritesARange) {
    IndexArray array(3 * chunk);
    const Bytes bytes = writtenBy([&](BinOutput& out) { return array.writeRange(out, 0, 6143); });
    EXPECT_EQ(bytes, Bytes(4 * 6144));
    EXPECT_TRUE(array.allChunksPresent());
}

TEST(IndexArrayStream, StopsWhenItIsToldToAndWhenTheDataEnds) {
    IndexArray array(4 * chunk), again;
    array.setIdentity(0, -1);
    int told = 0;
    const auto stop = [&](float) { return ++told < 2; };
    BinOutputMemory out;
    EXPECT_FALSE(array.writeRange(out, 0, 4 * chunk - 1, stop));
    out.flushBuffer();
    EXPECT_EQ(out.bytes().size(), 2 * 4 * chunk);

    BinInputMemory in(out.bytes());
    EXPECT_FALSE(again.readRange(in, 0, 4 * chunk - 1));
    EXPECT_EQ(again.at(2 * chunk - 1), 2 * chunk - 1);
    EXPECT_EQ(again.at(2 * chunk), 0U);
}
