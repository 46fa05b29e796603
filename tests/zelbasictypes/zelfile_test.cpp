// SPDX-License-Identifier: Apache-2.0
// Data-model files: every form byte for byte against the files in golden/, and the rules by which
// readers and writers enter, leave and refuse blocks.
#include "zelbasictypes/data/zelfile.h"

#include "tests/zelbasictypes/assertioncounter.h"
#include "tests/zelbasictypes/mathtest.h"
#include "tests/zelbasictypes/modelbytes.h"
#include "tests/zelbasictypes/sampleguid.h"
#include "tests/zelbasictypes/streams.h"
#include "tests/zelbasictypes/temporarydirectory.h"
#include "zelbasictypes/data/binio.h"
#include "zelbasictypes/data/zelblocktags.h"
#include "zelbasictypes/data/zelguid.h"
#include "zelbasictypes/text/korcstring.h"
#include "zelbasictypes/text/korstring.h"

#include <gtest/gtest.h>

#include <functional>
#include <tuple>

namespace {

Bytes goldenFile(const std::string& name) {
    std::ifstream file(std::string(GOLDEN_DIRECTORY) + "/" + name + ".hex");
    return bytes({std::istreambuf_iterator<char>(file), {}});
}

/// Something that stands in a file: how to write it, and how to read it and write what was read.
struct Form {
    const char* name;
    std::function<void(ZelFileWrite&)> write;
    std::function<void(ZelFileRead&, ZelFileWrite&)> copy;
};

void PrintTo(const Form& form, std::ostream* out) { *out << form.name; }

template <class... T> Form values(const char* name, const T&... sent) {
    return {name, [sent...](ZelFileWrite& writer) { (writer << ... << sent); },
            [](ZelFileRead& reader, ZelFileWrite& writer) {
                std::tuple<T...> read;
                std::apply([&](auto&... each) { (reader >> ... >> each); }, read);
                EXPECT_TRUE(reader.atBlockEnd());
                std::apply([&](const auto&... each) { (writer << ... << each); }, read);
            }};
}

/// A text, and an empty one.
template <class Text> Form texts(const char* name, const Text& sent) {
    return {name, [sent](ZelFileWrite& writer) { writer << sent << Text(); },
            [](ZelFileRead& reader, ZelFileWrite& writer) {
                Text text, empty("former");
                reader >> text >> empty;
                EXPECT_EQ(empty, "");
                writer << text << empty;
            }};
}

struct Named final : ZelIdentified {
    const ZelGuid& classGuid() override { return sampleGuid; }
};

void writeObject(ZelFileWrite& writer, std::int32_t number, std::uint32_t version,
                 const ZelVector3& v) {
    Named object;
    writer.beginObject(object, version);
    writer.writeInt(number);
    writer.beginGuidBlock(ZelGuid(), 0);
    writer.endBlock();
    writer << v;
    writer.endObject();
}

void copyObject(ZelFileRead& reader, ZelFileWrite& writer) {
    std::uint32_t version = 0;
    std::int32_t number = 0;
    ZelVector3 v;
    EXPECT_EQ(*reader.peekGuid(), sampleGuid);
    EXPECT_TRUE(reader.beginObject(nullptr, version));
    EXPECT_EQ(*reader.currentGuid(), sampleGuid);
    reader >> number;
    EXPECT_TRUE(reader.isNextObject(ZelGuid()));
    EXPECT_TRUE(reader.skipBlock());
    reader >> v;
    EXPECT_TRUE(reader.atBlockEnd());
    reader.endObject();
    writeObject(writer, number, version, v);
}

void copyNamed(ZelFileRead& reader, ZelFileWrite& writer) {
    ZelGuid guid;
    const KorString name = *reader.peekName();
    EXPECT_TRUE(reader.beginNamed(nullptr, guid));
    std::uint32_t version = 0;
    EXPECT_TRUE(reader.beginObject(nullptr, version));
    reader.endObject();
    reader.endNamed();
    writer.beginNamed(name);
    writer.beginGuidBlock(guid, version);
    writer.endObject();
    writer.endNamed();
}

void copyBlock(ZelFileRead& reader, ZelFileWrite& writer) {
    const std::uint32_t ahead = reader.peekTag();
    ASSERT_TRUE(reader.beginBlock());
    EXPECT_EQ(reader.blockTag(), ahead);
    writer.beginBlock(reader.blockTag(), reader.blockVersion());
    while (!reader.atBlockEnd()) {
        unsigned char byte = 0;
        reader.readByte(byte);
        writer.writeByte(byte);
    }
    reader.endBlock();
    writer.endBlock();
}

template <class T, std::size_t N> struct Numbers { T value[N]; };
template <class T, std::size_t N>
ZelFileWrite& operator<<(ZelFileWrite& writer, const Numbers<T, N>& numbers) {
    return writer << numbers.value;
}
template <class T, std::size_t N>
ZelFileRead& operator>>(ZelFileRead& reader, Numbers<T, N>& numbers) {
    return reader >> numbers.value;
}

std::vector<Form> forms() {
    return {
        values("guid", sampleGuid),
        values("vector", ZelVector3{1, 2.5, 3}),
        values("matrix", mathtest::counting),
        values("fourdoubles", Numbers<double, 4>{{1, 0, 0, -1}}),
        values("floatpair", Numbers<float, 2>{{1, -2.5f}}),
        values("doublepair", Numbers<double, 2>{{1, -0.1}}),
        texts("widetext", KorString(u"Ma\u00DF \u03B1")),
        texts("narrowtext", KorCString("KorCString")),
        values("bare", -0.5, 0.25f, 4000000000u, -2, 'x', static_cast<unsigned char>(200),
               static_cast<signed char>(-3)),
        {"object",
         [](ZelFileWrite& writer) {
             writeObject(writer, 7, 3, {0, 0, 1});
         },
         copyObject},
        {"named",
         [](ZelFileWrite& writer) {
             writer.beginNamed(KorString("Plane"));
             Named object;
             writer.beginObject(object, 1);
             writer.endObject();
             writer.endNamed();
         },
         copyNamed},
        {"blocks",
         [](ZelFileWrite& writer) {
             writer.beginBlock(0x123456, 255);
             writer.writeByte(1);
             writer.writeByte(2);
             writer.endBlock();
             writer.beginBlock(1, 0);
             writer.endBlock();
         },
         [](ZelFileRead& reader, ZelFileWrite& writer) {
             copyBlock(reader, writer);
             copyBlock(reader, writer);
         }},
    };
}

class GoldenForm : public testing::TestWithParam<Form> {
protected:
    Bytes written(std::uint32_t version, const std::function<void(ZelFileWrite&)>& content) {
        ZelFileWrite writer;
        writer.setVersion(version);
        EXPECT_TRUE(writer.create(directory.path("file")));
        content(writer);
        EXPECT_TRUE(writer.close());
        const std::string file = directory.read("file");
        return {file.begin(), file.end()};
    }

