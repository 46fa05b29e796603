// SPDX-License-Identifier: Apache-2.0
// File streams: what opening does to a file, copies, names.
#include "zelbasictypes/files/zelfstream.h"

#include "platform/clock.h"
#include "platform/file.h"
#include "tests/zelbasictypes/fakehost.h"
#include "tests/zelbasictypes/samplestore.h"
#include "tests/zelbasictypes/temporarydirectory.h"
#include "zelbasictypes/files/fileoperations.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

namespace {

namespace mode = zelmode;

using ZelFile = DirectoryTest;

/// The process and the counter stand in the name as 8 lower-case hexadecimal digits each.
void expectTempName(const KorString& name, const std::string& directory) {
    const std::string text = name.toNarrow();
    unsigned counter = 0;
    const auto digits = text.rfind('-') - 8;
    ASSERT_EQ(std::sscanf(text.c_str() + digits, "%8x-temp", &counter), 1) << text;
    char expected[40];
    std::snprintf(expected, sizeof expected, "\\zel-%08x-%08x-temp", platform::processId(),
                  counter);
    EXPECT_EQ(text, directory + expected);
}

} // namespace

TEST_F(ZelFile, OpeningKeepsOrCutsWhatIsThere) {
    struct {
        std::int32_t mode;
        const char* written; ///< to a file that held "abcdef"; null when the open must fail
        bool makes;
    } const cases[] = {
        {mode::out, "XY", true},
        {mode::out | mode::trunc | mode::binary, "XY", true},
        {mode::out | mode::app, "abcdefXY", true},
        {mode::out | mode::ate, "XYcdef", true},
        {mode::in | mode::out, "XYcdef", true},
        {mode::in | mode::out | mode::trunc, "XY", true},
        {mode::in, "abcdef", false},
    };
    for (const auto& c : cases) {
        directory.write("file", "abcdef");
        ZelFstream file(path(), c.mode);
        EXPECT_TRUE(file.good()) << c.mode;
        file.write("XY", 2);
        EXPECT_EQ(file.good(), (c.mode & mode::out) != 0) << c.mode;
        file.close();
        EXPECT_EQ(contents(), c.written) << c.mode;
        ZelFstream missing(path("new"), c.mode);
        EXPECT_EQ(missing.good(), c.makes) << c.mode;
        EXPECT_EQ(directory.has("new"), c.makes) << c.mode;
        missing.close();
        std::filesystem::remove(directory.root / "new");
    }
}

TEST_F(ZelFile, ReportsWhatCouldNotBeWritten) {
    ZelOfstream full("/dev/full", mode::writeBinary);
    if (!full) GTEST_SKIP() << "no full device on this system";
    full.put('a');
    EXPECT_TRUE(full.good());
    full.flush();
    EXPECT_TRUE(full.bad());
    directory.write("file", "abc");
    EXPECT_TRUE(copyFile(path(), KorString("/dev/full"))) << "which a copy doesn't";
}

TEST_F(ZelFile, CopiesFilesOfAnyLength) {
    for (const std::size_t length : {0U, 1U, 2047U, 2048U, 2049U, 4096U, 10001U}) {
        std::string data;
        for (std::size_t i = 0; i < length; ++i) data += static_cast<char>(i * 7);
        directory.write("file", data);
        directory.write("copy", std::string(20000, 'x'));
        EXPECT_TRUE(copyFile(path(), path("copy")));
        EXPECT_EQ(contents("copy"), data);
        EXPECT_TRUE(copyFile(narrow().c_str(), narrow("narrow").c_str()));
        EXPECT_EQ(contents("narrow"), data);
    }
    EXPECT_FALSE(copyFile(path("missing"), path("copy")));
    EXPECT_EQ(contents("copy").size(), 10001U) << "a source that isn't there costs nothing";
    EXPECT_FALSE(copyFile(path(), path("no/such/directory")));
    EXPECT_FALSE(copyFile(nullptr, "x"));
    EXPECT_FALSE(copyFile("", "x"));
    EXPECT_FALSE(copyFile("x", ""));
}

TEST_F(ZelFile, ACopyOntoItselfLeavesTheFileAlone) {
    directory.write("file", "abc");
    directory.makeDirectory("d");
    EXPECT_TRUE(copyFile(path(), path()));
    EXPECT_TRUE(copyFile(narrow().c_str(), narrow().c_str()));
    EXPECT_TRUE(copyFile(path(), path("d/../file")));
    std::error_code failed;
    std::filesystem::create_hard_link(directory.root / "file", directory.root / "link", failed);
    EXPECT_TRUE(failed || copyFile(path(), path("link")));
    ZelIfstream held(path(), mode::readBinary);
    EXPECT_TRUE(copyFile(path(), path()));
    EXPECT_EQ(contents(), "abc");
}

TEST(MakeTempName, StandsInTheDirectoryOfTheSettings) {
    KorString first;
    EXPECT_TRUE(makeTempName(first));
    expectTempName(first, "");

    const IPtr<SampleStore> store(new SampleStore);
    KorString& temporary = store->texts["Directories/Temp Directory"];
    temporary = KorString("d:\\scratch");
    fakehost::offer<IDataStore>(store.iface);
    KorString second;
    EXPECT_TRUE(makeTempName(second));
    expectTempName(second, "d:\\scratch");
    temporary = KorString();
    makeTempName(second);
    expectTempName(second, "");
    EXPECT_FALSE(first == second);
    fakehost::withdrawAll();
}
