// SPDX-License-Identifier: Apache-2.0
// Trees of directories, copied and moved.
#include "tests/zelbasictypes/temporarydirectory.h"
#include "zelbasictypes/files/fileoperations.h"
#include "zelbasictypes/files/pathoperations.h"

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>

namespace {

namespace fs = std::filesystem;

using Tree = std::map<std::string, std::string>;

/// The files below with their contents, and the directories with "/".
Tree treeOf(const fs::path& top) {
    Tree found;
    for (const auto& entry : fs::recursive_directory_iterator(top)) {
        const std::string name = entry.path().lexically_relative(top).generic_string();
        std::ifstream file(entry.path(), std::ios::binary);
        found[name] = entry.is_directory() ? "/" : std::string(std::istreambuf_iterator(file), {});
    }
    return found;
}

class FileTrees : public DirectoryTest {
protected:
    FileTrees() {
        directory.makeDirectory("from/sub/deep");
        directory.makeDirectory("from/empty");
        directory.write("from/file", std::string(5000, 'f'));
        directory.write("from/sub/deep/leaf", "leaf");
    }
    Tree tree(const std::string& name) const { return treeOf(directory.root / name); }
    /// False, and the test is to be skipped, where there are no links.
    bool link(const std::string& name, const std::string& to) const {
        std::error_code failed;
        fs::create_directory_symlink(directory.root / to, directory.root / name, failed);
        return !failed;
    }

    const Tree whole{{"file", std::string(5000, 'f')},
                     {"empty", "/"},
                     {"sub", "/"},
                     {"sub/deep", "/"},
                     {"sub/deep/leaf", "leaf"}};
};

} // namespace

TEST_F(FileTrees, AreCopiedWhole) {
    EXPECT_TRUE(copyTree(path("from"), path("to")));
    EXPECT_EQ(tree("to"), whole);
    EXPECT_TRUE(copyTree(narrow("from").c_str(), narrow("narrow").c_str()));
    EXPECT_EQ(tree("narrow"), whole);
    EXPECT_TRUE(copyTree(KorString(path("from")).append(u'\\'), KorString(path("x")).append(u'\\')))
        << "separators at the end mean nothing";
    EXPECT_EQ(tree("x"), whole);
    EXPECT_TRUE(copyTree(path("from/file"), path("single")));
    EXPECT_EQ(directory.read("single"), whole.at("file"));
    EXPECT_EQ(tree("from"), whole);
}

TEST_F(FileTrees, AreCopiedOverWhatIsThere) {
    directory.makeDirectory("to/kept");
    directory.write("to/file", std::string(9000, 'o'));
    directory.write("to/sub", "in the way");
    EXPECT_TRUE(copyTree(path("from"), path("to")));
    Tree expected = whole;
    expected["kept"] = "/";
    EXPECT_EQ(tree("to"), expected);
}

TEST_F(FileTrees, TellWhichCopiesFailed) {
    directory.makeDirectory("to/file");
    EXPECT_FALSE(copyTree(path("from"), path("to")));
    EXPECT_EQ(directory.read("to/sub/deep/leaf"), "leaf") << "the others are made all the same";
    EXPECT_FALSE(copyTree(path("from"), path("no/such/place")));
    EXPECT_FALSE(copyTree(path("from"), KorString()));
    EXPECT_TRUE(copyTree(path("missing"), path("made")));
    EXPECT_TRUE(copyTree(KorString(), path("made")));
    EXPECT_TRUE(moveTree(path("missing"), path("made")));
    EXPECT_FALSE(directory.has("made"));
}

TEST_F(FileTrees, AreCopiedAndMovedWithNamesThatAreNoUnicode) {
    KorString name = path("from");
    name.append(u'\\').append(static_cast<char16_t>(0xD83D)).append(u'x');
    if (!makeDirectory(name, false)) GTEST_SKIP() << "no such names on this file system";
    EXPECT_TRUE(copyTree(path("from"), path("to")));
    EXPECT_EQ(tree("to"), tree("from"));
    EXPECT_TRUE(removeDirectory(path("to"), true));
    EXPECT_FALSE(directory.has("to"));
}

TEST_F(FileTrees, AreNotCopiedIntoTheirOwnCopy) {
    EXPECT_TRUE(copyTree(path("from"), path("from/sub/copy")));
    EXPECT_EQ(directory.read("from/sub/copy/sub/deep/leaf"), "leaf");
    EXPECT_FALSE(directory.has("from/sub/copy/sub/copy"));
}

