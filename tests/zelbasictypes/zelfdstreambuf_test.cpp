// SPDX-License-Identifier: Apache-2.0
// The buffer of file streams: its two directions, what passes it by, and hostile positions.
#include "zelbasictypes/files/zelfdstreambuf.h"

#include "platform/file.h"
#include "tests/zelbasictypes/assertioncounter.h"
#include "tests/zelbasictypes/temporarydirectory.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>

namespace {

constexpr int endOfData = std::char_traits<char>::eof();
constexpr std::int64_t largest = std::numeric_limits<std::int64_t>::max();
const std::streampos nowhere(std::streamoff(-1));
namespace mode = zelmode;

class FdStreambuf : public DirectoryTest {
protected:
    /// Opens the buffer on a file of that content.
    void openOn(const std::string& content, std::int32_t how = both) {
        directory.write("file", content);
        buffer.open(path(), how);
    }

    static constexpr std::int32_t both = mode::in | mode::out | mode::binary;
    ZelFdStreambuf buffer;
};

} // namespace

TEST_F(FdStreambuf, AnOpenBufferKeepsItsFile) {
    directory.write("file", "abc");
    directory.write("other", "xyz");
    EXPECT_EQ(buffer.close(), nullptr);
    EXPECT_EQ(buffer.pubseekoff(0, std::ios_base::beg), std::streampos(-1));
    ASSERT_EQ(buffer.open(path(), mode::readBinary), &buffer);
    EXPECT_EQ(buffer.open(path("other"), mode::readBinary), nullptr);
    EXPECT_EQ(buffer.attach(0, mode::in), nullptr);
    EXPECT_EQ(buffer.sgetc(), 'a');
    EXPECT_EQ(buffer.close(), &buffer);
    EXPECT_EQ(buffer.attach(-1, mode::in), nullptr);
    const std::int32_t fd = platform::open(path("other").c_str(), 0);
    ASSERT_EQ(buffer.attach(fd, mode::in), &buffer);
    EXPECT_EQ(buffer.sgetc(), 'x');
}

TEST_F(FdStreambuf, CharactersOfOneDirectionShutTheOtherOutUntilASeek) {
    openOn("abcdef");
    EXPECT_EQ(buffer.sgetc(), 'a');
    EXPECT_EQ(buffer.sputc('X'), endOfData);
    EXPECT_EQ(buffer.pubseekoff(2, std::ios_base::beg), std::streampos(2));
    EXPECT_EQ(buffer.sputc('X'), 'X');
    EXPECT_EQ(buffer.sgetc(), endOfData);
    EXPECT_EQ(buffer.sbumpc(), endOfData);
    EXPECT_EQ(buffer.pubseekpos(0), std::streampos(0));
    EXPECT_EQ(contents(), "abXdef");
    EXPECT_EQ(buffer.sgetc(), 'a');
    EXPECT_EQ(buffer.sputn("YZ", 2), 2);
    EXPECT_EQ(contents(), "abXdefYZ");
}

TEST_F(FdStreambuf, ReadsEveryByteAndThenTheEnd) {
    std::string all;
    for (int i = 0; i < 3000; ++i) all += static_cast<char>(i % 256);
    all += '\xFF';
    directory.write("file", all);
    ZelFdStreambuf peeked;
    peeked.open(path(), mode::readBinary);
    EXPECT_EQ(peeked.in_avail(), -1);
    for (const char c : all) {
        ASSERT_EQ(peeked.sgetc(), static_cast<unsigned char>(c));
        peeked.sbumpc();
    }
    EXPECT_EQ(peeked.sgetc(), endOfData);
    ZelFdStreambuf bumped;
    bumped.open(path(), mode::readBinary);
    for (const char c : all) ASSERT_EQ(bumped.sbumpc(), static_cast<unsigned char>(c));
    EXPECT_EQ(bumped.sbumpc(), endOfData);
    ZelFdStreambuf whole;
    whole.open(path(), mode::readBinary);
    std::string block(all.size() + 10, '\0');
    const auto wanted = static_cast<std::streamsize>(block.size());
    EXPECT_EQ(whole.sgetn(block.data(), wanted), wanted - 10);
    EXPECT_EQ(block.substr(0, all.size()), all);
}

