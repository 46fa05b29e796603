// SPDX-License-Identifier: Apache-2.0
// Streams of the runtime library over our paths.
#include "platform/file.h"

#include "tests/support/scratch.h"

#include <gtest/gtest.h>

#include <string>

namespace platform::test {
namespace {

struct Mode {
    const char* mode;
    bool exists;
    const char* content; ///< after writing "+"; null when the opening is refused
};

std::string nameOf(const Mode& mode) {
    std::string name = mode.exists ? "Existing_" : "Missing_";
    for (const char* c = mode.mode; *c; ++c)
        name += *c == '+' ? std::string("Plus") : std::string(1, *c);
    return name;
}

void PrintTo(const Mode& mode, std::ostream* out) { *out << mode.mode; }

class Modes : public testing::TestWithParam<Mode> {
protected:
    Scratch scratch;
};

TEST_P(Modes, OpenAsTheRuntimeLibraryDoes) {
    const auto& [mode, exists, content] = GetParam();
    if (exists) scratch.write("file", "old");
    const std::u16string wideMode(mode, mode + std::string(mode).size());
    std::FILE* stream = openStream(scratch.path(u"file").c_str(), wideMode.c_str());
    ASSERT_EQ(stream != nullptr, content != nullptr);
    if (!stream) return;
    std::fputs("+", stream);
    std::fclose(stream);
    EXPECT_EQ(scratch.read("file"), content);
}

INSTANTIATE_TEST_SUITE_P(, Modes,
                         testing::Values(Mode{"rb", false, nullptr}, Mode{"rb", true, "old"},
                                         Mode{"r+b", true, "+ld"}, Mode{"rb+", false, nullptr},
                                         Mode{"wb", true, "+"}, Mode{"w", false, "+"},
                                         Mode{"w+b", true, "+"}, Mode{"ab", true, "old+"},
                                         Mode{"wxb", true, nullptr}, Mode{"wxb", false, "+"},
                                         Mode{"xb", false, nullptr}, Mode{"", false, nullptr},
                                         Mode{"a+", false, "+"}),
                         [](const auto& given) { return nameOf(given.param); });

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

TEST(Stream, MayBeTemporary) {
    const Scratch scratch;
    std::FILE* stream = openStream(scratch.path(u"file").c_str(), u"w+bD");
    ASSERT_NE(stream, nullptr);
    std::fputs("text", stream);
    std::rewind(stream);
    EXPECT_EQ(std::fgetc(stream), 't');
    std::fclose(stream);
    EXPECT_FALSE(scratch.has("file"));
}

} // namespace
} // namespace platform::test
