// SPDX-License-Identifier: Apache-2.0
// Paths on a real file system, and the walk over a directory.
#include "tests/zelbasictypes/temporarydirectory.h"
#include "zelbasictypes/files/pathoperations.h"
#include "zelbasictypes/files/zeldiriterator.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>

namespace {

class PathFiles : public DirectoryTest {
protected:
    /// Name, kind and size of the entries of a walk.
    std::map<std::string, std::string> walk(const std::string& name, bool skipDots) const {
        const KorString path = directory.path(name);
        std::map<std::string, std::string> found;
        ZelDirIterator entries(&path, skipDots);
        for (entries.begin(); !entries.isDone(); entries.next()) {
            const ZelDirEntry& entry = entries.entry();
            KorString own;
            fileName(entry.path(), own, true);
            std::string kind = entry.isDirectory() ? "d" : entry.isRegular() ? "f" : "?";
            if (entry.isRegular()) kind += std::to_string(entry.size());
            if (entry.isDot()) kind += " dot";
            if (entry.isDotDot()) kind += " dots";
            EXPECT_TRUE(found.emplace(own.toUtf8(), kind).second);
        }
        return found;
    }
};

using Entries = std::map<std::string, std::string>;

} // namespace

TEST_F(PathFiles, TellsFilesFromDirectories) {
    directory.write("file", "1");
    const KorString file = directory.path("file");
    EXPECT_TRUE(isFile(file));
    EXPECT_FALSE(isDirectory(file));
    EXPECT_TRUE(isDirectory(directory.path()));
    EXPECT_FALSE(isFile(directory.path()));
    EXPECT_FALSE(isFile(directory.path("missing")));
    EXPECT_FALSE(isDirectory(directory.path("missing")));
    EXPECT_TRUE(isFile(narrow("file").c_str()));
    EXPECT_TRUE(isDirectory(directory.root.string().c_str()));
    EXPECT_FALSE(isDirectory(narrow("file").c_str()));
    EXPECT_TRUE(isDirectory(KorString("c:")));
}

TEST_F(PathFiles, MovesAndRemovesFiles) {
    directory.write("a", "1");
    EXPECT_TRUE(renamePath(directory.path("a"), directory.path("b")));
    EXPECT_FALSE(renamePath(directory.path("a"), directory.path("c")));
    EXPECT_TRUE(renamePath(narrow("b").c_str(), narrow("c").c_str()));
    EXPECT_EQ(removeFile(directory.path("c")), 0);
    EXPECT_EQ(removeFile(directory.path("c")), -1);
    directory.write("d", "1");
    EXPECT_EQ(removeFile(narrow("d").c_str()), 0);
    EXPECT_TRUE(directory.isEmpty());
}

TEST_F(PathFiles, MakesDirectoriesWithWhatIsMissingAbove) {
    EXPECT_TRUE(makeDirectory(directory.path("one"), false));
    EXPECT_TRUE(makeDirectory(directory.path("one"), false));
    EXPECT_FALSE(makeDirectory(directory.path("x/y"), false));
    EXPECT_TRUE(makeDirectory(directory.path("x/y/z"), true));
    EXPECT_TRUE(makeDirectory(directory.path("x/y/z"), true));
    EXPECT_TRUE(directory.has("x/y/z"));
    EXPECT_TRUE(makeDirectory(narrow("u/v").c_str(), true));
    EXPECT_TRUE(directory.has("u/v"));
    directory.write("file", "1");
    EXPECT_FALSE(makeDirectory(directory.path("file/below/it"), true));
}

TEST_F(PathFiles, RemovesDirectoriesWithWhatIsBelow) {
    directory.makeDirectory("top/a/b");
    directory.write("top/a/b/file", "1");
    directory.write("top/other", "1");
    EXPECT_FALSE(removeDirectory(directory.path("top"), false));
    EXPECT_TRUE(directory.has("top/a/b/file"));
    EXPECT_TRUE(removeDirectory(directory.path("top"), true));
    EXPECT_FALSE(directory.has("top"));
    EXPECT_FALSE(removeDirectory(directory.path("top"), true));
    EXPECT_FALSE(removeDirectory(KorString(), true));

    directory.makeDirectory("narrow/a/b");
    EXPECT_FALSE(removeDirectory(narrow("narrow").c_str(), false));
    EXPECT_TRUE(removeDirectory(narrow("narrow/a/b").c_str(), false));
    EXPECT_TRUE(removeDirectory(narrow("narrow").c_str(), true));
    EXPECT_TRUE(directory.isEmpty());
}