TEST_F(FileTrees, WithLinksBackUpComeToAnEnd) {
    if (!link("from/sub/up", "from") || !link("from/also", "from/sub")) {
        GTEST_SKIP() << "no links on this file system";
    }
    EXPECT_TRUE(copyTree(path("from"), path("to")));
    EXPECT_EQ(directory.read("to/sub/deep/leaf"), "leaf");
    EXPECT_EQ(directory.read("to/also/deep/leaf"), "leaf") << "other links are followed";
    EXPECT_FALSE(directory.has("to/sub/up"));
}

TEST_F(FileTrees, MoveByBeingRenamed) {
    EXPECT_TRUE(moveTree(path("from"), path("to")));
    EXPECT_EQ(tree("to"), whole);
    EXPECT_FALSE(directory.has("from"));
    EXPECT_TRUE(moveTree(narrow("to").c_str(), narrow("from").c_str()));
    EXPECT_EQ(tree("from"), whole);
}

TEST_F(FileTrees, MoveIntoADirectoryEntryByEntry) {
    directory.makeDirectory("to/sub");
    directory.write("to/file", "older");
    directory.write("to/empty", "in the way");
    directory.write("to/sub/kept", "1");
    EXPECT_TRUE(moveTree(path("from"), path("to")));
    Tree expected = whole;
    expected["sub/kept"] = "1";
    EXPECT_EQ(tree("to"), expected);
    EXPECT_EQ(tree("from"), (Tree{{"sub", "/"}})) << "what was merged stays behind, empty";
}

TEST_F(FileTrees, TellWhichMovesFailed) {
    directory.makeDirectory("to/file");
    EXPECT_FALSE(moveTree(path("from"), path("to")));
    EXPECT_TRUE(directory.has("from/file"));
    EXPECT_EQ(directory.read("to/sub/deep/leaf"), "leaf");
    directory.write("single", "1");
    EXPECT_FALSE(moveTree(path("single"), path("no/such/place")));
    EXPECT_FALSE(moveTree(path("from"), path("no/such/place")));
}

TEST_F(FileTrees, MovedOntoThemselvesStay) {
    EXPECT_TRUE(moveTree(path("from"), path("from")));
    EXPECT_TRUE(moveTree(path("from"), path("from/sub")));
    EXPECT_TRUE(directory.has("from/sub/file"));
    EXPECT_EQ(directory.read("from/sub/deep/leaf"), "leaf");
    if (!link("alias", "from")) GTEST_SKIP() << "no links on this file system";
    const Tree before = tree("from");
    EXPECT_TRUE(moveTree(path("from"), path("alias")));
    EXPECT_EQ(tree("from"), before);
}

TEST_F(FileTrees, LoseNothingToALinkFromTheSourceToTheTarget) {
    directory.makeDirectory("to");
    directory.write("to/file", "target");
    std::filesystem::remove(directory.root / "from/file");
    if (!link("from/file", "to/file")) GTEST_SKIP() << "no links on this file system";
    EXPECT_TRUE(moveTree(path("from"), path("to")));
    EXPECT_EQ(directory.read("to/file"), "target");
}

TEST_F(FileTrees, MoveFilesThatHaveASecondNameAtTheTarget) {
    directory.makeDirectory("to/sub/deep");
    std::error_code failed;
    fs::create_hard_link(directory.root / "from/file", directory.root / "to/file", failed);
    if (failed) GTEST_SKIP() << "no second names on this file system";
    fs::create_hard_link(directory.root / "from/sub/deep/leaf",
                         directory.root / "to/sub/deep/leaf");
    EXPECT_TRUE(moveTree(path("from"), path("to")));
    EXPECT_EQ(tree("to"), whole);
    EXPECT_EQ(tree("from"), (Tree{{"sub", "/"}, {"sub/deep", "/"}}));
}

TEST_F(FileTrees, AreCopiedToAnotherVolumeAndStay) {
    const fs::path other = fs::path("/dev/shm") / directory.root.filename();
    std::error_code failed;
    fs::create_directory(other, failed);
    if (failed) GTEST_SKIP() << "no other volume";
    fs::rename(directory.root / "from/file", other / "probe", failed);
    if (failed) {
        EXPECT_TRUE(moveTree(path("from"), KorString((other / "to").u16string().c_str())));
        EXPECT_EQ(treeOf(other / "to"), whole);
        EXPECT_TRUE(directory.has("from/file"));
        EXPECT_TRUE(moveTree(path("from/file"), KorString((other / "single").u16string().c_str())));
        EXPECT_TRUE(fs::exists(other / "single"));
        EXPECT_EQ(tree("from"), whole);
    }
    fs::remove_all(other);
    if (!failed) GTEST_SKIP() << "no other volume";
}
