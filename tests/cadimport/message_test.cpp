// SPDX-License-Identifier: Apache-2.0
// Bytes of the messages, their validity, their names in the registry, and frames.
#include "cadimport/messageregistry.h"
#include "tests/cadimport/messagefields.h"
#include "tests/cadimport/samplemessages.h"

#include <QBuffer>

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <tuple>
#include <type_traits>

namespace {

using namespace CADImport;

QByteArray bytes(const char* hex) { return QByteArray::fromHex(hex); }

QByteArray body(const Message& message) {
    QByteArray result;
    QDataStream stream(&result, QIODevice::WriteOnly);
    stream.setVersion(streamVersion);
    message.write(stream);
    return result;
}

QByteArray frame(const Message& message) {
    QByteArray result;
    QDataStream stream(&result, QIODevice::WriteOnly);
    stream.setVersion(streamVersion);
    stream << message;
    return result;
}

template <class T> T decoded(const QByteArray& bodyBytes) {
    T message;
    QDataStream stream(bodyBytes);
    stream.setVersion(streamVersion);
    message.read(stream);
    return message;
}

TEST(Message, KeepsTheBitsOfSpecialNumbers) {
    const QByteArray vertex = bytes("00000001"
                                    "7ff0000000000001"   // a signalling NaN
                                    "8000000000000000"   // -0
                                    "0000000000000001"); // the smallest number above 0
    EXPECT_EQ(body(decoded<CreateVertex>(vertex)), vertex);
}

TEST(Message, ReadsWordsAsTheyWereSent) {
    const auto mixed =
        decoded<SetParameterMessage>(bytes("00000003 ffffffff 00000000 00000002 20ac"));
    ASSERT_EQ(mixed.parameters.size(), 3);
    EXPECT_TRUE(mixed.parameters[0].isNull());
    EXPECT_FALSE(mixed.parameters[1].isNull());
    EXPECT_EQ(mixed.parameters[2], QString(QChar(0x20AC)));
}

/// Notes the most that is wanted of it at once, for which there is room then.
class Asked : public QBuffer {
public:
    explicit Asked(const QByteArray& data) {
        setData(data);
        open(ReadOnly | Unbuffered);
    }
    qint64 most = 0;

protected:
    qint64 readData(char* to, qint64 size) override {
        most = qMax(most, size);
        return QBuffer::readData(to, size);
    }
};

TEST(Message, MakesNoRoomForWordsThatAreNotThere) {
    const struct {
        const char* what;
        const char* wire;
        QList<QString> words;
    } cases[] = {
        {"longer than all there is", "00000002 fffffff0 00410042", {QString()}},
        {"of odd length", "00000002 00000003 00000002 0041", {QString(), QStringLiteral("A")}},
        {"cut in a letter", "00000002 00000002 0041 00000004 004200", {"A", QString()}},
    };
    for (const auto& c : cases) {
        Asked device(bytes(c.wire));
        QDataStream stream(&device);
        stream.setVersion(streamVersion);
        SetParameterMessage message;
        message.read(stream);
        EXPECT_EQ(message.parameters, c.words) << c.what;
        EXPECT_LE(device.most, 4096) << c.what;
    }
}

TEST(Message, TakesAnyByteButZeroForTrue) {
    auto wire = body(NewModel());
    wire[0] = 2;
    const auto model = decoded<NewModel>(wire);
    EXPECT_TRUE(model.absolute);
    EXPECT_EQ(body(model).at(0), 1);
}

TEST(ListCount, IsNotBelieved) {
    const struct {
        const char* what;
        const char* wire;
        QList<int> components;
    } cases[] = {
        {"more than there is", "00000001 7fffffff 00000005 00000006", {5, 6}},
        {"below zero", "00000001 ffffffff 00000005", {}},
        {"an element cut", "00000001 00000003 00000005 0000", {5, 0}},
        {"nothing behind it", "00000001 00000003", {0}},
        {"itself cut", "00000001 0000", {}},
    };
    for (const auto& c : cases) {
        const auto group = decoded<CreateGroup>(bytes(c.wire));
        EXPECT_EQ(group.components, c.components) << c.what;
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
        EXPECT_LT(group.components.capacity(), 100) << c.what;
#endif
    }
}

/// Rising numbers, and one element in each list.
struct Rising {
    void set(int& value) { value = 1; }
    void set(bool& value) { value = true; }
    void set(double& value) { value = ++last; }
    void set(QString&) {}
    template <class T> void set(QList<T>& list) { list = {T{}}; }
    template <class T> void set(T& whole) {
        std::apply([&](auto&... parts) { (set(parts), ...); }, fieldsOf(whole));
    }
    double last = 0;
};

/// What a field may be while all others are sound: '.' anything, '-' any number, '!' not zero or
/// empty, '+' above zero.
template <class T, class Field> void expectRule(const T& message, Field& field, char rule) {
    const Field sound = field;
    field = Field{};
    EXPECT_EQ(message.isValid(), rule == '.' || rule == '-');
    if constexpr (std::is_arithmetic_v<Field>) {
        field = static_cast<Field>(-1);
        EXPECT_EQ(message.isValid(), rule != '+');
    }
    if constexpr (std::is_same_v<Field, double>) {
        field = std::numeric_limits<double>::quiet_NaN();
        EXPECT_FALSE(message.isValid());
    }
    field = sound;
}

template <class T> void expectRules(T message, const std::string& rules) {
    SCOPED_TRACE(qPrintable(message.name()));
    Rising().set(message);
    EXPECT_TRUE(message.isValid());
    std::size_t place = 0;
    std::apply([&](auto&... each) { (expectRule(message, each, rules.at(place++)), ...); },
               fieldsOf(message));
    EXPECT_EQ(place, rules.size());
}

/// A word for each class of AllClasses, a sign for each field of it.
TEST(Message, IsValidByTheRulesOfItsClass) {
    const char* const rules[] = {
        "",        "",      "",        "",         "!",         ".++",      "",
        "!.!",     "!.!.",  "!..!!..", "!..!.!.",  "!....!!!.", "!.....!.", "!.",
        "!!",      "!....", "......",  "......+",  "......+",   "......+",  "......++",
        ".++....", "...",   "....+-+", "....++-+", ".+..."};
    std::apply([next = rules](auto... each) mutable { (expectRules(each, *next++), ...); },
               AllClasses());
}

TEST(NurbsSurface, CutsAndPadsItsGridAtTheTails) {
    CreateNURBSSurface surface;
    const ControlPoint point{1, 2, 3, 4}, none{0, 0, 0, 0};
    surface.controlPoints = {{point, point}, {point}, {point, point, point}};
    surface.resizeGrid(2, 2);
    EXPECT_EQ(surface.controlPoints, (QList<QList<ControlPoint>>{{point, point}, {point, none}}));
    surface.resizeGrid(3, 1);
    EXPECT_EQ(surface.controlPoints, (QList<QList<ControlPoint>>{{point}, {point}, {none}}));
    surface.resizeGrid(-1, -1);
    EXPECT_TRUE(surface.controlPoints.isEmpty());
}

TEST(Registry, AnswersNullForNamesItDoesntKnowAndLeavesTheStream) {
    const QByteArray wire(10, '\x01');
    QDataStream stream(wire);
    for (const char* name : {"", "ok", "OKMessage", "CreateLine ", "Createline"}) {
        EXPECT_EQ(createMessage(messageRegistry(), name, stream), nullptr) << name;
    }
    EXPECT_EQ(stream.device()->pos(), 0);
}

TEST(Registry, AnswersNullWhereAFactoryHasNoMemory) {
    MessageRegistry registry;
    registry.insert("Escape", []() -> Message* { return nullptr; });
    QDataStream stream(QByteArray{});
    EXPECT_EQ(createMessage(registry, "Escape", stream), nullptr);
}

TEST(Frame, IsACountAndTheRecord) {
    EXPECT_EQ(frame(OKMessage()), bytes("00000008 00000004 004f004b"));
    const QByteArray vertex = frame(CreateVertex());
    EXPECT_EQ(vertex.size(), 60);
    EXPECT_EQ(vertex.left(8), bytes("00000038 00000018"));
    sample::Random random(2);
    for (const auto& message : sample::oneOfEach(random, 2)) {
        QByteArray asArray;
        QDataStream stream(&asArray, QIODevice::WriteOnly);
        stream.setVersion(streamVersion);
        stream << sample::record(*message);
        EXPECT_EQ(frame(*message), asArray) << qPrintable(message->name());
    }
}

/// Tells of its end.
class Mortal : public OKMessage {
public:
    explicit Mortal(bool& flag) : died(flag) {}
    ~Mortal() override { died = true; }

private:
    bool& died;
};

TEST(Frame, IsConsumedAlsoWhenItsNameIsUnknown) {
    QByteArray wire = bytes("0000000a 00000004 00510051 ffff") + frame(CreateVertex());
    QDataStream stream(wire);
    stream.setVersion(streamVersion);
    bool died = false;
    Message* message = new Mortal(died);
    stream >> message;
    EXPECT_EQ(message, nullptr);
    EXPECT_TRUE(died);
    stream >> message;
    ASSERT_NE(message, nullptr);
    EXPECT_EQ(message->name(), "CreateVertex");
    EXPECT_TRUE(stream.atEnd());
    stream >> message; // nothing left
    EXPECT_EQ(message, nullptr);
}

TEST(Frame, EndsTheBodyThatRunsOutOfIt) {
    QDataStream stream(bytes("0000000d 00000004 004f004b 0000000000") + frame(FinishMessage()));
    stream.setVersion(streamVersion);
    Message* message = nullptr;
    stream >> message;
    EXPECT_EQ(message->name(), "OK");
    stream >> message;
    EXPECT_EQ(message->name(), "Finish");
    delete message;
}

} // namespace
