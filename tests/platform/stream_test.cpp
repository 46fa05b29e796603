// SPDX-License-Identifier: Apache-2.0
// Streams of the runtime library over our paths.
#include "platform/file.h"

#include "tests/support/scratch.h"

#include <gtest/gtest.h>

#include <string>

namespace platform::test {
namespace {

TEST(Stream, OpensInEachModeAsTheRuntimeLibraryDoes) {
    const struct {
        std::string mode;
        bool exists;
        const char* content; ///< after writing "+"; null when the opening is refused
        bool isTemporary = false;
    } modes[] = {{"rb", false, nullptr},  {"rb", true, "old"},      {"r+b", true, "+ld"},
                 {"rb+", false, nullptr}, {"wb", true, "+"},        {"w", false, "+"},
                 {"w+b", true, "+"},      {"ab", true, "old+"},     {"wxb", true, nullptr},
                 {"wxb", false, "+"},     {"xb", false, nullptr},   {"", false, nullptr},
                 {"a+", false, "+"},      {"w+bD", false, "", true}};
    for (const auto& [mode, exists, content, isTemporary] : modes) {
        SCOPED_TRACE(mode + (exists ? " of an existing file" : " of a missing file"));
        const Scratch scratch;
        if (exists) scratch.write("file", "old");
        const std::u16string wideMode(mode.begin(), mode.end());
        std::FILE* stream = openStream(scratch.path(u"file").c_str(), wideMode.c_str());
        EXPECT_EQ(stream != nullptr, content != nullptr);
        if (!stream) continue;
        std::fputs("+", stream);
        std::rewind(stream);
        EXPECT_EQ(std::fgetc(stream) != EOF, mode[0] == 'r' || mode.find('+') != mode.npos);
        std::fclose(stream);
        EXPECT_EQ(scratch.has("file"), !isTemporary);
        EXPECT_EQ(scratch.read("file"), content ? content : "");
    }
}

TEST(Stream, ReopenedGoesOnInTheOtherFile) {
    const Scratch scratch;
    std::FILE* stream = openStream(scratch.narrow("first").c_str(), "wb");
    ASSERT_NE(stream, nullptr);
    std::fputs("one", stream);
    std::FILE* again = reopenStream(scratch.path(u"second").c_str(), u"wb", stream);
    ASSERT_EQ(again, stream);
    std::fputs("two", again);
    const Descriptor alone =
        open(scratch.path(u"second").c_str(), open_flag::readOnly, share::denyReadWrite);
    EXPECT_EQ(alone, -1) << "the reopened stream is an opener like any other";
    std::fclose(again);
    EXPECT_EQ(scratch.read("first"), "one");
    EXPECT_EQ(scratch.read("second"), "two");

    std::FILE* lost = openStream(scratch.path(u"third").c_str(), u"wb");
    std::fputs("three", lost);
    EXPECT_EQ(reopenStream(scratch.path(u"no\\file").c_str(), u"wb", lost), nullptr);
    EXPECT_EQ(lastError(), Error::notFound);
    EXPECT_EQ(scratch.read("third"), "three") << "closed all the same";
}

} // namespace
} // namespace platform::test
