// SPDX-License-Identifier: Apache-2.0
// The layouts of all bodies once more, written as reads of single values.
#include "tests/cadimport/plainreading.h"

#include "cadimport/controlmessages.h"
#include "cadimport/curvemessages.h"
#include "cadimport/surfacemessages.h"
#include "cadimport/topologymessages.h"

#include <QMap>

namespace CADImport {
namespace {

QDataStream& operator>>(QDataStream& s, Point3& p) { return s >> p.x >> p.y >> p.z; }
QDataStream& operator>>(QDataStream& s, Range2& r) { return s >> r.first >> r.last; }
QDataStream& operator>>(QDataStream& s, Box& b) { return s >> b.first >> b.second; }
QDataStream& operator>>(QDataStream& s, UVBox& b) {
    return s >> b.first.u >> b.first.v >> b.second.u >> b.second.v;
}
QDataStream& operator>>(QDataStream& s, ControlPoint& p) { return s >> p.x >> p.y >> p.z >> p.w; }
QDataStream& operator>>(QDataStream& s, std::array<int, 2>& p) { return s >> p[0] >> p[1]; }

template <class List> void readList(QDataStream& s, List& list);
void readElement(QDataStream& s, QList<ControlPoint>& row) { readList(s, row); }
template <class T> void readElement(QDataStream& s, T& value) { s >> value; }

template <class List> void readList(QDataStream& s, List& list) {
    list.clear();
    qint32 count;
    s >> count;
    for (qint32 i = 0; i < count; ++i) {
        typename List::value_type element;
        readElement(s, element);
        list.append(element);
        if (s.atEnd()) break;
    }
}

void readBody(QDataStream&, OKMessage&) {}
void readBody(QDataStream&, EscapeMessage&) {}
void readBody(QDataStream&, FinishMessage&) {}
void readBody(QDataStream&, SendNextModelMessage&) {}
void readBody(QDataStream& s, SetParameterMessage& m) { readList(s, m.parameters); }

void readBody(QDataStream& s, NewModel& m) { s >> m.absolute >> m.accuracy >> m.unit; }
void readBody(QDataStream&, EndModel&) {}
void readBody(QDataStream& s, CreateBody& m) {
    s >> m.identifier >> m.boundingBox;
    readList(s, m.shells);
}
void readBody(QDataStream& s, CreateShell& m) {
    s >> m.identifier >> m.boundingBox;
    readList(s, m.faces);
    s >> m.closed;
}
void readBody(QDataStream& s, CreateFace& m) {
    s >> m.identifier >> m.boundingBox >> m.uvBox;
    readList(s, m.loops);
    s >> m.surfaceId >> m.sense >> m.sides;
}
void readBody(QDataStream& s, CreateLoop& m) {
    s >> m.identifier >> m.boundingBox >> m.uvBox;
    readList(s, m.coedges);
    readList(s, m.edges);
    s >> m.faceId >> m.outer;
}
void readBody(QDataStream& s, CreateCoedge& m) {
    s >> m.identifier >> m.boundingUVBox >> m.parameterRange;
    s >> m.edge >> m.partner >> m.loop >> m.face >> m.curve >> m.sense;
}
void readBody(QDataStream& s, CreateEdge& m) {
    s >> m.identifier >> m.boundingBox >> m.parameterRange;
    s >> m.vertices >> m.coedges >> m.faces >> m.curve >> m.sense;
}
void readBody(QDataStream& s, CreateVertex& m) { s >> m.identifier >> m.point; }
void readBody(QDataStream& s, CreateGroup& m) {
    s >> m.identifier;
    readList(s, m.components);
}
void readBody(QDataStream& s, CreateCoordinateSystem& m) {
    s >> m.identifier >> m.origin >> m.xDirection >> m.yDirection >> m.zDirection;
}

template <class T> QDataStream& readFrame(QDataStream& s, T& m) {
    return s >> m.identifier >> m.origin >> m.normal >> m.uDirection >> m.uRange >> m.vRange;
}
void readBody(QDataStream& s, CreatePlane& m) { readFrame(s, m); }
void readBody(QDataStream& s, CreateCylinder& m) { readFrame(s, m) >> m.radius; }
void readBody(QDataStream& s, CreateCone& m) { readFrame(s, m) >> m.angle; }
void readBody(QDataStream& s, CreateSphere& m) { readFrame(s, m) >> m.radius; }
void readBody(QDataStream& s, CreateTorus& m) { readFrame(s, m) >> m.minorRadius >> m.majorRadius; }
void readBody(QDataStream& s, CreateNURBSSurface& m) {
    s >> m.identifier >> m.degreeU >> m.degreeV;
    readList(s, m.knotsU);
    readList(s, m.knotsV);
    readList(s, m.controlPoints);
    s >> m.rational;
}

void readBody(QDataStream& s, CreateLine& m) { s >> m.identifier >> m.startPoint >> m.endPoint; }
void readBody(QDataStream& s, CreateArc& m) {
    s >> m.identifier >> m.center >> m.normal >> m.direction;
    s >> m.radius >> m.startAngle >> m.endAngle;
}
void readBody(QDataStream& s, CreateEllipse& m) {
    s >> m.identifier >> m.center >> m.normal >> m.direction;
    s >> m.littleHalfAxis >> m.bigHalfAxis >> m.startAngle >> m.endAngle;
}
void readBody(QDataStream& s, CreateNURBSCurve& m) {
    s >> m.identifier >> m.degree;
    readList(s, m.knots);
    readList(s, m.controlPoints);
    s >> m.rational;
}

using Reader = Message* (*)(QDataStream&);

template <class T> Message* readMessage(QDataStream& stream) {
    auto* message = new T;
    readBody(stream, *message);
    return message;
}

const QMap<QString, Reader>& readers() {
    static const QMap<QString, Reader> map = {
        {"OK", readMessage<OKMessage>},
        {"Escape", readMessage<EscapeMessage>},
        {"Finish", readMessage<FinishMessage>},
        {"SendNextModel", readMessage<SendNextModelMessage>},
        {"SetParameters", readMessage<SetParameterMessage>},
        {"NewModel", readMessage<NewModel>},
        {"EndModel", readMessage<EndModel>},
        {"CreateBody", readMessage<CreateBody>},
        {"CreateShell", readMessage<CreateShell>},
        {"CreateFace", readMessage<CreateFace>},
        {"CreateLoop", readMessage<CreateLoop>},
        {"CreateCoedge", readMessage<CreateCoedge>},
        {"CreateEdge", readMessage<CreateEdge>},
        {"CreateVertex", readMessage<CreateVertex>},
        {"CreateGroup", readMessage<CreateGroup>},
        {"CreateCoordinateSystem", readMessage<CreateCoordinateSystem>},
        {"CreatePlane", readMessage<CreatePlane>},
        {"CreateCylinder", readMessage<CreateCylinder>},
        {"CreateCone", readMessage<CreateCone>},
        {"CreateSphere", readMessage<CreateSphere>},
        {"CreateTorus", readMessage<CreateTorus>},
        {"CreateNURBSSurface", readMessage<CreateNURBSSurface>},
        {"CreateLine", readMessage<CreateLine>},
        {"CreateArc", readMessage<CreateArc>},
        {"CreateEllipse", readMessage<CreateEllipse>},
        {"CreateNURBSCurve", readMessage<CreateNURBSCurve>},
    };
    return map;
}

} // namespace
} // namespace CADImport

namespace plain {

std::unique_ptr<CADImport::Message> readRecord(QDataStream& stream) {
    QString wireName;
    stream >> wireName;
    const auto reader = CADImport::readers().value(wireName, nullptr);
    return std::unique_ptr<CADImport::Message>(reader ? reader(stream) : nullptr);
}

} // namespace plain
