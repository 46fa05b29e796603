// SPDX-License-Identifier: Apache-2.0
// Paths as texts.
#include "zelbasictypes/files/pathoperations.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace {

using Text = std::u16string;

struct Case {
    const char16_t* path;
    const char16_t* expected;
    const char16_t* argument = u"";
};

Text text(const KorString& s) { return Text(s.view()); }

/// Runs an operation that changes its path on each row.
template <std::size_t N>
void expectChanged(const Case (&cases)[N],
                   const std::function<void(KorString&, const KorString&)>& change) {
    for (const Case& c : cases) {
        KorString path(c.path);
        change(path, KorString(c.argument));
        EXPECT_EQ(text(path), c.expected) << KorString(c.path) << " " << KorString(c.argument);
    }
}

/// Runs an operation that tells whether it changes its path on each row.
template <std::size_t N>
void expectChangesTold(const Case (&cases)[N], bool (*change)(KorString&)) {
    expectChanged(cases, [change](KorString& path, const KorString&) {
        const KorString before = path;
        const bool told = change(path);
        EXPECT_EQ(told, !(path == before)) << before;
    });
}

/// Runs an operation with an output on each row, also with the input as its output.
template <std::size_t N>
void expectOutput(const Case (&cases)[N],
                  const std::function<void(const KorString&, KorString&)>& derive) {
    for (const Case& c : cases) {
        const KorString path(c.path);
        KorString out("left over");
        derive(path, out);
        EXPECT_EQ(text(out), c.expected) << path;
        KorString same(path);
        derive(same, same);
        EXPECT_EQ(text(same), c.expected) << path;
    }
}

} // namespace

TEST(PathText, NormalFormHasBackslashesAndNoneAtTheEnd) {
    const Case cases[] = {
        {u"//c/temp/", u"c:\\temp"}, {u"a/b\\", u"a\\b"},       {u"/", u"\\"},
        {u"\\\\\\", u"\\"},          {u"c:\\", u"c:"},          {u"//c/", u"c:"},
        {u"//c", u"\\\\c"},          {u"//cd/e", u"\\\\cd\\e"}, {u"", u""},
        {u"a\\b", u"a\\b"},          {u"/a//b/", u"\\a\\\\b"},
    };
    expectChanged(cases, [](KorString& path, const KorString&) { normalize(path); });
    expectChanged(cases, [](KorString& path, const KorString&) { path = ZelPath(path); });
    expectChanged(cases, [](KorString& path, const KorString&) {
        ZelPath assigned;
        assigned = path;
        path = assigned;
    });
}

TEST(PathText, JoinsWithOneBackslash) {
    const Case cases[] = {
        {u"c:\\a", u"c:\\a\\b", u"b"},
        {u"c:\\a\\", u"c:\\a\\b", u"b"},
        {u"", u"b\\c", u"b/c/"},
        {u"c:", u"c:\\b", u"b"},
        {u"a", u"a"},
        {u"\\", u"\\a", u"a"},
    };
    expectChanged(cases, [](KorString& path, const KorString& name) { join(path, name); });
    expectChanged(cases,
                  [](KorString& path, const KorString& name) { path = ZelPath(path, name); });
}

TEST(PathText, TakesTheNameBehindTheLastSeparator) {
    const Case withExtension[] = {
        {u"c:\\a\\b.tar.gz", u"b.tar.gz"}, {u"file", u"file"}, {u"c:\\a\\", u""}, {u"a/b", u"a/b"}};
    expectOutput(withExtension,
                 [](const KorString& path, KorString& out) { fileName(path, out, true); });
    const Case without[] = {
        {u"c:\\a\\b.tar.gz", u"b.tar"}, {u"c:\\a.b\\c", u"c"}, {u".profile", u""}};
    expectOutput(without,
                 [](const KorString& path, KorString& out) { fileName(path, out, false); });
    const Case base[] = {{u"a/b.txt", u"b"},
                         {u"c:\\x\\.profile", u".profile"},
                         {u"a\\b.c.d", u"b.c"},
                         {u"a.b/", u""}};
    expectOutput(base,
                 [](const KorString& path, KorString& out) { EXPECT_TRUE(baseName(path, out)); });
}

