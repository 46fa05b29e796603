// SPDX-License-Identifier: Apache-2.0
// Descriptors, and what is done to files by their path.
#include "platform/file.h"

#include "tests/support/scratch.h"

#include <gtest/gtest.h>

#include <ctime>
#include <string>

namespace platform::test {
namespace {

constexpr std::int32_t reading = open_flag::readOnly | open_flag::binary;
constexpr std::int32_t making = open_flag::writeOnly | open_flag::create | open_flag::binary;

class File : public testing::Test {
protected:
    Descriptor openHere(std::int32_t flags, std::int32_t sharing = share::denyNone) {
        return open(scratch.path(u"file").c_str(), flags, sharing);
    }
    /// What reading finds from the present place on, at most 100 bytes.
    static std::string rest(Descriptor file) {
        char buffer[100];
        const std::int64_t got = read(file, buffer, sizeof buffer);
        return got < 0 ? "failed" : std::string(buffer, static_cast<std::size_t>(got));
    }

    Scratch scratch;
};

TEST_F(File, ReadsAndWritesAtAnyPlaceBeyondFourGigabytes) {
    const std::int64_t far = std::int64_t{5} << 30;
    const Descriptor file = openHere(open_flag::readWrite | open_flag::create | open_flag::binary);
    ASSERT_GE(file, 0);
    EXPECT_EQ(write(file, "start", 5), 5);
    EXPECT_EQ(seek(file, far, 0), far);
    EXPECT_EQ(write(file, "end", 3), 3);
    EXPECT_EQ(seek(file, -2, 1), far + 1);
    EXPECT_EQ(rest(file), "nd");
    EXPECT_EQ(rest(file), "");
    EXPECT_EQ(seek(file, -3, 2), far);
    EXPECT_EQ(seek(file, 1, 0), 1);
    EXPECT_EQ(seek(file, -1, 0), -1);
    EXPECT_TRUE(close(file));

    FileStatus status;
    ASSERT_EQ(stat(scratch.path(u"file").c_str(), &status), 0);
    EXPECT_EQ(status.size, far + 3);
}

using namespace open_flag;

TEST_F(File, IsMadeKeptOrRefusedByTheFlagsOfItsOpening) {
    const struct {
        const char* what;
        std::int32_t flags;
        bool exists;
        Error expected;
        const char* content; ///< after writing "+" when that is possible
    } openings[] = {
        {"read missing", readOnly, false, Error::notFound, ""},
        {"write missing", writeOnly, false, Error::notFound, ""},
        {"create", writeOnly | create, false, Error::none, "+"},
        {"create for both", readWrite | create, false, Error::none, "+"},
        {"overwrite", writeOnly | create, true, Error::none, "+ld"},
        {"truncate", writeOnly | create | truncate, true, Error::none, "+"},
        {"append", writeOnly | append, true, Error::none, "old+"},
        {"exclusive, new", writeOnly | create | exclusive, false, Error::none, "+"},
        {"exclusive, existing", writeOnly | create | exclusive, true, Error::exists, "old"},
        {"sequential", readOnly | sequential, true, Error::none, "old"},
    };
    for (const auto& [what, flags, exists, expected, content] : openings) {
        SCOPED_TRACE(what);
        std::filesystem::remove(scratch.at("file"));
        if (exists) scratch.write("file", "old");
        const Descriptor file = openHere(flags | binary);
        EXPECT_EQ(file == -1 ? lastError() : Error::none, expected);
        if (file >= 0) {
            EXPECT_EQ(write(file, "+", 1), flags & 3 ? 1 : -1);
            EXPECT_TRUE(close(file));
        }
        EXPECT_EQ(scratch.has("file"), exists || expected == Error::none);
        EXPECT_EQ(scratch.read("file"), content);
    }
}

TEST_F(File, ThatDeniesOthersIsTheOnlyOneOpen) {
    scratch.write("file", "kept");
    const std::u16string path = scratch.path(u"file");
    const Descriptor alone = openHere(reading, share::denyReadWrite);
    ASSERT_GE(alone, 0);
    EXPECT_EQ(openHere(reading), -1);
    EXPECT_EQ(lastError(), Error::busy);
    EXPECT_EQ(openHere(making | open_flag::truncate), -1);
    EXPECT_EQ(openHere(reading, share::denyReadWrite), -1);
    EXPECT_EQ(openStream(path.c_str(), u"rb"), nullptr);
    EXPECT_EQ(openStream(scratch.narrow("file").c_str(), "wb"), nullptr);
    close(alone);
    EXPECT_EQ(scratch.read("file"), "kept") << "a refused opening must not truncate";

    std::FILE* shared = openStream(path.c_str(), u"rb");
    ASSERT_NE(shared, nullptr);
    EXPECT_EQ(openHere(reading, share::denyReadWrite), -1);
    const Descriptor second = openHere(reading);
    EXPECT_GE(second, 0);
    close(second);
    std::fclose(shared);
    const Descriptor last = openHere(reading, share::denyReadWrite);
    EXPECT_GE(last, 0);
    close(last);
}

TEST_F(File, InTextModeGivesBackTheLinesAndInBinaryModeTheBytes) {
    const Descriptor text = openHere(writeOnly | create | open_flag::text);
    EXPECT_EQ(write(text, "a\nb\n", 4), 4);
    close(text);
    const Descriptor again = openHere(readOnly | open_flag::text);
    EXPECT_EQ(rest(again), "a\nb\n");
    close(again);

    const std::string bytes("\r\n\x1a\0\xff\n", 6);
    const Descriptor raw = openHere(making | truncate);
    EXPECT_EQ(write(raw, bytes.data(), bytes.size()), 6);
    close(raw);
    EXPECT_EQ(scratch.read("file"), bytes);
    const Descriptor back = openHere(reading);
    EXPECT_EQ(rest(back), bytes);
    close(back);
}

TEST_F(File, ThatIsTemporaryGoesWhenItIsClosed) {
    const Descriptor file = openHere(readWrite | create | temporary | binary);
    ASSERT_GE(file, 0);
    EXPECT_EQ(write(file, "gone", 4), 4);
    EXPECT_TRUE(scratch.has("file"));
    EXPECT_EQ(seek(file, 0, 0), 0);
    EXPECT_EQ(rest(file), "gone");
    EXPECT_TRUE(close(file));
    EXPECT_FALSE(scratch.has("file"));
}

TEST_F(File, TellsWhyACallFailed) {
    const std::u16string file = scratch.path(u"file"), directory = scratch.path(u"directory"),
                         missing = scratch.path(u"missing"), below = missing + u"\\file";
    scratch.write("file", "old");
    ASSERT_EQ(makeDirectory(directory.c_str()), 0);
    const auto why = [](std::int64_t result) { return result == -1 ? lastError() : Error::none; };
    EXPECT_EQ(why(makeDirectory(directory.c_str())), Error::exists);
    EXPECT_EQ(why(makeDirectory(file.c_str())), Error::exists);
    EXPECT_EQ(why(makeDirectory(below.c_str())), Error::notFound);
    EXPECT_EQ(why(open(directory.c_str(), reading)), Error::denied);
    EXPECT_EQ(why(open(below.c_str(), making)), Error::notFound);
    EXPECT_EQ(why(remove(directory.c_str())), Error::denied);
    EXPECT_EQ(why(unlink(missing.c_str())), Error::notFound);
    EXPECT_EQ(why(removeDirectory(missing.c_str())), Error::notFound);
    EXPECT_EQ(why(rename(missing.c_str(), below.c_str())), Error::notFound);
    EXPECT_EQ(why(rename(file.c_str(), directory.c_str())), Error::exists);
    EXPECT_EQ(why(access(missing.c_str(), 0)), Error::notFound);
    EXPECT_TRUE(scratch.has("file"));
    EXPECT_TRUE(scratch.has("directory"));
}

TEST_F(File, RenamesWithoutEverReplacing) {
    scratch.write("a", "first");
    scratch.write("b", "second");
    const std::u16string a = scratch.path(u"a"), b = scratch.path(u"b"), c = scratch.path(u"c");
    EXPECT_EQ(rename(a.c_str(), b.c_str()), -1);
    EXPECT_EQ(scratch.read("b"), "second");
    EXPECT_EQ(rename(a.c_str(), a.c_str()), 0);
    EXPECT_EQ(rename(a.c_str(), c.c_str()), 0);
    EXPECT_FALSE(scratch.has("a"));
    EXPECT_EQ(scratch.read("c"), "first");
}

TEST_F(File, StatusTellsKindSizeAndTime) {
    scratch.write("file", "12345");
    FileStatus status;
    ASSERT_EQ(stat(scratch.path(u"file").c_str(), &status), 0);
    EXPECT_EQ(status.mode & file_mode::type, file_mode::regular);
    EXPECT_EQ(status.size, 5);
    EXPECT_NEAR(static_cast<double>(status.modifiedTime), static_cast<double>(std::time(nullptr)),
                60.0);
    ASSERT_EQ(stat(scratch.path().c_str(), &status), 0);
    EXPECT_EQ(status.mode & file_mode::type, file_mode::directory);
    status.size = 99;
    EXPECT_EQ(stat(scratch.path(u"missing").c_str(), &status), -1);
    EXPECT_EQ(status.size, 99);
}

TEST_F(File, AnswersNarrowAndWidePathsAlike) {
    const std::string narrow = scratch.narrow("file");
    const Descriptor file = open(narrow.c_str(), making);
    ASSERT_GE(file, 0);
    close(file);
    for (const std::int32_t mode : {0, 2, 4, 6}) {
        EXPECT_EQ(access(narrow.c_str(), mode), 0) << mode;
        EXPECT_EQ(access(scratch.path(u"file").c_str(), mode), 0) << mode;
    }
    EXPECT_EQ(unlink((scratch.root.string() + "\\file").c_str()), 0) << "either separator";
    EXPECT_FALSE(scratch.has("file"));
}

TEST_F(File, IsKnownUnderAllItsNames) {
    scratch.write("file", "1");
    scratch.write("other", "1");
    const std::u16string file = scratch.path(u"file"), other = scratch.path(u"other");
    EXPECT_TRUE(isSameFile(file.c_str(), (scratch.path(u".") + u"\\file").c_str()));
    EXPECT_TRUE(isSameFile(scratch.path().c_str(), scratch.path(u".").c_str()));
    EXPECT_FALSE(isSameFile(file.c_str(), other.c_str()));
    EXPECT_FALSE(isSameFile(scratch.path(u"no").c_str(), scratch.path(u"no").c_str()));
    EXPECT_TRUE(isSameFile(scratch.narrow("file").c_str(), scratch.narrow("file").c_str()));
    std::error_code failed;
    std::filesystem::create_hard_link(scratch.root / "file", scratch.root / "link", failed);
    if (!failed) {
        EXPECT_TRUE(isSameFile(file.c_str(), scratch.path(u"link").c_str()));
    }
    const std::u16string widened = widePath(scratch.narrow("file").c_str());
    EXPECT_TRUE(isSameFile(widened.c_str(), file.c_str()));
}

TEST_F(File, IsMovedByTheSystemFromTheOnePositionToTheOther) {
    scratch.write("file", std::string(100000, 'a') + "tail");
    scratch.write("target", "head----");
    const Descriptor from = openHere(reading);
    const Descriptor to = open(scratch.path(u"target").c_str(), making);
    EXPECT_EQ(seek(from, 10, 0), 10);
    EXPECT_EQ(seek(to, 4, 0), 4);
    const std::int64_t moved = moveRange(from, to);
    EXPECT_TRUE(moved >= 0 && moved <= 99994) << moved;
    EXPECT_EQ(seek(from, 0, 1), 10 + moved);
    EXPECT_EQ(seek(to, 0, 1), 4 + moved);
    close(to);
    EXPECT_EQ(moveRange(from, -1), 0);
    close(from);
    const std::string expected = "head" + std::string(99990, 'a') + "tail";
    const auto end = static_cast<std::size_t>(4 + moved);
    EXPECT_TRUE(scratch.read("target").substr(0, end) == expected.substr(0, end));
}

TEST_F(File, IsFoundFromTheCurrentDirectory) {
    const std::u16string before = currentDirectory();
    ASSERT_FALSE(before.empty());
    scratch.write("file", "here");
    ASSERT_EQ(changeDirectory(scratch.path().c_str()), 0);
    const std::u16string current = currentDirectory();
    const Descriptor file = open(u"file", reading);
    EXPECT_EQ(rest(file), "here");
    close(file);
    EXPECT_EQ(changeDirectory(before.c_str()), 0);
    EXPECT_EQ(current.substr(current.rfind(u'\\') + 1), scratch.root.filename().u16string());
    EXPECT_EQ(currentDirectory(), before);
}

} // namespace
} // namespace platform::test
