// SPDX-License-Identifier: Apache-2.0
// Streams on files: beside a plain device under every mix of operations, what others see of their
// FILE, and what is left of a file whose writer was killed.
#include "zelbasictypes/data/binio.h"

#include "tests/support/refusingnew.h"
#include "tests/zelbasictypes/bytes.h"
#include "tests/zelbasictypes/temporarydirectory.h"
#include "zelbasictypes/data/zelfile.h"
#include "zelbasictypes/text/korcstring.h"
#include "zelbasictypes/text/korstring.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <numeric>
#include <random>

namespace {

std::string counting(std::size_t length) {
    std::string text(length, ' ');
    std::mt19937 random(1);
    for (char& c : text) c = static_cast<char>(random());
    return text;
}

class BinFile : public DirectoryTest {
protected:
    std::int64_t below(std::int64_t limit) { return static_cast<std::int64_t>(random()) % limit; }
    std::mt19937 random{2};
};

/// The same random operations on a file that reads ahead and on plain memory.
TEST_F(BinFile, InputBehavesAsMemoryDoes) {
    const std::string source = counting(300000);
    directory.write("file", source);
    BinInputFile file(path());
    BinInputMemory memory(source.data(), source.size());
    ASSERT_EQ(file.size(), source.size());
    const auto typed = [&](auto number, std::size_t count) {
        std::vector<decltype(number)> a(300), b(300);
        ASSERT_EQ(file.read(a.data(), count), memory.read(b.data(), count));
        ASSERT_EQ(std::memcmp(a.data(), b.data(), a.size() * sizeof number), 0);
    };
    const auto seek = [&](std::int64_t offset, bool fromStart) {
        ASSERT_TRUE(file.seek(offset, fromStart) && memory.seek(offset, fromStart));
    };
    const auto size = static_cast<std::int64_t>(source.size());
    Bytes a(200000), b(200000);
    for (int turn = 0; turn < 20000 && !HasFatalFailure(); ++turn) {
        const std::size_t count = below(turn % 20 == 0 ? 200000 : 3000);
        switch (below(6)) {
        case 0:
            ASSERT_EQ(file.readRaw(a.data(), count), memory.readRaw(b.data(), count));
            ASSERT_EQ(a, b);
            break;
        case 1:
            typed(std::int32_t(), 1);
            break;
        case 2:
            typed(double(), below(300));
            break;
        case 3:
            seek(below(size + 100), true);
            break;
        case 4:
            seek(file.tell() + below(20000) - 5000, true); // a negative one moves nothing
            break;
        default:
            seek(-below(size), false);
        }
        ASSERT_EQ(file.tell(), memory.tell()) << turn;
        ASSERT_TRUE(file.good());
    }
}

TEST_F(BinFile, OutputBehavesAsMemoryDoes) {
    BinOutputFile file(path());
    BinOutputMemory memory;
    const auto seek = [&](std::int64_t offset, bool fromStart) {
        ASSERT_TRUE(file.seek(offset, fromStart) && memory.seek(offset, fromStart));
    };
    const std::string source = counting(600000);
    Bytes a(5000), b(5000);
    std::int64_t length = 0;
    for (int turn = 0; turn < 3000 && !HasFatalFailure(); ++turn) {
        std::size_t count = below(turn % 50 == 0 ? 600000 : 3000);
        switch (below(7)) {
        case 0:
            ASSERT_TRUE(file.writeBytes(source.data(), count));
            ASSERT_TRUE(memory.writeBytes(source.data(), count));
            break;
        case 1:
            ASSERT_TRUE(file.write(&turn, 1) && memory.write(&turn, 1));
            break;
        case 2:
            seek(below(length + 1), true);
            break;
        case 3:
            seek(std::max<std::int64_t>(file.tell() - 3000, 0), true);
            break;
        case 4:
            count = below(5000);
            ASSERT_EQ(file.readBack(a.data(), count), memory.readBack(b.data(), count));
            ASSERT_EQ(a, b);
            break;
        case 5: // in front of what is staged
            ASSERT_EQ(file.writeRaw(&turn, sizeof turn), memory.writeRaw(&turn, sizeof turn));
            break;
        default:
            seek(0, false);
        }
        ASSERT_EQ(file.tellRaw(), memory.tellRaw()) << turn;
        ASSERT_EQ(file.tell(), memory.tell()) << turn;
        length = std::max(length, memory.tellRaw());
    }
    ASSERT_TRUE(file.flushDevice());
    memory.flushBuffer();
    EXPECT_EQ(contents(), std::string(memory.bytes().begin(), memory.bytes().end()));
}

TEST_F(BinFile, WithoutADeviceNothingWorksAndNothingHurts) {
    BinInputFile input(directory.path("missing"));
    BinOutputFile output(directory.path("no/such/place"));
    std::uint8_t byte = 7;
    for (int i = 0; i < 2; ++i) {
        EXPECT_FALSE(input.good());
        EXPECT_EQ(input.readBytes(&byte, 1), 0u);
        EXPECT_FALSE(input.read(&byte, 1));
        EXPECT_EQ(input.tell(), 0);
        EXPECT_FALSE(input.seek(0));
        EXPECT_TRUE(input.close());
        EXPECT_FALSE(output.good());
        EXPECT_TRUE(output.write(&byte, 1)); // the stage takes it
        EXPECT_FALSE(output.flushBuffer());
        EXPECT_EQ(output.tell(), 0);
        EXPECT_FALSE(output.seek(0));
        EXPECT_FALSE(output.flushDevice());
        EXPECT_EQ(output.readBack(&byte, 1), 0u);
        EXPECT_TRUE(output.close());
        directory.write("file", "abc");
        input.setFile(std::fopen(narrow().c_str(), "rb"));
        EXPECT_TRUE(input.read(&byte, 1));
        EXPECT_EQ(byte, 'a');
        input.close();
    }
    EXPECT_EQ(input.size(), 0u); // setting a FILE measures nothing
}

TEST_F(BinFile, AFileHandedOutStandsWhereTheStreamStands) {
    directory.write("file", "abcdefgh");
    BinInputFile input(path());
    std::uint8_t byte = 0;
    input.read(&byte, 1);
    EXPECT_EQ(std::fgetc(input.file()), 'b');
    input.read(&byte, 1);
    EXPECT_EQ(byte, 'c');
    EXPECT_EQ(input.tell(), 3);

    BinOutputFile output(path());
    const char text[] = "12345";
    output.write(text, 5);
    output.flushBuffer();
    output.seek(2);
    std::fputc('x', output.file());
    output.write(text, 1);
    EXPECT_TRUE(output.close());
    EXPECT_EQ(contents(), "12x15");
}

TEST_F(BinFile, AFileHandedOutLosesNoStagedByte) {
    BinOutputFile out(path());
    out.writeBytes("a", 1);
    EXPECT_NE(out.file(), nullptr);
    EXPECT_TRUE(out.close());
    EXPECT_EQ(directory.read("file"), "a");
}

TEST_F(BinFile, TakesAFileOver) {
    std::FILE* file = std::fopen(narrow().c_str(), "w+b");
    std::fputs("head", file);
    {
        BinOutputFile output(file);
        EXPECT_EQ(output.tell(), 4);
        const char text[] = "tail";
        output.write(text, 4);
        output.flushDevice();
        output.write(text, 4); // stays in the stage, and is lost
    }
    EXPECT_EQ(contents(), "headtail");
    file = std::fopen(narrow().c_str(), "rb");
    std::fgetc(file);
    BinInputFile input(file);
    EXPECT_EQ(input.size(), 8u);
    EXPECT_EQ(input.tell(), 0);
}

/// Sees every byte that comes from the device.
class Watching : public BinInputFile {
public:
    using BinInputFile::BinInputFile;
    std::uint64_t readRaw(void* buffer, std::uint64_t count) override {
        seen += count;
        return BinInputFile::readRaw(buffer, count);
    }
    std::uint64_t seen = 0;
};

TEST_F(BinFile, NothingIsReadPastASubclass) {
    directory.write("file", counting(4000));
    Watching input(path());
    std::int32_t number = 0;
    for (int i = 0; i < 1000; ++i) EXPECT_TRUE(input.read(&number, 1));
    EXPECT_EQ(input.seen, 4000u);
}

TEST_F(BinFile, AFullDiskShowsWhenItIsFlushed) {
    std::FILE* full = std::fopen("/dev/full", "wb");
    if (!full) GTEST_SKIP() << "no /dev/full";
    BinOutputFile output(full);
    const std::vector<double> values(1000, 1);
    output.write(values.data(), values.size());
    EXPECT_FALSE(output.flushDevice());
    EXPECT_FALSE(output.good());
}

/// Brings each write to the file at once, and dies behind the one that it is told.
class Mortal : public BinOutputFile {
public:
    Mortal(const KorString& path, int writes) : BinOutputFile(path), left_(writes) {}
    std::uint64_t writeRaw(const void* buffer, std::uint64_t count) override {
        if (left_-- == 0) std::_Exit(7);
        const std::uint64_t taken = BinOutputFile::writeRaw(buffer, count);
        std::fflush(file());
        return taken;
    }

private:
    int left_;
};

class MortalWriter : public ZelFileWrite {
public:
    explicit MortalWriter(int writes) : writes_(writes) {}
    BinOutput* createOutput(const KorString& path) override { return new Mortal(path, writes_); }

private:
    int writes_;
};

/// Two blocks of 100 numbers each, ended; then one within another, then the file's end.
void writeAndDie(const KorString& path, int writes) {
    MortalWriter writer(writes);
    writer.create(path);
    for (int i = 0; i < 2; ++i) {
        writer.beginBlock(1, 0);
        for (std::int32_t j = 0; j < 100; ++j) writer << j;
        writer.endBlock();
    }
    writer.beginBlock(2, 0);
    writer.beginBlock(3, 0);
    for (std::int32_t j = 0; j < 300; ++j) writer << j;
    writer.endBlock();
    writer.endBlock();
    writer.close();
    std::_Exit(8);
}

/// How many whole numbers the blocks of a file give before something is amiss.
int countNumbers(ZelFileRead& reader) {
    int count = 0;
    while (!reader.atBlockEnd()) {
        if (!reader.beginBlock()) break;
        if (reader.blockTag() == 2) {
            count += countNumbers(reader);
        } else {
            for (std::int32_t n = 0; !reader.atBlockEnd() && reader.stream()->read(&n, 1);) ++count;
        }
        reader.endBlock();
    }
    return count;
}

TEST_F(BinFile, AFileOfAKilledWriterReadsAsFarAsItsBlocksAreEnded) {
    std::vector<int> counts;
    bool finished = false;
    for (int writes = 0; !finished; ++writes) {
        finished = false;
        EXPECT_EXIT(
            writeAndDie(path(), writes),
            [&](int status) {
                const bool died = testing::ExitedWithCode(7)(status);
                finished = testing::ExitedWithCode(8)(status);
                return died || finished;
            },
            "");
        ZelFileRead reader;
        ASSERT_TRUE(reader.open(path()));
        if (contents().empty()) {
            EXPECT_FALSE(reader.good());
            continue;
        }
        EXPECT_TRUE(reader.good()) << writes; // the file block reaches to the end
        counts.push_back(countNumbers(reader));
        EXPECT_EQ(reader.good(),
                  contents().size() == static_cast<std::size_t>(reader.stream()->tell()))
            << writes;
        ASSERT_LT(writes, 100);
    }
    EXPECT_TRUE(std::is_sorted(counts.begin(), counts.end()));
    EXPECT_EQ(counts.front(), 0);
    EXPECT_TRUE(std::count(counts.begin(), counts.end(), 100) > 0);
    EXPECT_TRUE(std::count(counts.begin(), counts.end(), 200) > 0);
    EXPECT_EQ(counts.back(), 500);
}

TEST_F(BinFile, DoesWithoutItsBlocksWhereThereIsNoMemoryForThem) {
    const testsupport::RefusingNew refusing(0x10000);
    ZelFileWrite writer;
    ASSERT_TRUE(writer.create(path()));
    for (std::int32_t i = 0; i < 100; ++i) writer.writeInt(i);
    ASSERT_TRUE(writer.close());
    ZelFileRead reader;
    ASSERT_TRUE(reader.open(path()));
    std::int32_t value = -1;
    for (std::int32_t i = 0; i < 100; ++i) ASSERT_TRUE(reader.readInt(value) && value == i);
    EXPECT_TRUE(reader.close());
}

constexpr std::int64_t far = std::int64_t{5} << 30;

/// A block that ends at `far` and takes next to no room on the disk.
void writeFarBlock(ZelFileWrite& writer, const KorString& path, std::uint32_t tag) {
    ASSERT_TRUE(writer.create(path));
    writer.beginBlock(tag, 0);
    writer.stream()->seek(far);
    writer.endBlock();
}

TEST_F(BinFile, BlocksOfASparseFilePassTheBorderOfFourGiB) {
    ZelFileWrite writer;
    writeFarBlock(writer, path(), 1);
    writer << KorCString("behind");
    ASSERT_TRUE(writer.close());
    ZelFileRead reader;
    ASSERT_TRUE(reader.open(path()));
    ASSERT_TRUE(reader.beginBlock());
    EXPECT_EQ(reader.bytesLeftInBlock(), far - 24);
    reader.endBlock();
    KorCString text;
    reader >> text;
    EXPECT_EQ(text, "behind");
    EXPECT_TRUE(reader.good());
}

TEST_F(BinFile, ANarrowFileSaysThatABlockBecameTooLong) {
    for (const std::int64_t length : {0xFFFFFFFFLL, 0x100000000LL}) {
        ZelFileWrite writer;
        writer.setVersion(9);
        ASSERT_TRUE(writer.create(path()));
        writer.beginBlock(1, 0);
        writer.stream()->seek(8 + length);
        writer.endBlock();
        EXPECT_EQ(writer.good(), length == 0xFFFFFFFFLL);
        EXPECT_EQ(writer.stream()->tell(), 8 + length);
        writer.close();
        EXPECT_EQ(contents().substr(12, 4), "\xFF\xFF\xFF\xFF");
    }
}

TEST_F(BinFile, ATextThatNoStringCanHoldIsRefused) {
    const auto read = [&](std::uint32_t tag, auto& text) {
        ZelFileWrite writer;
        writeFarBlock(writer, path(), tag);
        EXPECT_TRUE(writer.close());
        std::filesystem::resize_file(directory.at("file"), static_cast<std::uintmax_t>(far));
        ZelFileRead reader;
        EXPECT_TRUE(reader.open(path()));
        reader >> text;
        EXPECT_TRUE(text.isEmpty());
        return reader.good();
    };
    KorCString narrow("former");
    KorString wide(u"former");
    EXPECT_FALSE(read(0x10003, narrow));
    read(0x10005, wide);
}

} // namespace