TEST_F(PathFiles, RemovesALinkAndNotWhatItPointsAt) {
    directory.makeDirectory("kept");
    directory.write("kept/file", "1");
    directory.makeDirectory("top");
    std::error_code failed;
    std::filesystem::create_directory_symlink(directory.root / "kept",
                                              directory.root / "top" / "link", failed);
    if (failed) GTEST_SKIP() << "no links on this file system";
    EXPECT_TRUE(removeDirectory(directory.path("top"), true));
    EXPECT_FALSE(directory.has("top"));
    EXPECT_TRUE(directory.has("kept/file"));
}

TEST_F(PathFiles, ResolvesLeadingDotsAgainstTheCurrentDirectory) {
    directory.makeDirectory("x/y");
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(directory.root / "x" / "y");
    const std::pair<const char16_t*, KorString> cases[] = {
        {u"..\\z", directory.path("x/z")},   {u"..\\..\\z\\w", directory.path("z/w")},
        {u".\\z", directory.path("x/y/z")},  {u".\\..\\z", directory.path("x/z")},
        {u"z/w", directory.path("x/y/z/w")}, {u"\\z", KorString("\\z")},
        {u"c:\\z", KorString("c:\\z")},
    };
    for (const auto& [relative, expected] : cases) {
        KorString path(relative);
        makeAbsolute(path);
        EXPECT_TRUE(path == expected) << path << " " << expected;
    }
    std::filesystem::current_path(before);
}

TEST_F(PathFiles, WalksOneDirectory) {
    directory.makeDirectory("d/sub/below");
    directory.makeDirectory("empty");
    directory.write("d/file", "12345");
    directory.write("d/.b", "1");
    const std::string umlaut = "d/\xC3\xA4";
    directory.write(umlaut, "");
    Entries expected{{"sub", "d"}, {"file", "f5"}, {".b", "f1"}, {"\xC3\xA4", "f0"}};
    EXPECT_EQ(walk("d", true), expected);
    expected.insert({{".", "d dot"}, {"..", "d dots"}});
    EXPECT_EQ(walk("d", false), expected);
    EXPECT_EQ(walk("empty", true), Entries{});
    EXPECT_EQ(walk("empty", false).size(), 2U);
    EXPECT_EQ(walk("missing", false), Entries{});

    EXPECT_EQ(entryCount(directory.path("d")), 6);
    EXPECT_EQ(totalSize(directory.path("d")), 6);
}

TEST_F(PathFiles, JoinsTheDirectoryAsItIsWrittenWithEachName) {
    directory.makeDirectory("d");
    directory.write("d/file", "12345");
    const std::u16string normal(directory.path("d").view());
    std::u16string slashes = normal;
    std::replace(slashes.begin(), slashes.end(), u'\\', u'/');
    for (const std::u16string& form :
         {normal, normal + u'\\', slashes, slashes + u'/', normal + u"\\.", normal + u"\\\\"}) {
        const KorString walked(form.c_str());
        const ZelDirEntry expected(walked, KorString("file"));
        ZelDirIterator entries(&walked);
        entries.begin();
        ASSERT_FALSE(entries.isDone()) << walked;
        EXPECT_TRUE(entries.entry().path() == expected.path()) << entries.entry().path();
        EXPECT_EQ(entries.entry().stat().size, 5) << walked;
        EXPECT_EQ(entries.entry().stat().modifiedTime, expected.stat().modifiedTime);
    }
}

TEST_F(PathFiles, KeepsEntriesWhoseStateCannotBeRead) {
    std::error_code failed;
    std::filesystem::create_symlink(directory.root / "missing", directory.root / "dangling",
                                    failed);
    if (failed) GTEST_SKIP() << "no links on this file system";
    EXPECT_EQ(walk("", true), (Entries{{"dangling", "?"}}));
    const ZelDirEntry entry(directory.path(), KorString("dangling"));
    EXPECT_FALSE(entry.exists());
    EXPECT_EQ(entry.size(), 0);
    EXPECT_EQ(entry.stat().mode, 0U);
}
