// SPDX-License-Identifier: Apache-2.0
// File streams: what opening does to a file, the two directions of the buffer, copies, names.
#include "zelbasictypes/files/zelfstream.h"

#include "component/objects/queryinterface.h"
#include "component/objects/services/idatastore.h"
#include "platform/clock.h"
#include "platform/file.h"
#include "tests/zelbasictypes/fakehost.h"
#include "tests/zelbasictypes/temporarydirectory.h"
#include "zelbasictypes/diagnostics/zelassert.h"
#include "zelbasictypes/files/fileoperations.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

namespace {

constexpr int eof = std::char_traits<char>::eof();
namespace mode = zelmode;

class ZelFile : public testing::Test {
protected:
    KorString path(const std::string& name = "file") const { return directory.path(name); }
    std::string contents(const std::string& name = "file") const { return directory.read(name); }

    TemporaryDirectory directory;
};

/// Settings with a directory for temporary files.
class Store : public IDataStore {
public:
    void qi(const char* name, void** result, std::int32_t) override {
        zelAnswerQuery<IDataStore>(this, className(), name, result);
    }
    const char* className() override { return "Store"; }
    std::int32_t getBool(const char*, std::int32_t fallback) override { return fallback; }
    double getDouble(const char*, double fallback) override { return fallback; }
    const KorString* getString(const char* key, const KorString* fallback) override {
        return std::string(key) == "Directories/Temp Directory" ? &temporary : fallback;
    }
    void subscribe(const char*, IZelDataReceiver*) override {}

