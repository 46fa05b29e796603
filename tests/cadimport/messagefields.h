// SPDX-License-Identifier: Apache-2.0
// The layouts of all bodies, written down a second time: which fields a message has, in the order
// of the wire. Tests fill and read messages by it.
#pragma once

#include "cadimport/controlmessages.h"
#include "cadimport/curvemessages.h"
#include "cadimport/surfacemessages.h"
#include "cadimport/topologymessages.h"

#include <tuple>

namespace CADImport {

/// One after the other.
using AllClasses =
    std::tuple<OKMessage, EscapeMessage, FinishMessage, SendNextModelMessage, SetParameterMessage,
               NewModel, EndModel, CreateBody, CreateShell, CreateFace, CreateLoop, CreateCoedge,
               CreateEdge, CreateVertex, CreateGroup, CreateCoordinateSystem, CreatePlane,
               CreateCylinder, CreateCone, CreateSphere, CreateTorus, CreateNURBSSurface,
               CreateLine, CreateArc, CreateEllipse, CreateNURBSCurve>;

// The parts of values that are more than a number. Lists are left to whoever asks.
inline auto fieldsOf(Point2& p) { return std::tie(p.u, p.v); }
inline auto fieldsOf(Point3& p) { return std::tie(p.x, p.y, p.z); }
inline auto fieldsOf(Range2& r) { return std::tie(r.first, r.last); }
inline auto fieldsOf(Box& b) { return std::tie(b.first, b.second); }
inline auto fieldsOf(UVBox& b) { return std::tie(b.first, b.second); }
inline auto fieldsOf(ControlPoint& p) { return std::tie(p.x, p.y, p.z, p.w); }
inline auto fieldsOf(std::array<int, 2>& pair) { return std::tie(pair[0], pair[1]); }

template <class T> auto frameOf(T& m) {
    return std::tie(m.identifier, m.origin, m.normal, m.uDirection, m.uRange, m.vRange);
}

inline auto fieldsOf(OKMessage&) { return std::tie(); }
inline auto fieldsOf(EscapeMessage&) { return std::tie(); }
inline auto fieldsOf(FinishMessage&) { return std::tie(); }
inline auto fieldsOf(SendNextModelMessage&) { return std::tie(); }
inline auto fieldsOf(SetParameterMessage& m) { return std::tie(m.parameters); }
inline auto fieldsOf(NewModel& m) { return std::tie(m.absolute, m.accuracy, m.unit); }
inline auto fieldsOf(EndModel&) { return std::tie(); }
inline auto fieldsOf(CreateBody& m) { return std::tie(m.identifier, m.boundingBox, m.shells); }
inline auto fieldsOf(CreateShell& m) {
    return std::tie(m.identifier, m.boundingBox, m.faces, m.closed);
}
inline auto fieldsOf(CreateFace& m) {
    return std::tie(m.identifier, m.boundingBox, m.uvBox, m.loops, m.surfaceId, m.sense, m.sides);
}
inline auto fieldsOf(CreateLoop& m) {
    return std::tie(m.identifier, m.boundingBox, m.uvBox, m.coedges, m.edges, m.faceId, m.outer);
}
inline auto fieldsOf(CreateCoedge& m) {
    return std::tie(m.identifier, m.boundingUVBox, m.parameterRange, m.edge, m.partner, m.loop,
                    m.face, m.curve, m.sense);
}
inline auto fieldsOf(CreateEdge& m) {
    return std::tie(m.identifier, m.boundingBox, m.parameterRange, m.vertices, m.coedges, m.faces,
                    m.curve, m.sense);
}
inline auto fieldsOf(CreateVertex& m) { return std::tie(m.identifier, m.point); }
inline auto fieldsOf(CreateGroup& m) { return std::tie(m.identifier, m.components); }
inline auto fieldsOf(CreateCoordinateSystem& m) {
    return std::tie(m.identifier, m.origin, m.xDirection, m.yDirection, m.zDirection);
}
inline auto fieldsOf(CreatePlane& m) { return frameOf(m); }
inline auto fieldsOf(CreateCylinder& m) { return std::tuple_cat(frameOf(m), std::tie(m.radius)); }
inline auto fieldsOf(CreateCone& m) { return std::tuple_cat(frameOf(m), std::tie(m.angle)); }
inline auto fieldsOf(CreateSphere& m) { return std::tuple_cat(frameOf(m), std::tie(m.radius)); }
inline auto fieldsOf(CreateTorus& m) {
    return std::tuple_cat(frameOf(m), std::tie(m.minorRadius, m.majorRadius));
}
inline auto fieldsOf(CreateNURBSSurface& m) {
    return std::tie(m.identifier, m.degreeU, m.degreeV, m.knotsU, m.knotsV, m.controlPoints,
                    m.rational);
}
inline auto fieldsOf(CreateLine& m) { return std::tie(m.identifier, m.startPoint, m.endPoint); }
inline auto fieldsOf(CreateArc& m) {
    return std::tie(m.identifier, m.center, m.normal, m.direction, m.radius, m.startAngle,
                    m.endAngle);
}
inline auto fieldsOf(CreateEllipse& m) {
    return std::tie(m.identifier, m.center, m.normal, m.direction, m.littleHalfAxis, m.bigHalfAxis,
                    m.startAngle, m.endAngle);
}
inline auto fieldsOf(CreateNURBSCurve& m) {
    return std::tie(m.identifier, m.degree, m.knots, m.controlPoints, m.rational);
}

} // namespace CADImport
