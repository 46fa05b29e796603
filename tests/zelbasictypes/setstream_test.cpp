// SPDX-License-Identifier: Apache-2.0
// The stream form of both kinds of sets: byte for byte, there and back across the kinds, and from
// streams that lie or end early, which get no more memory than a little and what they really bring.
#include "platform/memory.h"
#include "tests/zelbasictypes/settest.h"
#include "zelbasictypes/memory/heapseam.h"
#include "zelbasictypes/memory/memorymanager.h"
#include "zelbasictypes/sets/blockbitvector.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

namespace {

using settest::Bits, settest::bitsOf, settest::holding;
using settest::countOf, settest::readInto, settest::written;

constexpr std::uint32_t wordForm = 0, listForm = 1, unknown = 0xFFFFFFFF;

Bytes numbers(const std::vector<std::uint32_t>& values) {
    Bytes result(values.size() * 4);
    for (std::size_t i = 0; i < values.size(); ++i)
        bigendian::store(result.data() + 4 * i, values[i]);
    return result;
}

Bytes stream(std::uint32_t words, std::uint32_t maxBit, std::uint32_t form, std::uint32_t count,
             const std::vector<std::uint32_t>& body = {}) {
    return numbers({0x315E97D6, words, maxBit, form, count}) + numbers(body);
}

std::uint32_t formOf(const Bytes& from) { return bigendian::load<std::uint32_t>(&from[12]); }

/// All that is asked of the heap while it stands, but for zeros, which are free until they are
/// touched.
class HeapMeter {
public:
    HeapMeter() {
        bytes = 0;
        zelSetHeap({[](std::size_t count) {
                        bytes += count;
                        return std::malloc(count);
                    },
                    [](void* block, std::size_t count) {
                        bytes += count;
                        return std::realloc(block, count);
                    },
                    nullptr, nullptr, [](std::size_t count) { return std::calloc(1, count); }});
    }
    ~HeapMeter() { zelSetHeap({}); }
    HeapMeter(const HeapMeter&) = delete;
    HeapMeter& operator=(const HeapMeter&) = delete;

    static inline std::size_t bytes;
};

std::int32_t chunkUnits() { return zelMemoryManager() ? zelMemoryManager()->coreNow() : 0; }

/// A set takes these bits from the stream with little memory, and is as good as any other then: it
/// holds them, changes, and comes back from a stream.
template <class Set> void expectRead(const Bytes& from, const Bits& bits) {
    auto set = holding<Set>({8});
    const std::int32_t unitsBefore = chunkUnits();
    {
        const HeapMeter meter;
        EXPECT_TRUE(readInto(set, from));
        EXPECT_LE(HeapMeter::bytes, 1U << 19);
    }
    EXPECT_LE(chunkUnits(), unitsBefore + 2);
    EXPECT_EQ(bitsOf(set), bits);
    EXPECT_EQ(set.count(), static_cast<std::int32_t>(bits.size()));
    set.set(70000);
    EXPECT_TRUE(set.test(70000));
    Set again;
    EXPECT_TRUE(readInto(again, written(set)));
    EXPECT_TRUE(again == set);
}

} // namespace

