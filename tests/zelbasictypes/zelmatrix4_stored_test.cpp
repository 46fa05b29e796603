// SPDX-License-Identifier: Apache-2.0
// Matrices as text and in binary streams, and the pairs that streams hold.
#include "tests/zelbasictypes/mathtest.h"
#include "tests/zelbasictypes/streams.h"
#include "zelbasictypes/math/zelpair.h"

#include <bit>
#include <cstring>
#include <sstream>

namespace {

using namespace mathtest;

Bytes stored(const ZelMatrix4& matrix) {
    return writtenBy([&](BinOutput& out) { return matrix.write(out); });
}

} // namespace

TEST(ZelMatrix4Text, IsNumbersRowByRowWithABlankBehindEach) {
    std::stringstream text;
    text << counting << with({}, 15, 0.5);
    EXPECT_EQ(text.str(),
              "0 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 1 0 0 0 0 1 0 0 0 0 1 0 0 0 0 0.5 ");
    ZelMatrix4 read;
    text >> read >> read;
    EXPECT_TRUE(text.good());
    EXPECT_EQ(read, with({}, 15, 0.5));
}

TEST(ZelMatrix4Text, LeavesTheMatrixWhenNumbersAreMissing) {
    for (const char* text : {"", "1 2 3", "1 2 3 4 5 6 7 8 9 10 11 12 13 14 15", "1 2 3 4 x"}) {
        std::istringstream in(text);
        ZelMatrix4 matrix = counting;
        in >> matrix;
        EXPECT_TRUE(in.fail()) << text;
        EXPECT_EQ(matrix, counting) << text;
    }
}

TEST(ZelMatrix4Text, GoesToStandardOutputInColumns) {
    const ZelMatrix4 matrix = ZelMatrix4::fromTranslation({-1.5, 1234567, 1e-7});
    const std::string lines = "(    1.000000     0.000000     0.000000    -1.500000\n"
                              "(    0.000000     1.000000     0.000000 1234567.000000\n"
                              "(    0.000000     0.000000     1.000000     0.000000\n"
                              "(    0.000000     0.000000     0.000000     1.000000\n\n";
    testing::internal::CaptureStdout();
    matrix.dump();
    EXPECT_EQ(testing::internal::GetCapturedStdout(), lines);
    testing::internal::CaptureStdout();
    matrix.dump("frame 100%");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "frame 100%\n" + lines);
}

TEST(ZelMatrix4Stored, ComesBackBitForBit) {
    ZelMatrix4 matrix = Numbers().matrix();
    matrix.m[1] = std::bit_cast<double>(0x7ff8123456789abcu);
    matrix.m[2] = -0.0;
    matrix.m[3] = -infinity;
    matrix.m[4] = 5e-324;
    const Bytes whole = stored(matrix);
    BinInputMemory in(whole);
    ZelMatrix4 read;
    EXPECT_TRUE(read.read(in));
    EXPECT_EQ(std::memcmp(read.m, matrix.m, sizeof read.m), 0);
}

TEST(ZelMatrix4Stored, IsBigEndianRowByRow) {
    const Bytes whole = stored(counting);
    ASSERT_EQ(whole.size(), 128u);
    EXPECT_EQ(Bytes(&whole[8], &whole[16]), bytes("3F F0 00 00 00 00 00 00"));
    EXPECT_EQ(Bytes(&whole[32], &whole[40]), bytes("40 10 00 00 00 00 00 00"));
}

TEST(ZelMatrix4Stored, StopsAtTheRowThatDoesNotArrive) {
    const Bytes whole = stored(counting);
    for (std::uint64_t bytes = 0; bytes < 128; ++bytes) {
        BinInputMemory in(whole.data(), bytes);
        ZelMatrix4 read = ZelMatrix4::uniformScale(-1);
        ASSERT_FALSE(read.read(in)) << bytes;
        for (std::uint64_t i = 0; i < bytes / 8; ++i) ASSERT_EQ(read.m[i], counting.m[i]);
        ASSERT_NE(read.m[bytes / 8], counting.m[bytes / 8]) << bytes;
    }
}

TEST(ZelPair, ReadsTwoValuesOrSaysWhatIsMissing) {
    const float floats[2] = {1.5f, -2};
    const double doubles[2] = {0.1, 1e300};
    const Bytes whole =
        writtenBy([&](BinOutput& out) { return out.write(floats, 2) && out.write(doubles, 2); });
    BinInputMemory in(whole);
    ZelFloatPair f;
    EXPECT_TRUE(f.read(in));
    EXPECT_EQ(f.values[1], -2);
    ZelDoublePair d;
    EXPECT_TRUE(d.read(in));
    EXPECT_EQ(d.values[0], 0.1);
    EXPECT_EQ(d.values[1], 1e300);
    EXPECT_FALSE(d.read(in));
    EXPECT_TRUE(in.seek(-8, false));
    EXPECT_FALSE(d.read(in));
    EXPECT_EQ(d.values[0], 1e300);
}
