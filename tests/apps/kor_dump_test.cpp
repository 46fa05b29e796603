// SPDX-License-Identifier: Apache-2.0
// kor-dump as a process, on sound files and on others.
#include "tests/apps/programrun.h"
#include "tests/support/folder.h"
#include "tests/zelbasictypes/modelbytes.h"
#include "tests/zelbasictypes/sampleguid.h"

#include <QElapsedTimer>

#include <nlohmann/json.hpp>

namespace {

using apps::ProgramResult;
using Json = nlohmann::json;

const char* const sampleText = "{01ab2345-6789-00cd-ef01-00456789abcd}";

class KorDump : public testing::Test {
protected:
    static ProgramResult run(const QStringList& words) { return apps::runProgram(KOR_DUMP, words); }
    QString path() const { return folder.path("file"); }
    QString write(const Bytes& bytes) const {
        return folder.write(
            "file", {reinterpret_cast<const char*>(bytes.data()), static_cast<int>(bytes.size())});
    }
    Json json(const Bytes& bytes, int status = 0) {
        const ProgramResult result = run({"--json", write(bytes)});
        EXPECT_EQ(result.status, status) << result.errors;
        return Json::parse(result.output);
    }

    testsupport::Folder folder;
};

/// Of the entries of one kind.
std::vector<Json> offsets(const Json& dump, const char* kind) {
    std::vector<Json> result;
    for (const Json& entry : dump) {
        if (entry["kind"] == kind) result.push_back(entry["offset"]);
    }
    return result;
}

TEST_F(KorDump, ShowsTheTreeAsText) {
    const Bytes vector = block(true, 0x10000, 0, bytes("3FF0000000000000") + Bytes(16));
    const Bytes object =
        block(true, 0x0B0002, 3, guidBytes(sampleGuid) + bytes("00000007") + vector);
    const ProgramResult result = run({write(modelFile(true, object + block(true, 5, 9, {})))});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(result.output, "0: 4B4F52 file, version 1, length 92\n"
                             "  12: 0B0002 object, version 3, length 68, " +
                                 std::string(sampleText) +
                                 "\n"
                                 "    40: 4 plain bytes, 00 00 00 07\n"
                                 "    44: 010000 vector, version 0, length 36 = [1.0,0.0,0.0]\n"
                                 "  80: 000005, version 9, length 12\n");
}

TEST_F(KorDump, ShowsEveryKindOfValue) {
    const Bytes one = bytes("3FF0000000000000");
    const struct {
        std::uint32_t tag;
        const char* kind;
        Bytes content;
        Json value;
    } cases[] = {
        {0x10000, "vector", one + one + one, {1.0, 1.0, 1.0}},
        {0x10003, "narrow text", bytes("61 C3 A4 0A FF"), "a\u00E4\n\uFFFD"},
        {0x10004, "matrix", Bytes(128), std::vector<double>(16)},
        {0x10005, "wide text", bytes("0061 20AC D83D DE00 D83D"), "a\u20AC\U0001F600\uFFFD"},
        {0x10005, "wide text", {}, ""},
        {0x10007, "four doubles", Bytes(24) + one, {0.0, 0.0, 0.0, 1.0}},
        {0x10008, "identifier", guidBytes(sampleGuid), sampleText},
        {0x10009, "pair of doubles", one + bytes("7FF8000000000000"), {1.0, nullptr}},
        {0x10010, "pair of floats", bytes("3F800000 BF000000"), {1.0, -0.5}},
    };
    for (const bool wide : {false, true}) {
        for (const auto& c : cases) {
            const Json dump = json(modelFile(wide, block(wide, c.tag, 0, c.content)));
            ASSERT_EQ(dump.size(), 2u) << c.kind;
            EXPECT_EQ(dump[1]["kind"], c.kind);
            EXPECT_EQ(dump[1]["tag"], c.tag);
            EXPECT_EQ(dump[1]["depth"], 1);
            EXPECT_EQ(dump[1]["offset"], wide ? 12 : 8);
            EXPECT_EQ(dump[1]["value"], c.value) << dump[1];
        }
    }
    const Json text = json(modelFile(true, block(true, 0x10003, 0, Bytes(10000, 'x'))));
    EXPECT_EQ(text[1]["value"], std::string(4096, 'x'));
    EXPECT_EQ(text[1]["units"], 10000);
}

TEST_F(KorDump, SaysWhereBlocksAreDamagedAndGoesOnBehindThem) {
    const Bytes vector = block(true, 0x10000, 0, Bytes(24));
    const Bytes sound = modelFile(true, vector + vector + vector);
    for (const std::uint64_t length : {std::uint64_t{0}, std::uint64_t{11}, std::uint64_t{35},
                                       std::uint64_t{1000}, ~std::uint64_t{0}}) {
        Bytes file = sound;
        setLength(file, 48, true, length);
        const ProgramResult result = run({write(file)});
        EXPECT_EQ(result.status, 3) << length;
        EXPECT_NE(result.errors.find("at byte 48 of " + path().toStdString()), std::string::npos)
            << result.errors;
        EXPECT_EQ(offsets(json(file, 3), "vector"), (std::vector<Json>{12, 84})) << length;
        EXPECT_EQ(offsets(json(file, 3), "damage"), (std::vector<Json>{48})) << length;
    }
    const Json whole = json(sound);
    EXPECT_EQ(offsets(whole, "vector").size(), 3u);

    Bytes overlapping = modelFile(true, block(true, 5, 0, vector) + vector);
    setLength(overlapping, 24, true, 40); // the inner one
    EXPECT_EQ(offsets(json(overlapping, 3), "damage"), (std::vector<Json>{24}));
    EXPECT_EQ(offsets(json(overlapping, 3), "vector"), (std::vector<Json>{24, 60}));
}

TEST_F(KorDump, ShowsWhatIsThereOfAFileWhoseWriterDied) {
    const Bytes vector = block(true, 0x10000, 0, Bytes(24));
    Bytes file = modelFile(true, vector + block(true, 5, 0, vector + block(true, 6, 0, vector)));
    setLength(file, 0, true, 0);
    EXPECT_EQ(json(file).size(), 6u);
    setLength(file, 48, true, 0);
    setLength(file, 96, true, 0);
    const Json dump = json(file, 3);
    EXPECT_EQ(offsets(dump, "damage"), (std::vector<Json>{48, 96}));
    EXPECT_EQ(offsets(dump, "vector"), (std::vector<Json>{12, 60, 108}));
    EXPECT_EQ(dump.back()["depth"], 3);
}

TEST_F(KorDump, SaysWhatIsWrongWithTheFileAsAWhole) {
    const Bytes vector = block(true, 0x10000, 0, Bytes(24));
    const Bytes sound = modelFile(true, vector);
    const auto damages = [&](const Bytes& file) { return offsets(json(file, 3), "damage"); };
    EXPECT_EQ(damages({}), (std::vector<Json>{0}));
    EXPECT_EQ(damages(bytes("4B4F5200000000")), (std::vector<Json>{0}));
    EXPECT_EQ(damages(bytes("4B4F520100000000")), (std::vector<Json>{8}));
    EXPECT_EQ(damages(sound + Bytes(3)), (std::vector<Json>{48}));
    EXPECT_EQ(damages(Bytes(sound.begin(), sound.end() - 1)), (std::vector<Json>{4, 12}));
    Bytes version = sound, spoilt = sound, junk(100, 'x');
    version[3] = 2;
    spoilt[0] = 'X';
    EXPECT_EQ(damages(version), (std::vector<Json>{3}));
    EXPECT_EQ(offsets(json(version, 3), "vector"), (std::vector<Json>{12}));
    EXPECT_EQ(damages(spoilt), (std::vector<Json>{0}));
    EXPECT_EQ(offsets(json(spoilt, 3), "vector"), (std::vector<Json>{12}));
    EXPECT_EQ(damages(junk), (std::vector<Json>{0}));
    EXPECT_EQ(json(junk, 3).size(), 1u);
}

TEST_F(KorDump, FollowsAnyDepth) {
    const Bytes file = nestedBlocks(100000);
    const Json dump = json(file);
    ASSERT_EQ(dump.size(), 100001u);
    EXPECT_EQ(dump.back()["depth"], 100000);
    const ProgramResult text = run({path()});
    EXPECT_EQ(text.status, 0);
    EXPECT_NE(text.output.find("(100000) 1200000: 000005, version 0, length 12\n"),
              std::string::npos);
}

TEST_F(KorDump, PassesTheHolesOfSparseFilesQuickly) {
    const std::uint64_t hole = std::uint64_t{5} << 30;
    const Bytes vector = block(true, 0x10000, 0, Bytes(24));
    Bytes head = modelFile(true, block(true, 0x0B0002, 0, guidBytes(sampleGuid)));
    setLength(head, 0, true, head.size() + hole + vector.size());
    setLength(head, 12, true, 28 + hole);
    write(head);
    QFile file(path());
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_TRUE(file.seek(static_cast<qint64>(head.size() + hole)));
    file.write(reinterpret_cast<const char*>(vector.data()), static_cast<qint64>(vector.size()));
    file.close();
    QElapsedTimer clock;
    clock.start();
    const ProgramResult result = run({"--json", path()});
    EXPECT_EQ(result.status, 0) << result.errors;
    const Json dump = Json::parse(result.output);
    EXPECT_EQ(offsets(dump, "vector"), (std::vector<Json>{head.size() + hole}));
    EXPECT_LT(clock.elapsed(), 50000);
}

TEST_F(KorDump, RefusesWhatItCannotDo) {
    const ProgramResult missing = run({folder.path("missing")});
    EXPECT_EQ(missing.status, 1);
    EXPECT_NE(missing.errors.find("missing"), std::string::npos);
    EXPECT_EQ(run({folder.path()}).status, 1);
    EXPECT_EQ(run({}).status, 2);
    EXPECT_EQ(run({"--what", write({})}).status, 2);
    EXPECT_EQ(run({"--help"}).status, 0);
}

} // namespace
