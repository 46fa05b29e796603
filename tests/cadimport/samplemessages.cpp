// SPDX-License-Identifier: Apache-2.0
// Filling messages, and putting models together from them.
#include "tests/cadimport/samplemessages.h"

#include <QIODevice>

namespace CADImport {
namespace {

using sample::Random;

struct Filler {
    Random& random;
    int length;

    void set(int& value) { value = static_cast<int>(random()); }
    void set(bool& value) { value = random() % 2 != 0; }
    void set(double& value) { value = (static_cast<double>(random()) - 2e9) / 1024.0; }
    void set(Point3& p) { all(p.x, p.y, p.z); }
    void set(Point2& p) { all(p.u, p.v); }
    void set(Range2& r) { all(r.first, r.last); }
    void set(Box& b) { all(b.first, b.second); }
    void set(UVBox& b) { all(b.first, b.second); }
    void set(ControlPoint& p) { all(p.x, p.y, p.z, p.w); }
    void set(std::array<int, 2>& pair) { all(pair[0], pair[1]); }
    void set(QString& word) { word = QString::number(random()) + QChar(0x20AC); }
    template <class T> void set(QList<T>& list) {
        list.clear();
        for (int i = 0; i < length; ++i) {
            T element;
            set(element);
            list.append(element);
        }
    }
    template <class... Fields> void all(Fields&... fields) { (set(fields), ...); }
};

template <class T> void fillFields(Filler, T&) {}
void fillFields(Filler f, SetParameterMessage& m) { f.all(m.parameters); }
void fillFields(Filler f, NewModel& m) { f.all(m.absolute, m.accuracy, m.unit); }
void fillFields(Filler f, CreateBody& m) { f.all(m.identifier, m.boundingBox, m.shells); }
void fillFields(Filler f, CreateShell& m) { f.all(m.identifier, m.boundingBox, m.faces, m.closed); }
void fillFields(Filler f, CreateFace& m) {
    f.all(m.identifier, m.boundingBox, m.uvBox, m.loops, m.surfaceId, m.sense, m.sides);
}
void fillFields(Filler f, CreateLoop& m) {
    f.all(m.identifier, m.boundingBox, m.uvBox, m.coedges, m.edges, m.faceId, m.outer);
}
void fillFields(Filler f, CreateCoedge& m) {
    f.all(m.identifier, m.boundingUVBox, m.parameterRange, m.edge, m.partner, m.loop, m.face,
          m.curve, m.sense);
}
void fillFields(Filler f, CreateEdge& m) {
    f.all(m.identifier, m.boundingBox, m.parameterRange, m.vertices, m.coedges, m.faces, m.curve,
          m.sense);
}
void fillFields(Filler f, CreateVertex& m) { f.all(m.identifier, m.point); }
void fillFields(Filler f, CreateGroup& m) { f.all(m.identifier, m.components); }
void fillFields(Filler f, CreateCoordinateSystem& m) {
    f.all(m.identifier, m.origin, m.xDirection, m.yDirection, m.zDirection);
}
template <class T> void fillFrame(Filler f, AnalyticSurface<T>& m) {
    f.all(m.identifier, m.origin, m.normal, m.uDirection, m.uRange, m.vRange);
}
void fillFields(Filler f, CreatePlane& m) { fillFrame(f, m); }
void fillFields(Filler f, CreateCylinder& m) { fillFrame(f, m), f.all(m.radius); }
void fillFields(Filler f, CreateCone& m) { fillFrame(f, m), f.all(m.angle); }
void fillFields(Filler f, CreateSphere& m) { fillFrame(f, m), f.all(m.radius); }
void fillFields(Filler f, CreateTorus& m) { fillFrame(f, m), f.all(m.minorRadius, m.majorRadius); }
void fillFields(Filler f, CreateNURBSSurface& m) {
    f.all(m.identifier, m.degreeU, m.degreeV, m.knotsU, m.knotsV, m.controlPoints, m.rational);
}
void fillFields(Filler f, CreateLine& m) { f.all(m.identifier, m.startPoint, m.endPoint); }
void fillFields(Filler f, CreateArc& m) {
    f.all(m.identifier, m.center, m.normal, m.direction, m.radius, m.startAngle, m.endAngle);
}
void fillFields(Filler f, CreateEllipse& m) {
    f.all(m.identifier, m.center, m.normal, m.direction, m.littleHalfAxis, m.bigHalfAxis,
          m.startAngle, m.endAngle);
}
void fillFields(Filler f, CreateNURBSCurve& m) {
    f.all(m.identifier, m.degree, m.knots, m.controlPoints, m.rational);
}

template <class... Classes>
std::vector<std::unique_ptr<Message>> filled(Random& random, int length) {
    std::vector<std::unique_ptr<Message>> messages;
    const auto add = [&](auto message) {
        fillFields({random, length}, *message);
        messages.push_back(std::move(message));
    };
    (add(std::make_unique<Classes>()), ...);
    return messages;
}

/// Collects records up to a size.
struct ModelWriter {
    explicit ModelWriter(qint64 sizeWanted) : size(sizeWanted) {
        bytes.reserve(static_cast<int>(size + size / 8));
        stream.setVersion(streamVersion);
    }
    template <class T> void add(int length = 1) {
        T message;
        fillFields({random, length}, message);
        stream << T::wireName;
        message.write(stream);
    }
    bool isFull() const { return bytes.size() >= size; }
    int between(int low, int high) {
        return low + static_cast<int>(random() % static_cast<unsigned>(high - low + 1));
    }