    TemporaryDirectory directory;
};

TEST_P(GoldenForm, IsWrittenReadAndWrittenAgain) {
    for (const std::uint32_t version : {9u, 1u, 10u, 0u}) {
        const Bytes expected =
            goldenFile(GetParam().name + std::string(version - 1 < 9 ? "_narrow" : "_wide"));
        ASSERT_FALSE(expected.empty());
        EXPECT_EQ(written(version, GetParam().write), expected) << version;

        directory.write("source", std::string(expected.begin(), expected.end()));
        ZelFileRead reader;
        ASSERT_TRUE(reader.open(directory.path("source")));
        EXPECT_EQ(written(version, [&](ZelFileWrite& w) { GetParam().copy(reader, w); }), expected);
        EXPECT_TRUE(reader.atBlockEnd());
        EXPECT_EQ(reader.bytesLeftInBlock(), 0);
        EXPECT_TRUE(reader.close());
        EXPECT_FALSE(reader.good());
        EXPECT_FALSE(reader.hasStream());
    }
}

INSTANTIATE_TEST_SUITE_P(, GoldenForm, testing::ValuesIn(forms()),
                         [](const auto& given) { return std::string(given.param.name); });

/// A reader in the file block of given bytes.
class Reading {
public:
    explicit Reading(const Bytes& source) : source_(source), stream_(source_), reader(&stream_) {
        reader.checkFileHeader();
    }
    std::int64_t position() const { return stream_.tell(); }

private:
    Bytes source_;
    BinInputMemory stream_;

public:
    ZelFileRead reader;
};

TEST(ZelFileRead, ChecksWhatAFileBeginsWith) {
    const TemporaryDirectory directory;
    const struct {
        const char* bytes;
        bool good;
    } cases[] = {
        {"", false},
        {"4B 4F 52", false},
        {"4B 4F 52 00", false},
        {"4B 4F 52 00 00 00 00", false},
        {"4B 4F 52 00 00 00 00 08", true},
        {"4B 4F 52 00 00 00 00 00", true},
        {"4B 4F 52 00 00 00 00 07", false},
        {"4B 4F 52 00 00 00 00 09", false},
        {"4B 4F 52 01 00 00 00 00 00 00 00 0C", true},
        {"4B 4F 52 01 00 00 00 00 00 00 00 0B", false},
        {"4B 4F 52 01 80 00 00 00 00 00 00 0C", false},
        {"4B 4F 52 01 FF FF FF FF FF FF FF FF", false},
        {"4B 4F 52 02 00 00 00 00 00 00 00 0C", false},
        {"4B 4F 53 00 00 00 00 08", false},
        {"01 00 00 00 00 00 00 08", false},
    };
    for (const auto& c : cases) {
        const Bytes file = bytes(c.bytes);
        directory.write("file", std::string(file.begin(), file.end()));
        ZelFileRead reader;
        EXPECT_TRUE(reader.open(directory.path("file"))) << c.bytes;
        EXPECT_EQ(reader.good(), c.good) << c.bytes;
    }
    ZelFileRead reader;
    EXPECT_FALSE(reader.open(directory.path("missing")));
    EXPECT_FALSE(reader.hasStream());
    EXPECT_FALSE(reader.open(KorString()));
}

TEST(ZelFileRead, RefusesBlocksThatCannotBeAndStaysThere) {
    for (const bool wide : {false, true}) {
        const std::uint64_t header = wide ? 12 : 8;
        const std::uint64_t sound = header + 4;
        for (const std::uint64_t length :
             {std::uint64_t{0}, std::uint64_t{1}, header - 1, sound + 1, std::uint64_t{0xFFFFFFFF},
              ~std::uint64_t{0}}) {
            Bytes file = modelFile(wide, block(wide, 5, 7, bytes("01 02 03 04")));
            setLength(file, header, wide, length);
            Reading reading(file);
            ASSERT_TRUE(reading.reader.good());
            EXPECT_FALSE(reading.reader.beginBlock()) << length;
            EXPECT_FALSE(reading.reader.good());
            EXPECT_EQ(reading.position(), static_cast<std::int64_t>(header));
            EXPECT_EQ(reading.reader.blockTag(), 5u);
            EXPECT_EQ(reading.reader.blockVersion(), 7u);
            EXPECT_TRUE(reading.reader.atBlockEnd());
        }
    }
}

TEST(ZelFileRead, AChildMayEndBehindItsParentButNotBehindTheSource) {
    Bytes file = modelFile(true, block(true, 1, 0, block(true, 2, 0, {})) + bytes("01 02 03 04"));
    setLength(file, 24, true, 16);
    Reading reading(file);
    EXPECT_TRUE(reading.reader.beginBlock());
    EXPECT_TRUE(reading.reader.beginBlock());
    EXPECT_EQ(reading.reader.bytesLeftInBlock(), 4);
    reading.reader.endBlock();
    reading.reader.endBlock();
    EXPECT_EQ(reading.position(), 36);

    Bytes nested = modelFile(true, block(true, zelblock::file, 1, {}));
    setLength(nested, 12, true, 0);
    EXPECT_FALSE(Reading(nested).reader.beginBlock());
}

TEST(ZelFileRead, TheFirstFileBlockOfAStreamDecidesTheWidth) {
    const Bytes file = modelFile(false, block(false, 1, 0, {}));
    BinInputMemory stream(file);
    stream.setLength32();
    ZelFileRead reader(&stream);
    EXPECT_TRUE(reader.checkFileHeader());
    EXPECT_TRUE(reader.skipBlock());

    // A version of 1 on such a stream changes nothing: lengths stay 4 bytes.
    const Bytes claims = bytes("4B 4F 52 01 00 00 00 10  00 00 01 00 00 00 00 08");
    BinInputMemory decided(claims);
    decided.setLength32();
    ZelFileRead other(&decided);
    EXPECT_TRUE(other.checkFileHeader());
    EXPECT_TRUE(other.beginBlock());
    EXPECT_EQ(other.blockTag(), 1u);

    // Looking at a file block decides nothing.
    BinInputMemory looked(claims);
    ZelFileRead looking(&looked);
    looking.peekGuid();
    looking.isNextBlock(zelblock::file);
    EXPECT_EQ(looked.lengthWidth(), 0);
}

TEST(ZelFileRead, LooksAheadWithoutMoving) {
    const Bytes object = block(true, zelblock::object, 9, guidBytes(sampleGuid));
    Reading reading(modelFile(true, object + block(true, 5, 2, {})));
    ZelFileRead& reader = reading.reader;
    std::int32_t version = 0;
    EXPECT_TRUE(reader.isNextObject(sampleGuid, &version));
    EXPECT_EQ(version, 9);
    EXPECT_FALSE(reader.isNextObject(ZelGuid(), &version));
    EXPECT_EQ(version, -1);
    EXPECT_TRUE(reader.isNextBlock(zelblock::object, &version));
    EXPECT_EQ(version, 9);
    EXPECT_FALSE(reader.isNextBlock(5, &version));
    EXPECT_EQ(version, -1);
    EXPECT_EQ(reader.peekTag(), zelblock::object);
    EXPECT_EQ(*reader.peekGuid(), sampleGuid);
    EXPECT_TRUE(reader.peekName()->isEmpty());
    EXPECT_EQ(reading.position(), 12);
    EXPECT_TRUE(reader.good());
    reader.skipBlock();
    EXPECT_FALSE(reader.isNextObject(sampleGuid));
    reader.skipBlock();
    EXPECT_FALSE(reader.isNextBlock(5, &version));
    EXPECT_EQ(reader.peekTag(), 0xFFFFFFu);
    EXPECT_TRUE(reader.good());

    Bytes cut = modelFile(true, block(true, zelblock::object, 0, guidBytes(sampleGuid)));
    setLength(cut, 12, true, 29);
    EXPECT_FALSE(Reading(cut).reader.isNextObject(sampleGuid));
}

TEST(ZelFileRead, ExpectsTagsAndVersions) {
    const Bytes file = modelFile(true, block(true, 5, 2, {}));
    EXPECT_TRUE(Reading(file).reader.expectBlock(5));
    EXPECT_TRUE(Reading(file).reader.expectBlock(5, 2));
    Reading newer(file), other(file);
    EXPECT_FALSE(newer.reader.expectBlock(5, 1));
    EXPECT_FALSE(newer.reader.good());
    EXPECT_FALSE(other.reader.expectBlock(6));
    EXPECT_FALSE(other.reader.good());
    Reading noObject(file);
    std::uint32_t version = 0;
    EXPECT_FALSE(noObject.reader.beginObject(nullptr, version));
    EXPECT_EQ(version, 2u);
    EXPECT_FALSE(noObject.reader.good());
}

TEST(ZelFileRead, AValueOfAnotherKindIsReadAsToldAndSpoilsTheReader) {
    Reading reading(modelFile(true, block(true, zelblock::doublePair, 0, Bytes(16, 0x3F))));
    double pair[] = {0, 0, 7};
    reading.reader.readVector(pair);
    EXPECT_FALSE(reading.reader.good());
    EXPECT_GT(pair[1], 0); // bytes of the other kind
    EXPECT_EQ(pair[2], 7);

    Reading text(modelFile(true, block(true, zelblock::wideText, 0, bytes("00 41"))));
    KorCString narrow("former");
    text.reader.readNarrowString(narrow);
    EXPECT_FALSE(text.reader.good());
    EXPECT_EQ(narrow, "former");
}

TEST(ZelFileRead, WideTextsOfAnotherKindLeaveTheReaderGood) {
    const Bytes odd = block(true, zelblock::wideText, 0, bytes("00 41 00 42 00"));
    Reading reading(modelFile(true, odd + block(true, 5, 0, {})));
    KorString text(u"former");
    reading.reader >> text;
    EXPECT_EQ(text, "AB");
    reading.reader >> text;
    EXPECT_TRUE(text.isEmpty());
    EXPECT_TRUE(reading.reader.good());

    const Bytes sound = modelFile(true, block(true, zelblock::wideText, 0, bytes("00 43")));
    Reading next(sound);
    next.reader >> text;
    EXPECT_EQ(text, "C"); // what the shared reader met before is forgotten
}

/// A file block of length 0 is one that its writer never ended, so that the reader goes on inside.
TEST(ZelFileRead, FailsQuietlyWhereverAnUnfinishedFileIsCut) {
    for (const bool wide : {false, true}) {
        Bytes whole = modelFile(wide, block(wide, zelblock::matrix, 0, Bytes(128)));
        setLength(whole, 0, wide, 0);
        for (std::size_t length = 0; length <= whole.size(); ++length) {
            const Bytes cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
            Reading reading(cut);
            double matrix[16];
            reading.reader.readMatrix(matrix);
            EXPECT_EQ(reading.reader.good(), length == whole.size()) << length;
            EXPECT_TRUE(reading.reader.atBlockEnd()) << length;
        }
    }
}

TEST(ZelFileRead, NestsAsDeepAsTheFile) {
    const int levels = 100000;
    Bytes file = nestedBlocks(levels);
    Reading reading(file);
    int entered = 0;
    while (reading.reader.beginBlock()) ++entered;
    EXPECT_EQ(entered, levels);
    for (int i = 0; i <= entered; ++i) reading.reader.endBlock();

    Reading reserved(file);
    reserved.reader.reserveDepth(levels, 2 * levels);
    EXPECT_TRUE(reserved.reader.beginBlock());
}

TEST(ZelFileRead, ReportsMisuseAndGoesOn) {
    AssertionCounter assertions;
    ZelFileRead reader;
    double number = 3;
    reader >> number;
    EXPECT_EQ(assertions.last, "bi_");
    EXPECT_EQ(number, 3);
    EXPECT_FALSE(reader.beginBlock());
    EXPECT_FALSE(reader.isNextObject(sampleGuid));
    EXPECT_EQ(reader.stream(), nullptr);
    EXPECT_EQ(assertions.count, 4);
    EXPECT_FALSE(reader.close());
    EXPECT_TRUE(reader.attach(nullptr));
    reader.endBlock();
    EXPECT_EQ(assertions.count, 4);
    const Bytes some(8);
    BinInputMemory stream(some);
    reader.attach(&stream);
    reader.endBlock();
    EXPECT_EQ(assertions.last, "end_.size() > 0 || !good_");
    EXPECT_FALSE(reader.open(KorString("any")));
    EXPECT_EQ(assertions.last, "!bi_");

    ZelFileWrite writer;
    writer << number;
    EXPECT_EQ(assertions.last, "bo_");
    BinOutputMemory output;
    writer.attach(&output);
    EXPECT_FALSE(writer.create(KorString("any")));
    EXPECT_EQ(assertions.last, "!bo_");
}

TEST(ZelFileWrite, EndsWhatIsOpenWhenItGoes) {
    BinOutputMemory closed, lent;
    {
        ZelFileWrite writer(&closed, true);
        writer.writeFileHeader();
        writer.beginBlock(1, 0);
        writer.beginBlock(2, 0);
    }
    EXPECT_EQ(closed.bytes(), modelFile(true, block(true, 1, 0, block(true, 2, 0, {}))));
    {
        ZelFileWrite writer(&lent);
        writer.beginBlock(1, 0);
        writer.beginBlock(2, 0);
        writer.attach(&closed);
    }
    EXPECT_TRUE(lent.good());
    lent.flushBuffer();
    EXPECT_EQ(lent.bytes(), block(true, 1, 0, block(true, 2, 0, {})));
}

TEST(ZelFileWrite, ClosingEndsOneBlockOnly) {
    const TemporaryDirectory directory;
    ZelFileWrite writer;
    ASSERT_TRUE(writer.create(directory.path("file")));
    writer.beginBlock(1, 0);
    EXPECT_TRUE(writer.close());
    EXPECT_EQ(directory.read("file").substr(4, 8), std::string(8, '\0'));
    EXPECT_FALSE(writer.good());
    ASSERT_TRUE(writer.create(directory.path("again")));
    EXPECT_TRUE(writer.close());
    EXPECT_EQ(directory.read("again").size(), 12u);
    EXPECT_FALSE(writer.create(directory.path("no/such/place")));
    EXPECT_FALSE(writer.close());
}

struct Pair final : ZelReadable, ZelWritable {
    void readBinary(BinInput& stream) override { stream.read(&number, 1); }
    void readModel(IZelDataModelReader& reader) override { reader.readInt(number); }
    void writeModel(IZelDataModelWriter& writer) override { writer.writeInt(number); }
    void writeBinary(BinOutput& stream) override {
        const std::int32_t doubled = 2 * number;
        stream.write(&doubled, 1);
    }
    std::int32_t number = 21;
};

TEST(ZelFile, ObjectsReadAndWriteThemselves) {
    BinOutputMemory output;
    ZelFileWrite writer(&output);
    Pair pair;
    writer.writeModel(pair);
    writer.writeBinary(pair);
    output.flushBuffer();
    EXPECT_EQ(output.bytes(), bytes("00 00 00 15 00 00 00 2A"));
    BinInputMemory input(output.bytes());
    ZelFileRead reader(&input);
    reader.readModel(pair);
    EXPECT_EQ(pair.number, 21);
    reader.readBinary(pair);
    EXPECT_EQ(pair.number, 42);
}

TEST(KorString, HasAFileToItself) {
    const TemporaryDirectory directory;
    const KorString path = directory.path("text");
    EXPECT_TRUE(KorString(u"Gr\u00F6\u00DFe").saveToFile(path));
    EXPECT_EQ(directory.read("text").size(), 12 + 12 + 10u);
    KorString text;
    EXPECT_TRUE(text.loadFromFile(path));
    EXPECT_EQ(text, KorString(u"Gr\u00F6\u00DFe"));
    EXPECT_FALSE(text.loadFromFile(directory.path("missing")));
    EXPECT_FALSE(text.saveToFile(directory.path("no/such/place")));
    directory.write("text", "no such file");
    EXPECT_FALSE(text.loadFromFile(path));
}

TEST(KorString, WritesItselfToAStream) {
    const Bytes written = writtenBy(
        [](BinOutput& out) { return KorString(u"AB").write(out) && KorCString("cd").write(out); },
        5);
    EXPECT_EQ(written, bytes("01 00 05 00 00 00 00 0C 00 41 00 42"
                             "01 00 03 00 00 00 00 0A 63 64"));
    BinInputMemory input(written);
    KorString wide;
    KorCString narrow;
    EXPECT_TRUE(wide.read(input));
    EXPECT_TRUE(narrow.read(input));
    EXPECT_EQ(wide, "AB");
    EXPECT_EQ(narrow, "cd");
}

} // namespace
