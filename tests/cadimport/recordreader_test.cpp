// SPDX-License-Identifier: Apache-2.0
// RecordReader sees in any bytes what reading value by value sees.
#include "cadimport/recordreader.h"

#include "cadimport/messageregistry.h"
#include "tests/cadimport/readingloops.h"
#include "tests/cadimport/samplemessages.h"

#include <QBuffer>

#include <gtest/gtest.h>

namespace {

using namespace CADImport;

void expectSameForAll(const QByteArray& file, const std::string& what) {
    const loops::Trace expected = loops::valueByValue(file);
    ASSERT_EQ(loops::throughStream(file), expected) << what;
    ASSERT_EQ(loops::throughReader(file), expected) << what;
    ASSERT_EQ(loops::throughKeptObjects(file), expected) << what;
}

QByteArray everyClass(sample::Random& random, int length) {
    QByteArray file;
    for (const auto& message : sample::oneOfEach(random, length)) file += sample::record(*message);
    return file;
}

QByteArray hex(const char* text) { return QByteArray::fromHex(text); }

TEST(RecordReader, YieldsEveryMessageOfASoundFile) {
    sample::Random random(3);
    QByteArray file;
    for (const int length : {0, 1, 3, 600}) file += everyClass(random, length);
    QBuffer device;
    device.setData(file);
    device.open(QIODevice::ReadOnly);
    RecordReader records(device);
    QByteArray rewritten;
    while (!records.atEnd()) {
        const auto message = records.next();
        ASSERT_TRUE(message);
        rewritten += sample::record(*message);
        EXPECT_EQ(records.position(), rewritten.size());
    }
    EXPECT_EQ(rewritten, file);
    EXPECT_FALSE(records.ranOut());
    EXPECT_FALSE(records.next());
    EXPECT_TRUE(records.ranOut());
}

TEST(RecordReader, TellsOfEveryCutAndAgreesOnWhatIsThere) {
    sample::Random random(5);
    for (const auto& message : sample::oneOfEach(random, 2)) {
        const QByteArray record = sample::record(*message);
        for (int size = 1; size < record.size(); ++size) {
            QBuffer device;
            device.setData(record.left(size));
            device.open(QIODevice::ReadOnly);
            RecordReader records(device);
            records.next();
            EXPECT_TRUE(records.ranOut()) << qPrintable(message->name()) << " at " << size;
            expectSameForAll(record.left(size), message->name().toStdString() + " cut");
        }
    }
}

TEST(RecordReader, AgreesOnFilesThatAreLongerThanItsWindow) {
    const QByteArray model = sample::mixedModel(600000);
    expectSameForAll(model, "a model");
    for (qint64 pieces : {1, 1000, 4096, 262143}) {
        ASSERT_EQ(loops::throughReader(model.left(300000), pieces),
                  loops::valueByValue(model.left(300000)))
            << pieces;
    }
    sample::Random random(6);
    expectSameForAll(everyClass(random, 300), "long lists");
    CreateNURBSCurve curve;
    curve.knots = QList<double>();
    for (int i = 0; i < 100000; ++i) curve.knots.append(i * 0.1);
    expectSameForAll(sample::record(curve) + sample::record(OKMessage()), "one long list");
    expectSameForAll(sample::record(curve).left(500000), "one long list cut");
}

TEST(RecordReader, AgreesWhereverTheEndOfTheWindowFalls) {
    constexpr int window = 256 * 1024;
    sample::Random random(7);
    const QByteArray records = everyClass(random, 2);
    const loops::Trace expected = loops::valueByValue(records);
    for (int back = 0; back < records.size(); back += 6) {
        for (const QByteArray& odd : {QByteArray(), sample::record(NewModel())}) {
            // A name that nothing is registered under fills the window up to `back` bytes.
            const int fill = (window - back - 4 - static_cast<int>(odd.size())) & ~1;
            QByteArray file;
            QDataStream stream(&file, QIODevice::WriteOnly);
            stream << QString(fill / 2, 'x');
            const loops::Trace seen = loops::throughReader(file + odd + records);
            ASSERT_EQ(seen.first(), "nothing");
            ASSERT_EQ(seen.mid(odd.isEmpty() ? 1 : 2), expected) << back;
        }
    }
}

TEST(RecordReader, AgreesOnNamesThatAreNone) {
    sample::Random random(8);
    const QByteArray tail = everyClass(random, 1);
    const char* const heads[] = {
        "ffffffff",                        // a null name
        "00000000",                        // an empty one
        "00000003 004f4b",                 // an odd length
        "fffffffe 004f004b",               // far more than there is
        "7ffffff0 004f004b",               //
        "00000004 006f006b",               // "ok"
        "00000006 004f004b0000",           // "OK" and a zero
        "00000004 4f004b00",               // the other byte order
        "0000000c 0043007200650061007400", // an odd start for what follows
        "00000018 0043007200650061007400650056006500720074006500790000", // nearly CreateVertex
        "00000100 00",                                                   //
        "00",
    };
    for (const char* head : heads) expectSameForAll(hex(head) + tail, head);
    expectSameForAll(hex("00040000") + QByteArray(0x50000, 'x') + tail, "a very long name");
}

TEST(RecordReader, AgreesOnAnyCountOfAnyList) {
    sample::Random random(9);
    for (const auto& message : sample::oneOfEach(random, 2)) {
        const QByteArray record = sample::record(*message) + sample::record(FinishMessage());
        for (const char* count :
             {"00000000", "00000001", "00000004", "0000ffff", "7fffffff", "80000000", "ffffffff"}) {
            for (int at = 0; at + 4 <= record.size(); ++at) {
                if (record.mid(at, 4) != hex("00000002")) continue;
                QByteArray changed = record;
                changed.replace(at, 4, hex(count));
                expectSameForAll(changed, message->name().toStdString() + " count " + count);
            }
        }
    }
}

TEST(RecordReader, KeepsNoRoomOfALongRecord) {
    CreateGroup group;
    for (int i = 0; i < 1'000'000; ++i) group.components << i;
    QByteArray file = sample::record(group);
    group.components = {1};
    file += sample::record(group) + sample::record(group);
    QBuffer device(&file);
    device.open(QIODevice::ReadOnly);
    RecordReader records(device);
    const auto next = [&] { return static_cast<const CreateGroup*>(records.look()); };
    EXPECT_EQ(next()->components.size(), 1'000'000);
    const CreateGroup* small = next();
    EXPECT_EQ(small->components.size(), 1);
#if QT_VERSION_MAJOR > 5 // whose lists don't tell
    EXPECT_LT(small->components.capacity(), 1000);
#endif
    EXPECT_EQ(next(), small) << "small ones are read into again";
}

TEST(RecordReader, AgreesOnDamagedFiles) {
    sample::Random random(10);
    const QByteArray sound = everyClass(random, 2);
    for (int turn = 0; turn < 2000; ++turn) {
        QByteArray file = sound;
        for (unsigned hit = random() % 8; hit > 0; --hit) {
            const char values[] = {0, 1, 2, char(0x7f), char(0xff), static_cast<char>(random())};
            file[static_cast<int>(random() % static_cast<unsigned>(file.size()))] =
                values[random() % std::size(values)];
        }
        file.truncate(static_cast<int>(random() % static_cast<unsigned>(file.size() + 1)));
        expectSameForAll(file, "turn " + std::to_string(turn));
    }
}

TEST(RecordReader, StartsWhereTheDeviceStands) {
    QBuffer device;
    device.setData(QByteArray("xyz") + sample::record(OKMessage()));
    device.open(QIODevice::ReadOnly);
    device.seek(3);
    RecordReader records(device);
    ASSERT_FALSE(records.atEnd());
    EXPECT_EQ(records.next()->name(), "OK");
    EXPECT_TRUE(records.atEnd());
}

/// Promises bytes and has none.
class FailingDevice : public QIODevice {
public:
    FailingDevice() { open(QIODevice::ReadOnly | QIODevice::Unbuffered); }
    bool atEnd() const override { return false; }
    bool isSequential() const override { return true; }

protected:
    qint64 readData(char*, qint64) override { return -1; }
    qint64 writeData(const char*, qint64) override { return -1; }
};

TEST(RecordReader, EndsWithADeviceThatFails) {
    FailingDevice device;
    RecordReader records(device);
    EXPECT_TRUE(records.atEnd());
    EXPECT_FALSE(records.next());
}

/// A class of somebody else's, which reads its body by itself.
class Foreign : public OKMessage {
public:
    QString text;
    void read(QDataStream& stream) override { stream >> text; }
};

TEST(RecordReader, ReadsClassesThatKnowNothingOfIt) {
    messageRegistry().insert("Foreign", []() -> Message* { return new Foreign; });
    QByteArray file;
    QDataStream stream(&file, QIODevice::WriteOnly);
    stream << QString("Foreign") << QString("its text");
    QBuffer device;
    device.setData(file + sample::record(OKMessage()));
    device.open(QIODevice::ReadOnly);
    QBuffer shorter;
    shorter.setData(file.left(file.size() - 3));
    shorter.open(QIODevice::ReadOnly);
    RecordReader records(device), cut(shorter);
    messageRegistry().remove("Foreign");
    EXPECT_TRUE(cut.next());
    EXPECT_TRUE(cut.ranOut() && cut.atEnd());
    const auto message = records.next();
    const auto* foreign = dynamic_cast<Foreign*>(message.get());
    ASSERT_TRUE(foreign);
    EXPECT_EQ(foreign->text, "its text");
    EXPECT_EQ(records.next()->name(), "OK");
}

} // namespace
