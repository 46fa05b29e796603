// SPDX-License-Identifier: Apache-2.0
// Recording topology, call by call.
#include "host/modelling/importer.h"

#include "component/objects/queryinterface.h"
#include "host/modelling/importtarget.h"
#include "host/modelling/modelcheck.h"
#include "host/modelling/shapeobject.h"

namespace host {
namespace {

constexpr const char* self = "importer";
constexpr const char* cameTwice = "its identifier came twice; the later one counts";

using Identifiers = std::span<const std::int32_t>;

Identifiers identifiers(const std::int32_t* values, std::int32_t count) {
    return {values, values && count > 0 ? static_cast<std::size_t>(count) : 0};
}

template <class Recorded> std::string_view traceName(IZelUnknown* shape) {
    if (!shape) return {};
    const Recorded* known = zelQuery<Recorded>(shape);
    return known ? std::string_view(known->traceName()) : "foreign";
}

bool isEmpty(const ModelRecord& model) {
    return model.edges.empty() && model.loops.empty() && model.faces.empty() &&
           model.shells.empty();
}

} // namespace

Importer::~Importer() {
    if (model_.begun) giveUp("it was cut off before its end");
}

void Importer::qi(const char* name, void** result, std::int32_t) {
    zelAnswerQuery<IZelCADImporter>(this, className(), name, result);
}

void Importer::beginModel(bool absolute, double accuracy) {
    session_->trace.call(self, "beginModel", absolute, accuracy);
    if (model_.begun) giveUp("another model began before its end");
    if (!isEmpty(model_.record)) giveUp("it came without its unit, so its size is unknown");
    model_ = {};
    session_->beginModel();
    model_.begun = true;
    model_.record.absolute = absolute;
    model_.record.accuracy = accuracy;
}

void Importer::setShellBox(const ZelBox3& box) {
    session_->trace.call(self, "setShellBox", box);
    model_.nextBox = box;
}

void Importer::createEdge(std::int32_t edge) {
    session_->trace.call(self, "createEdge", edge);
    if (model_.record.edges.count(edge)) session_->drop("edge", edge, cameTwice);
    model_.record.edges[edge] = {};
    model_.curves.erase(edge);
}

void Importer::setEdgeFace(std::int32_t edge, std::int32_t side, std::int32_t face) {
    session_->trace.call(self, "setEdgeFace", edge, side, face);
    if (EdgeRecord* known = findEdge(edge, side))
        known->faces[static_cast<std::size_t>(side)] = face;
}

void Importer::setEdgeSense(std::int32_t edge, std::int32_t side, bool sense) {
    session_->trace.call(self, "setEdgeSense", edge, side, sense);
    if (EdgeRecord* known = findEdge(edge, side)) {
        known->sense[static_cast<std::size_t>(side)] = sense;
    }
}

void Importer::setEdgeCurve(std::int32_t edge, IZelCurve* curve) {
    session_->trace.call(self, "setEdgeCurve", edge, TraceObject{traceName<RecordedCurve>(curve)});
    if (findEdge(edge, 0)) model_.curves[edge] = curve;
}

void Importer::createLoop(std::int32_t loop, const std::int32_t* edges, std::int32_t edgeCount,
                          bool outer) {
    const Identifiers list = identifiers(edges, edgeCount);
    session_->trace.call(self, "createLoop", loop, list, edgeCount, outer);
    if (model_.record.loops.count(loop)) session_->drop("loop", loop, cameTwice);
    model_.record.loops[loop] = {{list.begin(), list.end()}, outer};
}

void Importer::createFace(std::int32_t face) {
    session_->trace.call(self, "createFace", face);
    if (model_.record.faces.count(face)) session_->drop("face", face, cameTwice);
    model_.record.faces[face] = {};
    model_.surfaces.erase(face);
}

void Importer::setFaceSurface(std::int32_t face, IZelSurface* surface) {
    session_->trace.call(self, "setFaceSurface", face,
                         TraceObject{traceName<RecordedSurface>(surface)});
    if (findFace(face)) model_.surfaces[face] = surface;
}

void Importer::addFaceLoop(std::int32_t face, std::int32_t loop) {
    session_->trace.call(self, "addFaceLoop", face, loop);
    if (FaceRecord* known = findFace(face)) known->loops.push_back(loop);
}

void Importer::createShell(std::int32_t shell, const std::int32_t* faces, std::int32_t faceCount,
                           bool closed) {
    const Identifiers list = identifiers(faces, faceCount);
    session_->trace.call(self, "createShell", shell, list, faceCount, closed);
    if (!model_.shells.insert(shell).second) {
        session_->drop("shell", shell, "its identifier came twice");
    }
    model_.record.shells.push_back(
        {shell, model_.nextBox.min, model_.nextBox.max, {list.begin(), list.end()}, closed});
}

void* Importer::finishModel() {
    session_->trace.call(self, "finishModel");
    const bool kept = keepModel();
    model_ = {};
    IZelImportedModel* model = new ImportedModel(*session_, kept);
    session_->finished.emplace_back(model);
    return model;
}

/// The record is the session's from here on; false for a model that never began.
bool Importer::keepModel() {
    if (!model_.begun) {
        giveUp(isEmpty(model_.record) ? "it ended without having begun"
                                      : "it came without its unit, so its size is unknown");
        return false;
    }
    ++session_->modelsSeen;
    resolveShapes();
    noteLosses(model_.record, *session_);
    session_->endModel(true);
    session_->record.models.push_back(std::move(model_.record));
    return true;
}

/// A model that is dropped goes by its ordinal in the run.
void Importer::giveUp(const char* why) {
    session_->endModel(false);
    session_->drop("model", ++session_->modelsSeen, why);
    model_.begun = false;
    model_.record = {};
}

void Importer::resolveShapes() {
    for (const auto& [edge, curve] : model_.curves) {
        const auto* known = zelQuery<RecordedCurve>(curve.iface);
        if (known) model_.record.edges[edge].curve = known->record();
    }
    for (const auto& [face, surface] : model_.surfaces) {
        const auto* known = zelQuery<RecordedSurface>(surface.iface);
        if (known) model_.record.faces[face].surface = known->record();
    }
}

EdgeRecord* Importer::findEdge(Identifier edge, std::int32_t side) {
    const auto found = model_.record.edges.find(edge);
    if (found != model_.record.edges.end() && (side == 0 || side == 1)) return &found->second;
    session_->drop("edge", edge, "something was said of an edge or a side that is not there");
    return nullptr;
}

FaceRecord* Importer::findFace(Identifier face) {
    const auto found = model_.record.faces.find(face);
    if (found != model_.record.faces.end()) return &found->second;
    session_->drop("face", face, "something was said of a face that is not there");
    return nullptr;
}

} // namespace host