TEST_F(FdStreambuf, PutsBackWhatItHasRead) {
    openOn("abc", mode::readBinary);
    EXPECT_EQ(buffer.sgetc(), 'a');
    EXPECT_EQ(buffer.in_avail(), 3);
    buffer.sbumpc();
    EXPECT_EQ(buffer.sputbackc('a'), 'a');
    buffer.sbumpc();
    EXPECT_EQ(buffer.sputbackc('z'), endOfData);
    buffer.pubseekpos(2);
    EXPECT_EQ(buffer.sungetc(), 'b');
    buffer.pubseekpos(0);
    EXPECT_EQ(buffer.sungetc(), endOfData);
}

TEST_F(FdStreambuf, WritesCharactersByTheFullBuffer) {
    const std::pair<std::int64_t, std::size_t> cases[] = {{0, 1024}, {1, 1}, {2, 2}, {7, 7}};
    for (const auto& [wanted, step] : cases) {
        ZelFdStreambuf sized;
        if (wanted) sized.setBufferSize(wanted);
        ASSERT_EQ(sized.open(path(), mode::writeBinary), &sized);
        std::string all;
        for (std::size_t i = 0; i < 2 * step + 1; ++i) {
            all += static_cast<char>('a' + i % 26);
            ASSERT_EQ(sized.sputc(all.back()), all.back());
            ASSERT_EQ(contents().size(), all.size() / step * step) << wanted;
        }
        EXPECT_EQ(sized.pubsync(), 0);
        EXPECT_EQ(contents(), all);
        sized.sputc('!');
        sized.close();
        EXPECT_EQ(contents(), all + "!");
    }
}

TEST_F(FdStreambuf, WorksOnABufferOfTheCaller) {
    char area[4];
    EXPECT_EQ(buffer.setBuffer(area, sizeof area), &buffer);
    buffer.setBufferSize(100);
    buffer.open(path(), mode::writeBinary);
    for (const char c : std::string("abcde")) buffer.sputc(c);
    EXPECT_EQ(contents(), "abcd");
    EXPECT_EQ(area[1], 'b');
}

TEST_F(FdStreambuf, AModeWithoutDirectionIsAnAssertion) {
    const AssertionCounter assertions;
    EXPECT_EQ(buffer.open(path(), mode::binary | mode::trunc), nullptr);
    EXPECT_EQ(assertions.last, "0");
    EXPECT_FALSE(directory.has("file"));
}

TEST_F(FdStreambuf, SeeksToAnyPositionOrNowhere) {
    openOn("abcdef");
    struct {
        std::int64_t position;
        std::int64_t arrives; ///< -1 when the device refuses, and stays where it was
        int next;             ///< what is read there
    } const cases[] = {{0, 0, 'a'},
                       {5, 5, 'f'},
                       {6, 6, endOfData},
                       {7, 7, endOfData},
                       {-1, -1, endOfData},
                       {std::int64_t{1} << 40, std::int64_t{1} << 40, endOfData},
                       {INT64_MIN, -1, endOfData},
                       {0, 0, 'a'}};
    for (const auto& c : cases) {
        EXPECT_EQ(buffer.pubseekpos(c.position), std::streampos(c.arrives)) << c.position;
        EXPECT_EQ(buffer.sgetc(), c.next) << c.position;
    }
    EXPECT_EQ(buffer.pubseekoff(-1, std::ios_base::beg), nowhere);
    EXPECT_EQ(buffer.pubseekoff(1, std::ios_base::end), std::streampos(7));
    EXPECT_EQ(buffer.sputc('!'), '!');
    EXPECT_EQ(buffer.pubseekoff(-2, std::ios_base::end), std::streampos(6)) << "of 8 by now";
    EXPECT_EQ(contents(), std::string("abcdef\0!", 8));
    EXPECT_EQ(buffer.pubseekoff(-7, std::ios_base::cur), nowhere);
    EXPECT_EQ(buffer.pubseekoff(-6, std::ios_base::cur), std::streampos(0));
}

TEST_F(FdStreambuf, MovesBlocksPastTheBuffer) {
    directory.write("file", "abcdefgh");
    buffer.setBufferSize(3);
    buffer.open(path(), both);
    char block[8] = {};
    EXPECT_EQ(buffer.sgetc(), 'a');
    EXPECT_EQ(buffer.sgetn(block, 2), 2);
    EXPECT_EQ(std::string(block, 2), "de") << "three characters wait in the buffer";
    EXPECT_EQ(buffer.sgetc(), 'a') << "and still do";
    EXPECT_EQ(buffer.sputn("X", 1), 1);
    EXPECT_EQ(contents(), "abcdeXgh");
    EXPECT_EQ(buffer.readBlock(block, 0, 1), 1);
    EXPECT_EQ(buffer.readBlockInto(block + 1, 0, 1), 1);
    EXPECT_EQ(std::string(block, 2), "gh") << "whatever the capacity";

    buffer.pubseekpos(0);
    EXPECT_EQ(buffer.sputc('1'), '1');
    EXPECT_EQ(contents(), "abcdeXgh");
    EXPECT_EQ(buffer.sputn("2", 1), 1);
    EXPECT_EQ(contents(), "12cdeXgh") << "a block is written behind what waited";
    EXPECT_EQ(buffer.sgetn(block, 1), 1) << "and isn't refused";
    EXPECT_EQ(block[0], 'c');
}

