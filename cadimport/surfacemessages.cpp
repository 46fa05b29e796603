// SPDX-License-Identifier: Apache-2.0
// Fields, validity and dump of the surfaces.
#include "cadimport/surfacemessages.h"

#include "cadimport/dumplines.h"
#include "cadimport/messagebody.h"

namespace CADImport {
namespace {

/// Zero to the last component.
constexpr ControlPoint noPoint{0.0, 0.0, 0.0, 0.0};

template <class List, class Element>
void cutOrPad(List& list, qsizetype size, const Element& padding) {
    while (list.size() > size) list.removeLast();
    while (list.size() < size) list.append(padding);
}

template <class Wire, class Self, class... Tail>
void framedFields(Wire& wire, Self& self, Tail&... tail) {
    wire.run(self.identifier, self.origin, self.normal, self.uDirection, self.uRange, self.vRange,
             tail...);
}

} // namespace

template <class T> void AnalyticSurface<T>::dumpFrame(QTextStream& text) const {
    dumpBracketed(text, "origin", origin);
    dumpBracketed(text, "normal", normal);
    dumpBracketed(text, "uDirection", uDirection);
    dumpBracketed(text, "uRange", uRange);
    dumpBracketed(text, "vRange", vRange);
}

bool CreatePlane::isValid() const { return true; }

template <class Wire, class Self> void CreatePlane::fields(Wire& wire, Self& self) {
    framedFields(wire, self);
}

void CreatePlane::dumpFields(QTextStream& text) const { dumpFrame(text); }

bool CreateCylinder::isValid() const { return radius > 0.0; }

template <class Wire, class Self> void CreateCylinder::fields(Wire& wire, Self& self) {
    framedFields(wire, self, self.radius);
}

void CreateCylinder::dumpFields(QTextStream& text) const {
    dumpFrame(text);
    dumpLine(text, "radius", radius);
}

bool CreateCone::isValid() const { return angle > 0.0; }

template <class Wire, class Self> void CreateCone::fields(Wire& wire, Self& self) {
    framedFields(wire, self, self.angle);
}

void CreateCone::dumpFields(QTextStream& text) const {
    dumpFrame(text);
    dumpLine(text, "angle", angle);
}

bool CreateSphere::isValid() const { return radius > 0.0; }

template <class Wire, class Self> void CreateSphere::fields(Wire& wire, Self& self) {
    framedFields(wire, self, self.radius);
}

void CreateSphere::dumpFields(QTextStream& text) const {
    dumpFrame(text);
    dumpLine(text, "radius", radius);
}

bool CreateTorus::isValid() const { return minorRadius > 0.0 && majorRadius > 0.0; }

template <class Wire, class Self> void CreateTorus::fields(Wire& wire, Self& self) {
    framedFields(wire, self, self.minorRadius, self.majorRadius);
}

void CreateTorus::dumpFields(QTextStream& text) const {
    dumpFrame(text);
    dumpLine(text, "minorRadius", minorRadius);
    dumpLine(text, "majorRadius", majorRadius);
}

bool CreateNURBSSurface::isValid() const { return degreeU >= 1 && degreeV >= 1; }

void CreateNURBSSurface::resizeGrid(int rows, int columns) {
    while (controlPoints.size() > qMax(rows, 0)) controlPoints.removeLast();
    for (QList<ControlPoint>& row : controlPoints) cutOrPad(row, qMax(columns, 0), noPoint);
    QList<ControlPoint> newRow;
    cutOrPad(newRow, qMax(columns, 0), noPoint);
    cutOrPad(controlPoints, qMax(rows, 0), newRow);
}

template <class Wire, class Self> void CreateNURBSSurface::fields(Wire& wire, Self& self) {
    wire.run(self.identifier, self.degreeU, self.degreeV);
    wire.list(self.knotsU);
    wire.list(self.knotsV);
    wire.list(self.controlPoints);
    wire.run(self.rational);
}

void CreateNURBSSurface::dumpFields(QTextStream& text) const {
    dumpLine(text, "degreeU", degreeU);
    dumpLine(text, "degreeV", degreeV);
    dumpLine(text, "rational", rational ? "true " : "false");
    dumpCountedList(text, "knotsU", knotsU);
    dumpCountedList(text, "knotsV", knotsV);
    text << "\tcontrolPoints=( number=" << controlPoints.size() << Qt::endl;
    for (const QList<ControlPoint>& row : controlPoints) {
        const auto columns = controlPoints.first().size();
        text << "\t( number=" << columns << Qt::endl;
        for (const ControlPoint& point : row.mid(0, columns)) dumpControlPoint(text, point);
        text << "\t)" << Qt::endl;
    }
    text << "\t)" << Qt::endl;
}

template class MessageOf<CreatePlane>;
template class MessageOf<CreateCylinder>;
template class MessageOf<CreateCone>;
template class MessageOf<CreateSphere>;
template class MessageOf<CreateTorus>;
template class MessageOf<CreateNURBSSurface>;

} // namespace CADImport