TEST(SetStream, WritesTheGoldenBytes) {
    EXPECT_EQ(written(holding<BitVector>({1, 5})), bytes(R"(
        31 5E 97 D6  00 00 00 01  00 00 00 1F  # identity, words, highest bit
        00 00 00 00  00 00 00 02               # word form, set bits
        00 00 00 22)"));
    EXPECT_EQ(written(holding<BitVector>({0, 31, 1055}, 1055)), bytes(R"(
        31 5E 97 D6  00 00 00 21  00 00 04 1F
        00 00 00 01  00 00 00 03               # list form
        00 00 00 00  00 00 00 1F  00 00 04 1F)"));
    EXPECT_EQ(written(BlockBitVector()), bytes(R"(
        31 5E 97 D6  00 00 04 00  00 00 7F FF
        00 00 00 01  00 00 00 00)"));
    EXPECT_EQ(written(holding<BlockBitVector>({7, 0x8001})), bytes(R"(
        31 5E 97 D6  00 00 08 00  00 00 FF FF
        00 00 00 01  00 00 00 02
        00 00 00 07  00 00 80 01)"));
}

TEST(SetStream, WritesBlocksThatAreEmptyFullAndStoredAsWords) {
    BlockBitVector blocks;
    blocks.setRange(32768, 65535);
    blocks.set(2 * 32768 + 33);
    std::vector<std::uint32_t> body(3 * 1024);
    std::fill(body.begin() + 1024, body.begin() + 2048, ~0U);
    body[2049] = 2;
    EXPECT_EQ(written(blocks, 12), stream(3072, 98303, wordForm, unknown, body));
    EXPECT_EQ(countOf(written(blocks)), 32769);
}

TEST(SetStream, ChoosesTheFormByRoomCountAndVersion) {
    struct Case {
        std::int32_t words, count;
        std::uint32_t version, form;
    };
    const Case cases[] = {{33, 15, 0, listForm},  {33, 16, 0, wordForm},  {33, 15, 1, wordForm},
                          {33, 15, 12, wordForm}, {33, 15, 13, listForm}, {32, 0, 0, wordForm},
                          {34, 16, 0, listForm},  {34, 17, 0, wordForm}};
    for (const Case& each : cases) {
        BitVector vector(each.words * 32 - 1);
        vector.setRange(1, each.count);
        const Bytes bytes = written(vector, each.version);
        EXPECT_EQ(formOf(bytes), each.form)
            << each.words << " " << each.count << " " << each.version;
        EXPECT_EQ(bytes.size(), 20U + 4U * std::size_t(each.form ? each.count : each.words));
    }
}

TEST(SetStream, LeavesTheCountOpenAfterWordsOnly) {
    BitVector vector;
    ASSERT_TRUE(readInto(vector, stream(2, 63, wordForm, 99, {3, 4})));
    EXPECT_EQ(countOf(written(vector, 12)), -1);
    EXPECT_EQ(vector.count(), 3);
    ASSERT_TRUE(readInto(vector, stream(40, 1279, listForm, 2, {3, 4})));
    EXPECT_EQ(countOf(written(vector, 12)), 2);
}

TEST(SetStream, RefusesAnotherTagAndKeepsAnotherVersion) {
    const Bytes newer = numbers({0x315E97D7, 1, 31, wordForm, 1, 2});
    const auto check = [&](auto& set) {
        for (const Bytes& wrong :
             {numbers({0x315E98D6, 1, 31, 0, 1, 2}), bytes("31 5E 97"), Bytes()})
            EXPECT_FALSE(readInto(set, wrong));
        EXPECT_EQ(bitsOf(set), Bits{4});
        EXPECT_TRUE(readInto(set, newer));
        EXPECT_EQ(bitsOf(set), Bits{1});
    };
    auto blocks = holding<BlockBitVector>({4});
    check(blocks);
    auto vector = holding<BitVector>({4});
    check(vector);
    vector.count();
    EXPECT_EQ(written(vector), newer);
}

TEST(SetStream, TakesFromLyingStreamsWhatIsThere) {
    struct Case {
        std::string what;
        Bytes bytes;
        Bits bits;
    };
    const Case cases[] = {
        {"no words", stream(0, 31, wordForm, 0), {}},
        {"words beyond all indices", stream(0xFFFFFFFF, 0x7FFFFFFF, wordForm, unknown, {7}), {}},
        {"a great many words", stream(1 << 26, 0x7FFFFFFF, wordForm, unknown, {0, 6}), {33, 34}},
        {"a long list", stream(1 << 26, 0x7FFFFFFF, listForm, 0x7FFFFFFF, {5, 60000}), {5, 60000}},
        {"a distant index", stream(1 << 26, 0x7FFFFFFF, listForm, 1, {5, 9}), {5}},
        {"a negative highest bit", stream(1, unknown, wordForm, 0, {7}), {}},
        {"a highest bit of 0", stream(1, 0, wordForm, 0, {7}), {}},
        {"a highest bit short of the words", stream(2, 31, wordForm, 0, {1, 1}), {0, 32}},
        {"a form of its own", stream(2, 63, 2, 1, {3}), {}},
        {"indices out of range", stream(2, 63, listForm, 4, {64, unknown, 0x7FFFFFFF, 3}), {3}},
        {"the lowest number in front", stream(2, 63, listForm, 3, {0x80000000, 3, 5}), {3, 5}},
        {"a negative count", stream(2, 63, listForm, 0x80000000, {3}), {}},
        {"one index twice", stream(2, 63, listForm, 2, {3, 3}), {3}}};
    for (const Case& each : cases) {
        SCOPED_TRACE(each.what);
        expectRead<BitVector>(each.bytes, each.bits);
        expectRead<BlockBitVector>(each.bytes, each.bits);
    }
}

TEST(SetStream, GivesAListTheRoomToldForWhatItHolds) {
    [[maybe_unused]] constexpr std::uint64_t pagesOfAQuarter = 64 << 20;
    const Bytes bytes = stream(1 << 26, 0x7FFFFFFF, listForm, 1, {5});
    BitVector set;
    platform::WorkingSet before, behind;
    ASSERT_TRUE(platform::workingSet(before));
    ASSERT_TRUE(readInto(set, bytes));
    ASSERT_TRUE(platform::workingSet(behind));
#ifndef __SANITIZE_THREAD__ // whose allocator clears what the system gives cleared
    EXPECT_LT(behind.current, before.current + pagesOfAQuarter);
#endif
    EXPECT_EQ(set.maxBit(), BitVector::highestIndex);
    EXPECT_TRUE(set.setRange(0x7FFFFFF0, BitVector::highestIndex));
    EXPECT_EQ(set.count(), 17);
}

TEST(SetStream, TakesTheWholeElementsOfAStreamThatIsCut) {
    const std::pair<Bytes, Bits> cases[] = {
        {stream(40, 1279, listForm, 4, {0, 40, 300, 1279}), {0, 40, 300, 1279}},
        {stream(3, 95, wordForm, 3, {1, 1 << 8, 1U << 31}), {0, 40, 95}}};
    for (const auto& [whole, all] : cases) {
        for (std::size_t length = 4; length <= whole.size(); ++length) {
            SCOPED_TRACE(testing::Message() << all.back() << ", " << length << " bytes");
            const Bytes cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
            const Bits there(all.begin(), all.begin() + (length < 20 ? 0 : (length - 20) / 4));
            expectRead<BitVector>(cut, there);
            expectRead<BlockBitVector>(cut, there);
        }
    }
}
