// SPDX-License-Identifier: Apache-2.0
// Bytes of the messages, their validity, their names in the registry, and frames.
#include "cadimport/messageregistry.h"
#include "tests/cadimport/samplemessages.h"

#include <QBuffer>

#include <gtest/gtest.h>

#include <limits>

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

TEST(Message, HasABodyOfTheSizeOfItsClass) {
    const struct {
        const char* name;
        int size; // with empty lists
    } cases[] = {
        {"OK", 0},
        {"Escape", 0},
        {"Finish", 0},
        {"SendNextModel", 0},
        {"SetParameters", 4},
        {"NewModel", 17},
        {"EndModel", 0},
        {"CreateBody", 56},
        {"CreateShell", 57},
        {"CreateFace", 94},
        {"CreateLoop", 97},
        {"CreateCoedge", 73},
        {"CreateEdge", 97},
        {"CreateVertex", 28},
        {"CreateGroup", 8},
        {"CreatePlane", 108},
        {"CreateCylinder", 116},
        {"CreateCone", 116},
        {"CreateSphere", 116},
        {"CreateTorus", 124},
        {"CreateNURBSSurface", 25},
        {"CreateLine", 52},
        {"CreateArc", 100},
        {"CreateEllipse", 108},
        {"CreateNURBSCurve", 17},
        {"CreateCoordinateSystem", 100},
    };
    ASSERT_EQ(messageRegistry().size(), static_cast<qsizetype>(std::size(cases)));
    for (const auto& c : cases) {
        const auto factory = messageRegistry().value(c.name);
        ASSERT_TRUE(factory) << c.name;
        const std::unique_ptr<Message> message(factory());
        EXPECT_EQ(message->name(), QString(c.name));
        EXPECT_EQ(body(*message).size(), c.size) << c.name;
    }
}

TEST(Message, HasTheBytesThatPeersExpect) {
    NewModel model;
    model.absolute = false;
    model.accuracy = 0.5;
    model.unit = 25.4;
    EXPECT_EQ(body(model), bytes("00 3fe0000000000000 4039666666666666"));

    CreateEdge edge;
    edge.identifier = -2;
    edge.vertices = {1, 2};
    edge.coedges = {3, 4};
    edge.faces = {5, 6};
    edge.curve = 0x01020304;
    edge.sense = true;
    EXPECT_EQ(body(edge), bytes("fffffffe"
                                "3ff00000000000003ff00000000000003ff0000000000000"
                                "bff0000000000000bff0000000000000bff0000000000000"
                                "3ff0000000000000bff0000000000000"
                                "00000001000000020000000300000004000000050000000601020304"
                                "01"));

    CreateNURBSCurve curve;
    curve.identifier = 9;
    curve.degree = 1;
    curve.knots = {0.0, 1.0};
    curve.controlPoints = {{1.0, 2.0, 3.0, 0.5}};
    curve.rational = true;
    EXPECT_EQ(body(curve), bytes("00000009 00000001 00000002 0000000000000000 3ff0000000000000"
                                 "00000001 3ff0000000000000 4000000000000000 4008000000000000"
                                 "3fe0000000000000 01"));

    CreateNURBSSurface surface;
    surface.identifier = 1;
    surface.degreeU = 2;
    surface.degreeV = 3;
    surface.knotsU = {1.0};
    surface.resizeGrid(2, 1);
    EXPECT_EQ(body(surface),
              bytes("00000001 00000002 00000003 00000001 3ff0000000000000 00000000 00000002"
                    "00000001") +
                  QByteArray(32, '\0') + bytes("00000001") + QByteArray(32, '\0') + bytes("00"));
}

