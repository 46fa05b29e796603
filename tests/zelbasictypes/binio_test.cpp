// SPDX-License-Identifier: Apache-2.0
// Typed streams: what stands in them byte by byte, and when they ask their device.
#include "zelbasictypes/data/binio.h"

#include "tests/zelbasictypes/assertioncounter.h"
#include "tests/zelbasictypes/bytes.h"
#include "tests/zelbasictypes/streams.h"

#include <gtest/gtest.h>

#include <limits>
#include <numeric>
#include <sstream>

namespace {

/// Writes `values`, compares the bytes, reads them back and writes them again, each time on streams
/// that cut at other places.
template <class T> void expectBytes(const std::vector<T>& values, const Bytes& expected) {
    const auto all = [&](BinOutput& out) { return out.write(values.data(), values.size()); };
    EXPECT_EQ(writtenBy(all), expected);
    for (const std::uint64_t portion : {1u, 3u, 1000000u}) {
        PortionInput input(expected, portion);
        std::vector<T> read(values.size());
        ASSERT_TRUE(input.read(read.data(), read.size())) << portion;
        BinOutputMemory again;
        for (const T& value : read) ASSERT_TRUE(again.write(&value, 1));
        again.flushBuffer();
        EXPECT_EQ(again.bytes(), expected) << portion;
        T more{};
        EXPECT_FALSE(input.read(&more, 1));
        EXPECT_TRUE(input.good());
    }
}

TEST(BinIO, EveryTypeStandsMostSignificantByteFirst) {
    expectBytes<char>({'a', '\0', '\xFF'}, bytes("61 00 FF"));
    expectBytes<signed char>({1, -1, -128}, bytes("01 FF 80"));
    expectBytes<unsigned char>({1, 255}, bytes("01 FF"));
    expectBytes<std::int16_t>({1, -2, -32768}, bytes("00 01  FF FE  80 00"));
    expectBytes<std::uint16_t>({1, 0xABCD}, bytes("00 01  AB CD"));
    expectBytes<char16_t>({u'a', 0xD812}, bytes("00 61  D8 12"));
    expectBytes<std::int32_t>({1, -2}, bytes("00 00 00 01  FF FF FF FE"));
    expectBytes<std::uint32_t>({0x89ABCDEF}, bytes("89 AB CD EF"));
    expectBytes<std::int64_t>({-2}, bytes("FF FF FF FF FF FF FF FE"));
    expectBytes<std::uint64_t>({0x0123456789ABCDEF}, bytes("01 23 45 67 89 AB CD EF"));
    expectBytes<float>({1, -2.5f}, bytes("3F 80 00 00  C0 20 00 00"));
    expectBytes<double>({1, -0.1}, bytes("3F F0 00 00 00 00 00 00  BF B9 99 99 99 99 99 9A"));
}

template <class T> Bytes written(T value, unsigned width) {
    return writtenBy([&](BinOutput& out) { return out.write(&value, width, 1); });
}

template <class T> T readWide(const Bytes& from, unsigned width) {
    BinInputMemory input(from);
    T value{};
    EXPECT_TRUE(input.read(&value, width, 1));
    EXPECT_EQ(input.tell(), static_cast<std::int64_t>(width));
    return value;
}

TEST(BinIO, WidthsCutAndCarryTheSign) {
    EXPECT_EQ(written<std::int32_t>(-2, 8), bytes("FF FF FF FF FF FF FF FE"));
    EXPECT_EQ(written<std::uint32_t>(0xFFFFFFFE, 8), bytes("00 00 00 00 FF FF FF FE"));
    EXPECT_EQ(written<std::uint64_t>(0x0123456789ABCDEF, 3), bytes("AB CD EF"));
    EXPECT_EQ(written<std::int16_t>(-2, 1), bytes("FE"));
    EXPECT_EQ(readWide<std::int32_t>(bytes("FE"), 1), -2);
    EXPECT_EQ(readWide<std::int32_t>(bytes("7F FE"), 2), 0x7FFE);
    EXPECT_EQ(readWide<std::uint32_t>(bytes("FE"), 1), 0xFEu);
    EXPECT_EQ(readWide<std::int16_t>(bytes("12 34 56 78 9A"), 5), 0x789A);
    EXPECT_EQ(readWide<std::uint64_t>(bytes("80 00 01"), 3), 0x800001u);
    EXPECT_EQ(readWide<std::int64_t>(bytes("80 00 01"), 3), -0x7FFFFF);

    PortionInput input(bytes("01 02 03 04 05 06 07 08 09 0A"), 100);
    std::int32_t value = 0;
    EXPECT_FALSE(input.read(&value, 0, 1));
    EXPECT_FALSE(input.read(&value, 9, 1));
    EXPECT_EQ(input.tell(), 0);
}

TEST(BinIO, ReadsAskForWholeStagesAndKeepWhatArrived) {
    const Bytes source(3000, 7);
    PortionInput input(source, 100000);
    std::vector<std::int32_t> values(700);
    EXPECT_TRUE(input.read(values.data(), values.size()));
    EXPECT_EQ(input.asked(), (std::vector<std::uint64_t>{1024, 1024, 752}));

    PortionInput cut(bytes("00 00 00 01  00 00 00 02  00 00"), 100);
    std::int32_t three[3] = {9, 9, 9};
    EXPECT_FALSE(cut.read(three, 3));
    EXPECT_EQ(three[0], 1);
    EXPECT_EQ(three[1], 2);
    EXPECT_EQ(three[2], 9);
}

TEST(BinIO, ReadsStagedAndStraight) {
    Bytes source(2000);
    std::iota(source.begin(), source.end(), std::uint8_t{0});
    PortionInput input(source, 100000);
    const std::uint8_t* staged = nullptr;
    EXPECT_EQ(input.readStaged(&staged, 5000), 1024u);
    EXPECT_EQ(Bytes(staged, staged + 1024), Bytes(source.begin(), source.begin() + 1024));
    Bytes rest(3000);
    EXPECT_EQ(input.readBytes(rest.data(), rest.size()), 976u);
    EXPECT_EQ(input.asked(), (std::vector<std::uint64_t>{1024, 3000}));
    EXPECT_EQ(rest[0], source[1024]);
}

TEST(BinIO, PeekingLeavesThePosition) {
    const Bytes source = bytes("FF FF FF FE 00 00 00");
    PortionInput input(source, 3);
    EXPECT_EQ(input.peekInt(), -2);
    EXPECT_EQ(input.tell(), 0);
    input.seek(4);
    EXPECT_EQ(input.peekInt(), -1);
}

TEST(BinIO, TypedWritesKeepHeadroomAndBytesDont) {
    ScriptedOutput output;
    const Bytes some(1024, 1);
    output.writeBytes(some.data(), 768);
    const std::int32_t number = 5;
    EXPECT_TRUE(output.write(&number, 1)); // 256 free: no flush
    EXPECT_TRUE(output.writes.empty());
    EXPECT_EQ(output.tell(), 772);
    EXPECT_TRUE(output.write(&number, 1)); // 252 free
    EXPECT_EQ(output.writes, (std::vector<std::uint64_t>{772}));
    EXPECT_TRUE(output.writeBytes(some.data(), 1019));
    EXPECT_EQ(output.writes, (std::vector<std::uint64_t>{772}));
    EXPECT_TRUE(output.writeBytes(some.data(), 1));
    EXPECT_EQ(output.writes, (std::vector<std::uint64_t>{772, 1024}));

    ScriptedOutput whole;
    EXPECT_TRUE(whole.writeBytes(some.data(), 1024));
    EXPECT_EQ(whole.writes, (std::vector<std::uint64_t>{1024}));
    EXPECT_EQ(whole.tell(), 1024);

    ScriptedOutput numbers;
    const std::vector<double> values(400, 1.5);
    EXPECT_TRUE(numbers.write(&number, 1));
    EXPECT_TRUE(numbers.write(values.data(), values.size()));
    EXPECT_EQ(numbers.writes, (std::vector<std::uint64_t>{1020, 1024, 1024}));
    EXPECT_EQ(numbers.tell(), 4 + 3200);
}

TEST(BinIO, CallersFormatIntoTheStage) {
    ScriptedOutput output;
    const Bytes some(800, 1);
    output.writeBytes(some.data(), some.size());
    std::uint8_t* room = nullptr;
    EXPECT_EQ(output.reserve(&room, 10), 10u); // 224 were free
    EXPECT_EQ(output.writes, (std::vector<std::uint64_t>{800}));
    room[0] = 0xAB;
    EXPECT_TRUE(output.commit(1));
    EXPECT_EQ(output.tell(), 801);
    EXPECT_EQ(output.reserve(&room, 5000), 1023u);
    EXPECT_TRUE(output.commit(1023));
    EXPECT_EQ(output.writes, (std::vector<std::uint64_t>{800, 1024}));
    EXPECT_EQ(output.bytes[800], 0xAB);
}

TEST(BinIO, ARefusingDeviceShowsWhereItIsAsked) {
    ScriptedOutput output;
    output.refuses = true;
    const std::vector<double> values(128, 1);
    EXPECT_FALSE(output.write(values.data(), 128));
    EXPECT_EQ(output.tell(), 0); // lost
    EXPECT_TRUE(output.write(values.data(), 100));
    EXPECT_TRUE(output.write(values.data(), 1)); // the flush for headroom goes unseen
    EXPECT_FALSE(output.flushBuffer());
    EXPECT_TRUE(output.flushBuffer());
    const Bytes some(1024, 1);
    EXPECT_FALSE(output.writeBytes(some.data(), 1024));
    std::uint8_t* room = nullptr;
    output.reserve(&room, 1024);
    EXPECT_FALSE(output.commit(1024));
    std::uint8_t byte = 1;
    output.write(&byte, 1);
    EXPECT_EQ(output.readBack(&byte, 1), 0u);
    output.write(&byte, 1);
    EXPECT_FALSE(output.close());
}

TEST(BinIO, SeekingAndReadingBackLoseNothing) {
    BinOutputMemory output;
    const std::int32_t numbers[] = {1, 2, 3};
    output.write(numbers, 3);
    EXPECT_EQ(output.tell(), 12);
    EXPECT_TRUE(output.seek(4, true));
    EXPECT_EQ(output.bytes().size(), 12u);
    const std::int32_t other = 0x01020304;
    output.write(&other, 1);
    Bytes back(8);
    EXPECT_EQ(output.readBack(back.data(), 8), 4u);
    EXPECT_EQ(output.readBack(nullptr, 0), 0u);
    EXPECT_TRUE(output.seek(-12, false));
    EXPECT_EQ(output.readBack(back.data(), 8), 8u);
    EXPECT_EQ(back, bytes("00 00 00 01 01 02 03 04"));
}

/// Turns bits over by the position of each byte, so that any cut of a file can be undone.
class Mask : public BinIO_Scrambler {
public:
    explicit Mask(int* alive) : alive_(alive) { ++*alive_; }
    ~Mask() override { --*alive_; }
    void scramble(void* buffer, std::int64_t position, std::uint64_t count) override {
        auto* byte = static_cast<std::uint8_t*>(buffer);
        for (std::uint64_t i = 0; i < count; ++i) {
            byte[i] = static_cast<std::uint8_t>(byte[i] ^ (0x5A + position + std::int64_t(i)));
        }
    }
    void unscramble(void* buffer, std::int64_t position, std::uint64_t count) override {
        scramble(buffer, position, count);
    }

private:
    int* alive_;
};

TEST(BinIO, AScramblerSeesEveryByteOnItsWay) {
    int alive = 0;
    setScrambler(new Mask(&alive));
    std::vector<double> values(1000);
    std::iota(values.begin(), values.end(), 0.5);
    BinOutputMemory output;
    const std::uint8_t first = 0x77;
    output.write(&first, 1);
    output.write(values.data(), values.size());
    output.flushBuffer();
    const Bytes stored = output.bytes();
    EXPECT_EQ(stored[0], 0x77 ^ 0x5A);
    output.seek(0);
    std::uint8_t back[2] = {};
    EXPECT_EQ(output.readBack(back, 2), 2u);
    EXPECT_EQ(back[0], 0x77);
    EXPECT_EQ(back[1], 0x3F);

    for (const std::uint64_t portion : {1u, 7u, 100000u}) {
        PortionInput input(stored, portion);
        std::uint8_t byte = 0;
        std::vector<double> read(values.size());
        EXPECT_TRUE(input.read(&byte, 1));
        EXPECT_TRUE(input.read(read.data(), read.size()));
        EXPECT_EQ(byte, first);
        EXPECT_EQ(read, values) << portion;
    }
    BinInputMemory held(stored);
    std::uint8_t byte = 0;
    EXPECT_TRUE(held.read(&byte, 1));
    EXPECT_EQ(byte, first);

    setScrambler(binio::installedScrambler);
    EXPECT_EQ(alive, 1);
    setScrambler(new Mask(&alive));
    EXPECT_EQ(alive, 1);
    setScrambler(nullptr);
    EXPECT_EQ(alive, 0);
}

TEST(BinIOMagic, TakesAWordApart) {
    const struct {
        BinIO_Magic magic;
        std::int32_t tag, version;
        const char* text;
    } cases[] = {
        {BinIO_Magic(0x315E97, 0xD6), 0x315E97, 0xD6, "3235479 214"},
        {BinIO_Magic(828282838), 0x315E97, 0xD6, "3235479 214"},
        {BinIO_Magic(-1, 5), -1, -1, "-1 -1"},
        {BinIO_Magic(0x800000, 5), -1, -1, "-1 -1"},
        {BinIO_Magic(0x1000000, 5), -1, -1, "-1 -1"},
        {BinIO_Magic(), 0, 0, "0 0"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(c.magic.tag(), c.tag) << c.text;
        EXPECT_EQ(c.magic.version(), c.version) << c.text;
        std::ostringstream text;
        text << c.magic;
        EXPECT_EQ(text.str(), c.text);
    }
    EXPECT_EQ(BinIO_Magic(-7, 5), BinIO_Magic(-7));
}

TEST(BinIOMagic, ReadsAndComparesWhatItFinds) {
    const Bytes stored = bytes("31 5E 97 D7");
    const auto write = [](BinOutput& out) { return BinIO_Magic(0x315E97, 0xD7).write(out); };
    EXPECT_EQ(writtenBy(write), stored);

    const BinIO_Magic expected(0x315E97, 0xD6);
    BinIO_Magic magic = expected;
    BinInputMemory input(stored);
    EXPECT_TRUE(magic.readSameTag(input));
    EXPECT_EQ(magic.version(), 0xD7);
    input.seek(0);
    EXPECT_FALSE(magic.readIs(input, expected));
    input.seek(0);
    EXPECT_TRUE(magic.readIs(input, BinIO_Magic(0x315E97, 0xD7)));
    EXPECT_FALSE(magic.readSameTag(input)); // at the end
    EXPECT_FALSE(magic.readIs(input, BinIO_Magic(-1)));

    AssertionCounter assertions;
    input.seek(0);
    magic.readExact(input, BinIO_Magic(0x315E97, 0xD7));
    EXPECT_EQ(assertions.count, 0);
    input.seek(0);
    magic.readExact(input, expected);
    EXPECT_EQ(assertions.last, "magic_ == magic");
    EXPECT_EQ(magic.version(), 0xD7);
}

TEST(BinIO, TakesNothingWhereMemoryEnds) {
    BinOutputMemory output;
    output.seekRaw(std::numeric_limits<std::int64_t>::max(), true);
    EXPECT_EQ(output.writeRaw("a", 1), 0u);
}

} // namespace
