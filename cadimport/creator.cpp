// SPDX-License-Identifier: Apache-2.0
// The frame of a model: what opens it, what closes it, and what outlives it.
#include "cadimport/creator.h"

#include "cadimport/messageregistry.h"
#include "cadimport/modelling/importtarget.h"
#include "component/manageraccess.h"
#include "platform/unload.h"
#include "zelbasictypes/sets/bitvector.h"

namespace CADImport {
namespace {

template <class T> void replace(std::list<T>& target, const std::list<T>& source) {
    if (&target != &source) target = source;
}

/// With a module that reads messages their table goes too.
const platform::AtUnload freeingMessages([] { delete &messageRegistry(); });

void* modelEntry(IZelImportTarget* target, void* finished) {
    IZelImportedModel* model = target ? target->resolveModel(finished) : nullptr;
    return model ? model->modelEntry() : nullptr;
}

} // namespace

Creator::Creator(IZelImportTarget* target) : importTarget(target) {
    void* made = nullptr;
    zelCreateInstance(zelImporterClassId, KorCString::borrow(IZelCADImporter::interfaceName),
                      &made);
    importer = static_cast<IZelCADImporter*>(made);
}

Creator::~Creator() = default;

void Creator::coordinateSystems(std::list<IZelFeature*>& features,
                                std::list<BitVector*>& masks) const {
    replace(features, coordinateSystems_);
    replace(masks, coordinateSystemMasks);
}

void Creator::visit(const NewModel& message) {
    if (!message.isValid()) return;
    importer->beginModel(message.absolute, message.accuracy);
    modelScale = message.unit / 1000.0;
    modelTransform = modelScale == 1.0
                         ? nullptr
                         : std::make_unique<ZelMatrix4>(ZelMatrix4::uniformScale(modelScale));
}

void Creator::visit(const EndModel& message) {
    if (!message.isValid()) return;
    if (void* entry = modelEntry(importTarget, importer->finishModel())) models_.push_back(entry);
    curves.clear();
    surfaces.clear();
    modelTransform.reset();
    modelScale = 0.0;
}

} // namespace CADImport