TEST(Message, ReadsWordsAsTheyWereSent) {
    const SetParameterMessage message({"-ResultFile"});
    const QByteArray expected =
        bytes("00000001 00000016 002d0052006500730075006c007400460069006c0065");
    EXPECT_EQ(expected.size(), 30);
    EXPECT_EQ(body(message), expected);
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

TEST(Message, IsValidByTheRulesOfItsClass) {
    const auto with = [](auto message, auto change) {
        change(message);
        return message.isValid();
    };
    const double nan = std::numeric_limits<double>::quiet_NaN();
    for (double bad : {0.0, -1.0, nan}) {
        EXPECT_FALSE(with(NewModel(), [&](auto& m) { m.accuracy = bad; }));
        EXPECT_FALSE(with(NewModel(), [&](auto& m) { m.accuracy = 1, m.unit = bad; }));
        EXPECT_FALSE(with(CreateCylinder(), [&](auto& m) { m.radius = bad; }));
        EXPECT_FALSE(with(CreateCone(), [&](auto& m) { m.angle = bad; }));
        EXPECT_FALSE(with(CreateSphere(), [&](auto& m) { m.radius = bad; }));
        EXPECT_FALSE(with(CreateTorus(), [&](auto& m) { m.minorRadius = 1, m.majorRadius = bad; }));
        EXPECT_FALSE(with(CreateTorus(), [&](auto& m) { m.majorRadius = 1, m.minorRadius = bad; }));
        EXPECT_FALSE(with(CreateArc(), [&](auto& m) { m.radius = 1, m.endAngle = bad; }));
        EXPECT_FALSE(with(CreateArc(), [&](auto& m) { m.radius = bad, m.endAngle = 1; }));
        const auto ellipse = [&](double little, double big, double end) {
            return with(CreateEllipse(), [&](auto& m) {
                m.littleHalfAxis = little, m.bigHalfAxis = big, m.endAngle = end;
            });
        };
        EXPECT_FALSE(ellipse(bad, 1, 1));
        EXPECT_FALSE(ellipse(1, bad, 1));
        EXPECT_FALSE(ellipse(1, 1, bad));
        EXPECT_TRUE(ellipse(2, 1, 1));
    }
    EXPECT_TRUE(with(NewModel(), [](auto& m) { m.accuracy = 1e-9; }));
    EXPECT_TRUE(with(CreateCylinder(), [](auto& m) { m.radius = 1e-9; }));
    EXPECT_TRUE(with(CreateCone(), [](auto& m) { m.angle = 1e-9; }));
    EXPECT_TRUE(with(CreateSphere(), [](auto& m) { m.radius = 1e-9; }));
    EXPECT_TRUE(with(CreateTorus(), [](auto& m) { m.minorRadius = 2, m.majorRadius = 1; }));
    EXPECT_TRUE(with(CreateArc(), [](auto& m) { m.radius = 1, m.startAngle = -1; }));
    EXPECT_TRUE(CreatePlane().isValid());
    EXPECT_TRUE(CreateLine().isValid());
    EXPECT_TRUE(EndModel().isValid());
    EXPECT_TRUE(OKMessage().isValid());
    EXPECT_FALSE(SetParameterMessage().isValid());
    EXPECT_TRUE(SetParameterMessage({QString()}).isValid());
    EXPECT_FALSE(CreateNURBSCurve().isValid());
    EXPECT_TRUE(with(CreateNURBSCurve(), [](auto& m) { m.degree = 1; }));
    EXPECT_FALSE(with(CreateNURBSSurface(), [](auto& m) { m.degreeU = 1; }));
    EXPECT_FALSE(with(CreateNURBSSurface(), [](auto& m) { m.degreeV = 1; }));
    EXPECT_TRUE(with(CreateNURBSSurface(), [](auto& m) { m.degreeU = m.degreeV = 1; }));
}

TEST(Message, NeedsTheReferencesThatItsClassNames) {
    EXPECT_FALSE(CreateVertex().isValid());
    EXPECT_FALSE(CreateCoordinateSystem().isValid());
    const auto all = [](bool id, bool second, bool third, bool fourth) {
        CreateCoedge coedge;
        coedge.identifier = id, coedge.curve = second, coedge.loop = third, coedge.face = fourth;
        CreateFace face;
        face.identifier = id, face.surfaceId = second;
        if (third && fourth) face.loops = {1};
        CreateLoop loop;
        loop.identifier = id, loop.faceId = second;
        if (third && fourth) loop.coedges = {1};
        EXPECT_EQ(face.isValid(), coedge.isValid());
        EXPECT_EQ(loop.isValid(), coedge.isValid());
        return coedge.isValid();
    };
    EXPECT_TRUE(all(true, true, true, true));
    EXPECT_FALSE(all(false, true, true, true));
    EXPECT_FALSE(all(true, false, true, true));
    EXPECT_FALSE(all(true, true, false, true));
    EXPECT_FALSE(all(true, true, true, false));

    for (bool id : {false, true}) {
        for (bool member : {false, true}) {
            const QList<int> members = member ? QList<int>{5} : QList<int>{};
            CreateBody body;
            CreateShell shell;
            CreateGroup group;
            CreateEdge edge;
            body.identifier = shell.identifier = group.identifier = edge.identifier = id ? -1 : 0;
            body.shells = shell.faces = group.components = members;
            edge.curve = member;
            EXPECT_EQ(body.isValid(), id && member);
            EXPECT_EQ(shell.isValid(), id && member);
            EXPECT_EQ(group.isValid(), id && member);
            EXPECT_EQ(edge.isValid(), id && member);
        }
    }
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
