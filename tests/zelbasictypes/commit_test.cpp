// SPDX-License-Identifier: Apache-2.0
// What the disk has when a stream says so. The program puts its own call in the place of the
// system's, notes how much of the file that would bring to the disk, and may refuse.
#include "tests/zelbasictypes/temporarydirectory.h"
#include "zelbasictypes/data/binio.h"
#include "zelbasictypes/data/zelfile.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

std::vector<std::int64_t> committed; ///< bytes of the file at each commit
bool diskIsBroken = false;

} // namespace

extern "C" int fdatasync(int file) {
    struct ::stat status {};
    ::fstat(file, &status);
    committed.push_back(status.st_size);
    errno = EIO;
    return diskIsBroken ? -1 : 0;
}

namespace {

class Commit : public DirectoryTest {
protected:
    Commit() { committed.clear(); }
    ~Commit() override { diskIsBroken = false; }
};

using Sizes = std::vector<std::int64_t>;

TEST_F(Commit, FollowsEachFlushAndAClosedStreamThatWroteSinceThen) {
    const std::vector<std::uint8_t> bytes(600000);
    BinOutputFile out(path());
    out.writeBytes(bytes.data(), bytes.size());
    EXPECT_EQ(committed, Sizes{}) << "a full block is no flush";
    EXPECT_TRUE(out.flushDevice());
    EXPECT_TRUE(out.flushDevice());
    out.writeBytes(bytes.data(), 10);
    EXPECT_TRUE(out.close());
    EXPECT_EQ(committed, (Sizes{600000, 600010}));
    BinOutputFile(path()).writeBytes(bytes.data(), 10);
    EXPECT_EQ(committed.size(), 2u) << "nobody was told of an end";
}

TEST_F(Commit, ComesOnceForADataModelFileOfManyBlocks) {
    ZelFileWrite writer;
    ASSERT_TRUE(writer.create(path()));
    for (int i = 0; i < 100; ++i) {
        writer.beginBlock(7, 1);
        writer.stream()->writeBytes(std::string(5000, 'x').data(), 5000);
        writer.endBlock();
    }
    EXPECT_TRUE(writer.close());
    const auto size = static_cast<std::int64_t>(directory.read("file").size());
    EXPECT_EQ(committed, Sizes{size}) << "with all lengths filled in";
}

TEST_F(Commit, ThatTheDiskRefusesIsTold) {
    diskIsBroken = true;
    BinOutputFile out(path());
    out.writeBytes("abc", 3);
    EXPECT_FALSE(out.flushDevice());
    EXPECT_FALSE(out.close());
    ZelFileWrite writer;
    ASSERT_TRUE(writer.create(path()));
    EXPECT_FALSE(writer.close());
}

constexpr std::uint32_t blocks = 12;

std::vector<char> contentOf(std::uint32_t block) {
    return std::vector<char>(block * 7001, static_cast<char>('a' + block));
}

/// Writes blocks and tells each, by a byte, once it is flushed. A write beyond `limit` is the end.
[[noreturn]] void writeTelling(const KorString& path, rlim_t limit, int pipe) {
    const rlimit noFurther{limit, limit};
    ::setrlimit(RLIMIT_FSIZE, &noFurther);
    ZelFileWrite writer;
    writer.create(path);
    for (std::uint32_t i = 0; i < blocks; ++i) {
        writer.beginBlock(7, i);
        writer.stream()->writeBytes(contentOf(i).data(), contentOf(i).size());
        writer.endBlock();
        if (writer.stream()->flushDevice() && ::write(pipe, "", 1) != 1) break;
    }
    writer.close();
    std::_Exit(0);
}

TEST_F(Commit, KeepsWhatItToldWhenTheWriterIsKilledAtAnyWrite) {
    std::uint32_t told = 0;
    for (rlim_t limit = 5; told < blocks; limit += 7919) {
        int pipe[2];
        ASSERT_EQ(::pipe(pipe), 0);
        const pid_t child = ::fork();
        if (child == 0) writeTelling(path(), limit, pipe[1]);
        ::close(pipe[1]);
        char byte;
        for (told = 0; ::read(pipe[0], &byte, 1) == 1;) ++told;
        ::close(pipe[0]);
        ::waitpid(child, nullptr, 0);
        ZelFileRead reader;
        ASSERT_TRUE(told == 0 || reader.open(path())) << limit;
        for (std::uint32_t i = 0; i < told; ++i) {
            std::vector<char> content(contentOf(i).size());
            ASSERT_TRUE(reader.expectBlock(7)) << limit;
            EXPECT_EQ(reader.blockVersion(), i);
            reader.stream()->readBytes(content.data(), content.size());
            EXPECT_TRUE(content == contentOf(i)) << i << " of " << limit;
            reader.endBlock();
        }
    }
}

} // namespace