    KorString temporary{"d:\\scratch"};
};

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

TEST_F(ZelFile, AFailedOpenIsSeenInTheStateAndMayBeTriedAgain) {
    directory.write("file", "abc");
    ZelIfstream file(path("missing"), mode::readBinary);
    EXPECT_TRUE(file.bad());
    EXPECT_TRUE(file.fail());
    file.clear();
    file.open(path(), mode::readBinary);
    EXPECT_EQ(file.get(), 'a');
    const std::string narrow = (directory.root / "file").string();
    ZelIfstream other(narrow.c_str(), mode::readBinary);
    EXPECT_EQ(other.get(), 'a');
}

TEST_F(ZelFile, AModeWithoutDirectionIsAnAssertion) {
    std::string heard;
    zelSetAssertHandler([](void* context, const char* expression, const char*,
                           std::int32_t) { *static_cast<std::string*>(context) = expression; },
                        &heard);
    ZelFdStreambuf buffer;
    EXPECT_EQ(buffer.open(path(), mode::binary | mode::trunc), nullptr);
    zelSetAssertHandler(nullptr, nullptr);
    EXPECT_EQ(heard, "0");
    EXPECT_FALSE(directory.has("file"));
}

TEST_F(ZelFile, AnOpenBufferKeepsItsFile) {
    directory.write("file", "abc");
    directory.write("other", "xyz");
    ZelFdStreambuf buffer;
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

TEST_F(ZelFile, CharactersOfOneDirectionShutTheOtherOutUntilASeek) {
    directory.write("file", "abcdef");
    ZelFdStreambuf buffer;
    buffer.open(path(), mode::in | mode::out | mode::binary);
    EXPECT_EQ(buffer.sgetc(), 'a');
    EXPECT_EQ(buffer.sputc('X'), eof);
    EXPECT_EQ(buffer.pubseekoff(2, std::ios_base::beg), std::streampos(2));
    EXPECT_EQ(buffer.sputc('X'), 'X');
    EXPECT_EQ(buffer.sgetc(), eof);
    EXPECT_EQ(buffer.sbumpc(), eof);
    EXPECT_EQ(buffer.pubseekpos(0), std::streampos(0));
    EXPECT_EQ(contents(), "abXdef");
    EXPECT_EQ(buffer.sgetc(), 'a');
    EXPECT_EQ(buffer.sputn("YZ", 2), 2);
    EXPECT_EQ(contents(), "abXdefYZ");
}

TEST_F(ZelFile, ReadsEveryByteAndThenTheEnd) {
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
    EXPECT_EQ(peeked.sgetc(), eof);
    ZelFdStreambuf bumped;
    bumped.open(path(), mode::readBinary);
    for (const char c : all) ASSERT_EQ(bumped.sbumpc(), static_cast<unsigned char>(c));
    EXPECT_EQ(bumped.sbumpc(), eof);
    ZelIfstream file(path(), mode::readBinary);
    std::string block(all.size() + 10, '\0');
    file.read(block.data(), static_cast<std::streamsize>(block.size()));
    EXPECT_EQ(file.gcount(), static_cast<std::streamsize>(all.size()));
    EXPECT_EQ(block.substr(0, all.size()), all);
}

TEST_F(ZelFile, PutsBackWhatItHasRead) {
    directory.write("file", "abc");
    ZelFdStreambuf buffer;
    buffer.open(path(), mode::readBinary);
    EXPECT_EQ(buffer.sgetc(), 'a');
    EXPECT_EQ(buffer.in_avail(), 3);
    buffer.sbumpc();
    EXPECT_EQ(buffer.sputbackc('a'), 'a');
    buffer.sbumpc();
    EXPECT_EQ(buffer.sputbackc('z'), eof);
    buffer.pubseekpos(2);
    EXPECT_EQ(buffer.sungetc(), 'b');
    buffer.pubseekpos(0);
    EXPECT_EQ(buffer.sungetc(), eof);
}

TEST_F(ZelFile, WritesCharactersByTheFullBuffer) {
    const std::pair<std::int64_t, std::size_t> cases[] = {{0, 1024}, {1, 1}, {2, 2}, {7, 7}};
    for (const auto& [wanted, step] : cases) {
        ZelFdStreambuf buffer;
        if (wanted) buffer.setBufferSize(wanted);
        ASSERT_EQ(buffer.open(path(), mode::writeBinary), &buffer);
        std::string all;
        for (std::size_t i = 0; i < 2 * step + 1; ++i) {
            all += static_cast<char>('a' + i % 26);
            ASSERT_EQ(buffer.sputc(all.back()), all.back());
            ASSERT_EQ(contents().size(), all.size() / step * step) << wanted;
        }
        EXPECT_EQ(buffer.pubsync(), 0);
        EXPECT_EQ(contents(), all);
        buffer.sputc('!');
        buffer.close();
        EXPECT_EQ(contents(), all + "!");
    }
}

TEST_F(ZelFile, WorksOnABufferOfTheCaller) {
    char area[4];
    ZelFdStreambuf buffer;
    EXPECT_EQ(buffer.setBuffer(area, sizeof area), &buffer);
    buffer.setBufferSize(100);
    buffer.open(path(), mode::writeBinary);
    for (const char c : std::string("abcde")) buffer.sputc(c);
    EXPECT_EQ(contents(), "abcd");
    EXPECT_EQ(area[1], 'b');
}

TEST_F(ZelFile, ReportsWhatCouldNotBeWritten) {
    ZelOfstream full("/dev/full", mode::out | mode::ate);
    if (!full) GTEST_SKIP() << "no full device on this system";
    full.put('a');
    EXPECT_TRUE(full.good());
    full.flush();
    EXPECT_TRUE(full.bad());
    for (int i = 0; i < 5000; ++i) full.rdbuf()->sputc('x');
}

TEST_F(ZelFile, CopiesFilesOfAnyLength) {
    for (const std::size_t length : {0U, 1U, 2047U, 2048U, 2049U, 4096U, 10001U}) {
        std::string data;
        for (std::size_t i = 0; i < length; ++i) data += static_cast<char>(i * 7);
        directory.write("file", data);
        directory.write("copy", std::string(20000, 'x'));
        EXPECT_TRUE(copyFile(path(), path("copy")));
        EXPECT_EQ(contents("copy"), data);
        const std::string from = (directory.root / "file").string();
        const std::string to = (directory.root / "narrow").string();
        EXPECT_TRUE(copyFile(from.c_str(), to.c_str()));
        EXPECT_EQ(contents("narrow"), data);
    }
    EXPECT_FALSE(copyFile(path("missing"), path("copy")));
    EXPECT_FALSE(copyFile(path(), path("no/such/directory")));
    EXPECT_FALSE(copyFile(nullptr, "x"));
    EXPECT_FALSE(copyFile("", "x"));
    EXPECT_FALSE(copyFile("x", ""));
}

TEST_F(ZelFile, ACopyOntoItselfLeavesTheFileAlone) {
    directory.write("file", "abc");
    directory.makeDirectory("d");
    EXPECT_TRUE(copyFile(path(), path()));
    const std::string narrow = (directory.root / "file").string();
    EXPECT_TRUE(copyFile(narrow.c_str(), narrow.c_str()));
    EXPECT_TRUE(copyFile(path(), path("d/../file")));
    std::error_code failed;
    std::filesystem::create_hard_link(directory.root / "file", directory.root / "link", failed);
    EXPECT_TRUE(failed || copyFile(path(), path("link")));
    ZelIfstream held(path(), mode::readBinary);
    EXPECT_TRUE(copyFile(path(), path()));
    EXPECT_EQ(contents(), "abc");
}

TEST_F(ZelFile, OpensStreamsOfTheRuntimeLibrary) {
    EXPECT_EQ(zelOpenFile(KorString(), "rb"), nullptr);
    EXPECT_EQ(zelOpenFile(path("missing"), "rb"), nullptr);
    std::FILE* file = zelOpenFile(path(), "wb");
    ASSERT_NE(file, nullptr);
    std::fputs("abc", file);
    std::fclose(file);
    EXPECT_EQ(contents(), "abc");
}

TEST(MakeTempName, StandsInTheDirectoryOfTheSettings) {
    KorString first;
    EXPECT_TRUE(makeTempName(first));
    expectTempName(first, "");

    Store store;
    store.addRef();
    fakehost::offer<IDataStore>(&store);
    KorString second;
    EXPECT_TRUE(makeTempName(second));
    expectTempName(second, "d:\\scratch");
    store.temporary = KorString();
    makeTempName(second);
    expectTempName(second, "");
    EXPECT_FALSE(first == second);
    fakehost::withdrawAll();
    store.releaseNoDelete();
}
