// SPDX-License-Identifier: Apache-2.0
// Fields, validity and dump of the curves.
#include "cadimport/curvemessages.h"

#include "cadimport/dumplines.h"
#include "cadimport/messagebody.h"

namespace CADImport {

bool CreateLine::isValid() const { return true; }

template <class Wire, class Self> void CreateLine::fields(Wire& wire, Self& self) {
    wire.run(self.identifier, self.startPoint, self.endPoint);
}

void CreateLine::dumpFields(QTextStream& text) const {
    text << "\tstartPoint=(" << startPoint << ")";
    dumpBracketed(text, "endPoint", endPoint);
}

bool CreateArc::isValid() const { return radius > 0.0 && endAngle > startAngle; }

template <class Wire, class Self> void CreateArc::fields(Wire& wire, Self& self) {
    wire.run(self.identifier, self.center, self.normal, self.direction, self.radius,
             self.startAngle, self.endAngle);
}

void CreateArc::dumpFields(QTextStream& text) const {
    dumpBracketed(text, "center", center);
    dumpBracketed(text, "normal", normal);
    dumpBracketed(text, "direction", direction);
    dumpLine(text, "radius", radius);
    dumpLine(text, "startAngle", startAngle);
    dumpLine(text, "endAngle", endAngle);
}

bool CreateEllipse::isValid() const {
    return littleHalfAxis > 0.0 && bigHalfAxis > 0.0 && endAngle > startAngle;
}

template <class Wire, class Self> void CreateEllipse::fields(Wire& wire, Self& self) {
    wire.run(self.identifier, self.center, self.normal, self.direction, self.littleHalfAxis,
             self.bigHalfAxis, self.startAngle, self.endAngle);
}

void CreateEllipse::dumpFields(QTextStream& text) const {
    dumpBracketed(text, "center", center);
    dumpBracketed(text, "normal", normal);
    dumpBracketed(text, "direction", direction);
    dumpLine(text, "littleHalfAxis", littleHalfAxis);
    dumpLine(text, "bigHalfAxis", bigHalfAxis);
    dumpLine(text, "startAngle", startAngle);
    dumpLine(text, "endAngle", endAngle);
}

bool CreateNURBSCurve::isValid() const { return degree > 0; }

template <class Wire, class Self> void CreateNURBSCurve::fields(Wire& wire, Self& self) {
    wire.run(self.identifier, self.degree);
    wire.list(self.knots);
    wire.list(self.controlPoints);
    wire.run(self.rational);
}

void CreateNURBSCurve::dumpFields(QTextStream& text) const {
    dumpLine(text, "degree", degree);
    dumpLine(text, "rational", rational ? "true " : "false");
    dumpCountedList(text, "knots", knots);
    text << "\tcontrolPoints=( number=" << controlPoints.size() << Qt::endl;
    for (const ControlPoint& point : controlPoints) dumpControlPoint(text, point);
    text << "\t)" << Qt::endl;
}

template class MessageOf<CreateLine>;
template class MessageOf<CreateArc>;
template class MessageOf<CreateEllipse>;
template class MessageOf<CreateNURBSCurve>;

} // namespace CADImport