TEST_F(FdStreambuf, CutsCountsThatAreNone) {
    directory.write("file", "abc");
    char block[8] = {};
    EXPECT_EQ(buffer.sgetn(block, 1), 0) << "not open";
    EXPECT_EQ(buffer.sputn(block, 1), -1);
    EXPECT_EQ(buffer.sputc('x'), endOfData);
    EXPECT_EQ(buffer.sgetc(), endOfData);
    EXPECT_EQ(buffer.sungetc(), endOfData);
    buffer.open(path(), both);
    EXPECT_EQ(buffer.sgetn(block, -1), 0);
    EXPECT_EQ(buffer.sgetn(block, 0), 0);
    EXPECT_EQ(buffer.sputn(block, -1), 0);
    EXPECT_EQ(buffer.sgetn(block, largest), 3) << "as many as there are";
    EXPECT_EQ(std::string(block), "abc");
    EXPECT_EQ(contents(), "abc");
}

TEST_F(FdStreambuf, TakesOnlyBufferSizesThatAreSome) {
    for (const std::int64_t size :
         {std::int64_t{-1}, std::numeric_limits<std::int64_t>::min(), largest}) {
        directory.write("file", "");
        ZelFdStreambuf sized;
        sized.setBufferSize(size);
        sized.open(path(), mode::writeBinary);
        for (int i = 0; i < 1025; ++i) sized.sputc('x');
        EXPECT_EQ(contents().size(), 1024U) << size;
    }
    ZelFdStreambuf none;
    none.setBufferSize(0);
    none.open(path(), both);
    EXPECT_EQ(none.sputc('y'), 'y');
    EXPECT_EQ(contents()[0], 'y') << "each character is written alone";
    none.pubseekpos(0);
    EXPECT_EQ(none.sgetc(), endOfData) << "no room to look ahead";
    EXPECT_EQ(none.sbumpc(), 'y');
}

TEST_F(FdStreambuf, ThatWasTakenAwayIsMissedByNobody) {
    openOn("abc");
    EXPECT_EQ(buffer.sgetc(), 'a');
    buffer.freeBuffer();
    EXPECT_EQ(buffer.sgetc(), endOfData);
    buffer.pubseekpos(0);
    EXPECT_EQ(buffer.sputc('X'), 'X');
    EXPECT_EQ(contents(), "Xbc");
    buffer.setBufferSize(2);
    EXPECT_EQ(buffer.sputc('Y'), 'Y');
    EXPECT_EQ(contents(), "Xbc") << "a new one serves again";
    EXPECT_EQ(buffer.setBuffer(nullptr, largest), &buffer);
    EXPECT_EQ(buffer.sputc('Z'), 'Z');
    EXPECT_EQ(contents(), "XZc") << "what waited went with its buffer";
}

/// A descriptor that can't be written stands in for the full disk, and gives way to one that can.
TEST_F(FdStreambuf, KeepsWhatItCouldNotWriteAndNothingMore) {
    directory.write("file", "");
    char area[6] = {'-', '-', '-', '-', '#', '#'};
    buffer.setBuffer(area, 4);
    const std::int32_t fd = platform::open(path().c_str(), platform::open_flag::readOnly);
    ASSERT_EQ(buffer.attach(fd, mode::out), &buffer);
    for (const char c : {'a', 'b', 'c'}) EXPECT_EQ(buffer.sputc(c), c);
    for (const char c : {'d', 'e', 'f', 'g'}) EXPECT_EQ(buffer.sputc(c), endOfData);
    EXPECT_EQ(buffer.pubsync(), -1);
    EXPECT_EQ(std::string(area, 6), "abcd##");
    platform::close(fd);
    ASSERT_EQ(platform::open(path().c_str(), platform::open_flag::writeOnly), fd);
    EXPECT_EQ(buffer.sputc('h'), 'h');
    EXPECT_EQ(contents(), "abcd");
    buffer.close();
    EXPECT_EQ(contents(), "abcdh");
}
