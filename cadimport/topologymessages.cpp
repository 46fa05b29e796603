// SPDX-License-Identifier: Apache-2.0
// Fields, validity and dump of the topology messages.
#include "cadimport/topologymessages.h"

#include "cadimport/dumplines.h"
#include "cadimport/messagebody.h"

namespace CADImport {
namespace {

const char* senseText(bool sense) { return sense ? "Reverse" : "Forward"; }

} // namespace

bool NewModel::isValid() const { return accuracy > 0.0 && unit > 0.0; }

template <class Wire, class Self> void NewModel::fields(Wire& wire, Self& self) {
    wire.run(self.absolute, self.accuracy, self.unit);
}

void NewModel::dumpFields(QTextStream& text) const {
    text << (absolute ? "\tabsolute" : "\trelative");
    dumpLine(text, "accuracy", accuracy);
    text << "\tunit=" << unit << " mm" << Qt::endl;
}

bool EndModel::isValid() const { return true; }

template <class Wire, class Self> void EndModel::fields(Wire&, Self&) {}

void EndModel::dumpFields(QTextStream&) const {}

bool CreateBody::isValid() const { return identifier != 0 && !shells.isEmpty(); }

template <class Wire, class Self> void CreateBody::fields(Wire& wire, Self& self) {
    wire.run(self.identifier, self.boundingBox);
    wire.list(self.shells);
}

void CreateBody::dumpFields(QTextStream& text) const {
    dumpBox(text, "boundingBox", boundingBox);
    dumpLine(text, "numberOfShells", shells.size());
    dumpList(text, "shells", shells);
}

bool CreateShell::isValid() const { return identifier != 0 && !faces.isEmpty(); }

template <class Wire, class Self> void CreateShell::fields(Wire& wire, Self& self) {
    wire.run(self.identifier, self.boundingBox);
    wire.list(self.faces);
    wire.run(self.closed);
}

void CreateShell::dumpFields(QTextStream& text) const {
    dumpBox(text, "boundingBox", boundingBox);
    dumpLine(text, "numberOfFaces", faces.size());
    dumpList(text, "faces", faces);
    dumpLine(text, "colsed", closed ? "Closed" : "Open  ");
}

bool CreateFace::isValid() const { return identifier != 0 && surfaceId != 0 && !loops.isEmpty(); }

template <class Wire, class Self> void CreateFace::fields(Wire& wire, Self& self) {
    wire.run(self.identifier, self.boundingBox, self.uvBox);
    wire.list(self.loops);
    wire.run(self.surfaceId, self.sense, self.sides);
}

void CreateFace::dumpOpening(QTextStream& text) const {
    text << "<" << wireName << " tidentifier=\"" << identifier << "\">" << Qt::endl;
}

void CreateFace::dumpFields(QTextStream& text) const {
    dumpBox(text, "boundingBox", boundingBox);
    dumpBox(text, "uvBox", uvBox);
    dumpLine(text, "numberOfLoops", loops.size());
    dumpList(text, "loops", loops);
    dumpLine(text, "surfaceId", surfaceId);
    dumpLine(text, "sense", senseText(sense));
    dumpLine(text, "sides", sides ? "Double" : "Single");
}

bool CreateLoop::isValid() const { return identifier != 0 && faceId != 0 && !coedges.isEmpty(); }

template <class Wire, class Self> void CreateLoop::fields(Wire& wire, Self& self) {
    wire.run(self.identifier, self.boundingBox, self.uvBox);
    wire.list(self.coedges);
    wire.list(self.edges);
    wire.run(self.faceId, self.outer);
}

void CreateLoop::dumpFields(QTextStream& text) const {
    dumpBox(text, "boundingBox", boundingBox);
    dumpBox(text, "uvBox", uvBox);
    dumpLine(text, "numberOfComponents", coedges.size());
    text << "\t";
    dumpList(text, "coedges", coedges);
    dumpList(text, "edges", edges);
    dumpLine(text, "faceId", faceId);
    dumpLine(text, "outer", outer ? "Outer" : "Inner");
}

bool CreateCoedge::isValid() const {
    return identifier != 0 && curve != 0 && loop != 0 && face != 0;
}

template <class Wire, class Self> void CreateCoedge::fields(Wire& wire, Self& self) {
    wire.run(self.identifier, self.boundingUVBox, self.parameterRange, self.edge, self.partner,
             self.loop, self.face, self.curve, self.sense);
}

void CreateCoedge::dumpFields(QTextStream& text) const {
    dumpBox(text, "boundingUVBox", boundingUVBox);
    dumpSpaced(text, "parameterRange", parameterRange);
    dumpLine(text, "edge", edge);
    dumpLine(text, "partner", partner);
    dumpLine(text, "loop", loop);
    dumpLine(text, "face", face);
    dumpLine(text, "curve", curve);
    dumpLine(text, "sense", senseText(sense));
}

bool CreateEdge::isValid() const { return identifier != 0 && curve != 0; }

template <class Wire, class Self> void CreateEdge::fields(Wire& wire, Self& self) {
    wire.run(self.identifier, self.boundingBox, self.parameterRange, self.vertices, self.coedges,
             self.faces, self.curve, self.sense);
}

void CreateEdge::dumpFields(QTextStream& text) const {
    dumpBox(text, "boundingBox", boundingBox);
    dumpSpaced(text, "parameterRange", parameterRange);
    dumpSpaced(text, "vertices", vertices);
    dumpSpaced(text, "coedges", coedges);
    dumpSpaced(text, "faces", faces);
    dumpLine(text, "curve", curve);
    dumpLine(text, "sense", senseText(sense));
}

bool CreateVertex::isValid() const { return identifier != 0; }

template <class Wire, class Self> void CreateVertex::fields(Wire& wire, Self& self) {
    wire.run(self.identifier, self.point);
}

void CreateVertex::dumpFields(QTextStream& text) const { dumpSpaced(text, "point", point); }

bool CreateGroup::isValid() const { return identifier != 0 && !components.isEmpty(); }

template <class Wire, class Self> void CreateGroup::fields(Wire& wire, Self& self) {
    wire.run(self.identifier);
    wire.list(self.components);
}

void CreateGroup::dumpOpening(QTextStream& text) const {
    text << "<" << wireName << "> tidentifier=\"" << identifier << "\">" << Qt::endl;
}

void CreateGroup::dumpFields(QTextStream& text) const {
    dumpCountedList(text, "components", components);
}

bool CreateCoordinateSystem::isValid() const { return identifier != 0; }

template <class Wire, class Self> void CreateCoordinateSystem::fields(Wire& wire, Self& self) {
    wire.run(self.identifier, self.origin, self.xDirection, self.yDirection, self.zDirection);
}

void CreateCoordinateSystem::dumpFields(QTextStream& text) const {
    dumpSpaced(text, "origin", origin);
    dumpSpaced(text, "xDirection", xDirection);
    dumpSpaced(text, "yDirection", yDirection);
    dumpSpaced(text, "zDirection", zDirection);
}

template class MessageOf<NewModel>;
template class MessageOf<EndModel>;
template class MessageOf<CreateBody>;
template class MessageOf<CreateShell>;
template class MessageOf<CreateFace>;
template class MessageOf<CreateLoop>;
template class MessageOf<CreateCoedge>;
template class MessageOf<CreateEdge>;
template class MessageOf<CreateVertex>;
template class MessageOf<CreateGroup>;
template class MessageOf<CreateCoordinateSystem>;

} // namespace CADImport
