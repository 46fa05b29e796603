// SPDX-License-Identifier: Apache-2.0
// Streams of the runtime library, openings that wait, and the small calls on wide paths.
#include "zelbasictypes/files/fileoperations.h"

#include "platform/clock.h"
#include "tests/zelbasictypes/temporarydirectory.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <limits>
#include <memory>
#include <string>
#include <thread>

namespace {

struct Closer {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using Stream = std::unique_ptr<std::FILE, Closer>;

class FileOpening : public DirectoryTest {
protected:
    Stream alone(const char* mode, double seconds = 0) const {
        return Stream(zelOpenFileRetry(path(), mode, seconds));
    }
    static std::string rest(const Stream& stream) {
        char block[100];
        return {block, std::fread(block, 1, sizeof block, stream.get())};
    }
};

using Clock = std::chrono::steady_clock;

} // namespace

TEST_F(FileOpening, NeedsAPathAndAMode) {
    EXPECT_EQ(zelOpenFile(KorString(), "rb"), nullptr);
    EXPECT_EQ(zelOpenFile(path("missing"), "rb"), nullptr);
    EXPECT_EQ(zelOpenFile(path(), nullptr), nullptr);
    const char* const none = nullptr;
    for (const double seconds : {0.0, 1.0}) {
        EXPECT_EQ(zelOpenFileRetry(KorString(), "rb", seconds), nullptr);
        EXPECT_EQ(zelOpenFileRetry("", "rb", seconds), nullptr);
        EXPECT_EQ(zelOpenFileRetry(none, "rb", seconds), nullptr);
        EXPECT_EQ(zelOpenFileRetry(path(), none, seconds), nullptr);
    }
    EXPECT_TRUE(directory.isEmpty());
    directory.write("file", "abc");
    EXPECT_EQ(zelReopenFile(KorString(), "rb", zelOpenFile(path(), "rb")), nullptr);
    EXPECT_EQ(alone("z"), nullptr);
    EXPECT_NE(alone("rb"), nullptr) << "what was refused holds nothing";
}

TEST_F(FileOpening, ForWritingAloneKeepsTheTailOfALongerFile) {
    directory.write("file", "abcdef");
    std::fputs("XY", alone("wb").get());
    EXPECT_EQ(contents(), "XYcdef");
    std::filesystem::remove(directory.root / "file");
    EXPECT_NE(alone("w"), nullptr) << "makes a missing file";
    EXPECT_TRUE(directory.has("file"));
}

TEST_F(FileOpening, AloneShutsEverybodyElseOut) {
    directory.write("file", "abc");
    const Stream holder = alone("rb");
    ASSERT_NE(holder, nullptr);
    EXPECT_EQ(alone("rb"), nullptr);
    EXPECT_EQ(zelOpenFile(path(), "rb"), nullptr);
    EXPECT_EQ(zelOpenFileRetry(narrow().c_str(), "rb", 0), nullptr);
    const auto start = Clock::now();
    EXPECT_EQ(alone("wb", 60), nullptr) << "a writer doesn't wait";
    EXPECT_EQ(alone("rb", -1), nullptr);
    EXPECT_EQ(alone("rb", std::nan("")), nullptr);
    EXPECT_LT(Clock::now() - start, std::chrono::seconds(30));
    EXPECT_EQ(rest(holder), "abc");
}

TEST_F(FileOpening, AgainOnTheFileThatItHoldsAlone) {
    directory.write("file", "abc");
    const Stream again(zelReopenFile(path(), "rb", alone("rb").release()));
    ASSERT_NE(again, nullptr);
    EXPECT_EQ(rest(again), "abc");
}

TEST_F(FileOpening, ForReadingWaitsUntilTheFileIsFree) {
    directory.write("file", "abc");
    Stream holder = alone("wb");
    ASSERT_NE(holder, nullptr);
    std::thread other([&holder] {
        platform::sleep(60);
        holder.reset();
    });
    const auto start = Clock::now();
    const Stream reader = alone("rb", 0.01);
    EXPECT_GE(Clock::now() - start, std::chrono::milliseconds(50));
    other.join();
    ASSERT_NE(reader, nullptr);
    EXPECT_EQ(rest(reader), "abc");
}

TEST_F(FileOpening, WithAModeThatAsksForMoreFailsWhereItIsUsed) {
    directory.write("file", "abc");
    Stream both = alone("r+b");
    ASSERT_NE(both, nullptr);
    EXPECT_EQ(rest(both), "abc");
    EXPECT_TRUE(std::fputc('x', both.get()) == EOF || std::fflush(both.get()) == EOF);
    both.reset();
    EXPECT_EQ(contents(), "abc");
}

TEST_F(FileOpening, WritesInPieces) {
    constexpr std::int64_t largest = std::numeric_limits<std::int64_t>::max();
    const std::string data(1000, 'd');
    struct {
        std::int64_t total, chunk;
        bool expected;
        std::size_t written;
    } const cases[] = {{1000, 7, true, 1000},  {1000, 1000, true, 1000},
                       {1000, 1, true, 1000},  {1000, largest, true, 1000},
                       {999, 1000, true, 999}, {0, 10, true, 0},
                       {0, 0, true, 0},        {-1, 10, true, 0},
                       {10, 0, false, 0},      {10, -1, false, 0}};
    for (const auto& c : cases) {
        const Stream file(zelOpenFile(path(), "wb"));
        EXPECT_EQ(writeChunked(data.data(), file.get(), c.total, c.chunk), c.expected);
        std::fflush(file.get());
        EXPECT_EQ(contents().size(), c.written) << c.total << " by " << c.chunk;
    }
    const Stream reader(zelOpenFile(path(), "rb"));
    EXPECT_FALSE(writeChunked(data.data(), reader.get(), 1000, 10));
}

TEST_F(FileOpening, PassesThePlatformsAnswersOn) {
    directory.write("file", "abc");
    EXPECT_EQ(accessPath(path(), 0), 0);
    EXPECT_EQ(accessPath(path("missing"), 0), -1);
    platform::FileStatus record;
    EXPECT_EQ(statPath(path(), &record), 0);
    EXPECT_EQ(record.size, 3);
    EXPECT_EQ(statPath(path("missing"), &record), -1);
    EXPECT_TRUE(makeDirectoryOnce(path("one")));
    EXPECT_FALSE(makeDirectoryOnce(path("one")));
    const std::string two = narrow("two");
    EXPECT_TRUE(makeDirectoryOnce(two.c_str()));
    EXPECT_FALSE(makeDirectoryOnce(two.c_str()));
    unlinkPath(path());
    unlinkPath(path());
    EXPECT_FALSE(directory.has("file"));
}