TEST(PathText, TakesTheDirectoryInFront) {
    const Case cases[] = {
        {u"", u"."},    {u"file.txt", u"."}, {u"\\file.txt", u"\\"}, {u"c:\\a\\b", u"c:\\a"},
        {u"a/b", u"a"}, {u"c:\\a", u"c:"}};
    expectOutput(cases, parentDirectory);
}

TEST(PathText, FindsAndChangesTheExtension) {
    const Case found[] = {
        {u"c:\\a.b\\c", u""}, {u"c:\\a\\b.tar.gz", u"gz"}, {u"a.", u""}, {u".igs", u"igs"}};
    expectOutput(found, extension);
    const Case changed[] = {{u"a.txt", u"a.dat", u".dat"},
                            {u"a.txt", u"a.dat", u"dat"},
                            {u"a.txt", u"a"},
                            {u"a.b\\c", u"a.b\\c.d", u"d"},
                            {u"a.b.c", u"a.b.d", u"d"}};
    expectChanged(changed, changeExtension);
    const Case inserted[] = {
        {u"a.txt", u"a_1.txt", u"_1"}, {u"a.b\\c", u"a.b\\c_1", u"_1"}, {u"", u"x", u"x"}};
    expectChanged(inserted, insertBeforeExtension);
}

TEST(PathText, GivesADriveItsRoot) {
    const Case cases[] = {{u"c:", u"c:\\"}, {u"c:\\a", u"c:\\a"}, {u"ab", u"ab"}, {u"", u""}};
    expectOutput(cases, withDriveRoot);
}

TEST(PathText, CollapsesUpStepsThatHaveSomethingInFront) {
    const Case cases[] = {
        {u"a\\b\\..\\c", u"a\\c"},
        {u"\\a\\..\\b", u"\\b"},
        {u"c:\\a\\b\\..\\..\\d", u"c:\\d"},
        {u"x/y/../z", u"x/z"},
        {u"a\\x/y/../z", u"a/z"}, // the last backslash, though a slash is nearer
        {u"a/b/../c\\d\\..\\e", u"a/c\\e"},
        {u"\\a\\..\\..\\b\\..\\c", u"\\..\\b\\..\\c"}, // nothing is left to go up from
        {u"a\\b", u"a\\b"},
        {u"a\\..\\b", u"a\\..\\b"},
        {u"\\..\\b", u"\\..\\b"},
        {u"a\\b\\..", u"a\\b\\.."},
    };
    expectChangesTold(cases, collapseDots);
}

TEST(PathText, ReplacesWhiteSpaceOfTheLastComponentOnly) {
    const Case cases[] = {
        {u"a b\\c d\te", u"a b\\c_d_e"}, {u"a b/ c", u"a b/_c"}, {u"a b\\c", u"a b\\c"}};
    expectChangesTold(cases, replaceSpaces);
    KorString all(u" a\t\\ b ");
    stripSpaces(all);
    EXPECT_EQ(text(all), u"a\\b");
}

TEST(PathText, KnowsAbsolutePaths) {
    for (const char16_t* path : {u"\\a", u"\\", u"c:\\a", u"Z:"}) {
        EXPECT_TRUE(isAbsolute(path)) << KorString(path);
        EXPECT_FALSE(isRelative(path)) << KorString(path);
    }
    for (const char16_t* path : {u"", u"a", u"/a", u"1:\\a", u"..\\a"}) {
        EXPECT_FALSE(isAbsolute(path)) << KorString(path);
        EXPECT_TRUE(isRelative(path)) << KorString(path);
    }
    EXPECT_TRUE(isAbsolute(rootPath()));
}

TEST(PathText, ComparesWithoutRegardToCase) {
    EXPECT_TRUE(pathEqual(u"C:\\Temp", u"c:\\tEMP"));
    EXPECT_FALSE(pathEqual(u"c:\\temp", u"c:\\temp2"));
    EXPECT_TRUE(pathNotEqual(u"a", u"b"));
}