    qint64 size;
    Random random{20240607};
    QByteArray bytes;
    QDataStream stream{&bytes, QIODevice::WriteOnly};
};

void addFreeFormSurface(ModelWriter& writer) {
    CreateNURBSSurface surface;
    fillFields({writer.random, 1}, surface);
    const int rows = writer.between(4, 24);
    const int columns = writer.between(4, 24);
    fillFields({writer.random, rows + 4}, surface);
    surface.resizeGrid(rows, columns);
    writer.stream << surface.name();
    surface.write(writer.stream);
}

/// A face with a loop of four edges; each edge counts for two faces.
void addFace(ModelWriter& writer) {
    if (writer.between(1, 100) <= 64) {
        addFreeFormSurface(writer);
    } else {
        writer.add<CreatePlane>();
        writer.add<CreateCylinder>();
    }
    for (int i = 0; i < 2; ++i) {
        writer.add<CreateLine>();
        writer.add<CreateArc>();
        writer.add<CreateEdge>();
        writer.add<CreateVertex>();
    }
    for (int i = 0; i < 4; ++i) writer.add<CreateCoedge>();
    writer.add<CreateLoop>(4);
    writer.add<CreateFace>(1);
}

} // namespace
} // namespace CADImport

namespace sample {

using namespace CADImport;

std::vector<std::unique_ptr<Message>> oneOfEach(Random& random, int length) {
    return filled<OKMessage, EscapeMessage, FinishMessage, SendNextModelMessage,
                  SetParameterMessage, NewModel, EndModel, CreateBody, CreateShell, CreateFace,
                  CreateLoop, CreateCoedge, CreateEdge, CreateVertex, CreateGroup,
                  CreateCoordinateSystem, CreatePlane, CreateCylinder, CreateCone, CreateSphere,
                  CreateTorus, CreateNURBSSurface, CreateLine, CreateArc, CreateEllipse,
                  CreateNURBSCurve>(random, length);
}

QByteArray record(const Message& message) {
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(streamVersion);
    stream << message.name();
    message.write(stream);
    return bytes;
}

QByteArray mixedModel(qint64 size) {
    ModelWriter writer(size);
    writer.add<NewModel>();
    while (!writer.isFull()) addFace(writer);
    writer.add<EndModel>();
    return writer.bytes;
}

QByteArray smallRecords(qint64 size) {
    ModelWriter writer(size);
    while (!writer.isFull()) {
        writer.add<CreateEdge>();
        writer.add<CreateCoedge>();
        writer.add<CreateVertex>();
        writer.add<CreateLine>();
        writer.add<CreatePlane>();
    }
    return writer.bytes;
}

} // namespace sample
