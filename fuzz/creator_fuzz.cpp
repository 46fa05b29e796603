// SPDX-License-Identifier: Apache-2.0
// A model file through the Creator into the reference host: every message can be shown as JSON, and
// the record that comes of them goes to the worker and back. The first byte is passed over, so that
// the seeds of decode_fuzz serve here too.
#include "apps/blockjson.h"
#include "apps/messagejson.h"
#include "cadimport/creator.h"
#include "cadimport/recordreader.h"
#include "component/manageraccess.h"
#include "fuzz/recordbytes.h"
#include "host/modelling/modellingcomponent.h"
#include "zelbasictypes/sets/bitvector.h"

namespace {

void build(QIODevice& file, host::ModellingComponent& modelling) {
    CADImport::Creator creator(modelling.importTarget());
    CADImport::RecordReader records(file);
    while (!records.atEnd()) {
        const CADImport::Message* message = records.look();
        if (!message) continue;
        apps::jsonText(apps::messageJson(*message));
        if (message->isValid()) message->accept(creator);
    }
    std::list<IZelFeature*> features;
    std::list<BitVector*> masks;
    creator.coordinateSystems(features, masks);
    require(features.size() == masks.size(), "lists of two lengths");
    modelling.takeCoordinateSystems(features);
    for (BitVector* mask : masks) delete mask;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    zelSetManager(&host::rootManager());
    QBuffer file;
    file.setData(reinterpret_cast<const char*>(data + 1), static_cast<int>(size - 1));
    file.open(QIODevice::ReadOnly);
    {
        host::ModellingComponent modelling(host::rootManager());
        build(file, modelling);
        const QByteArray bytes = written(modelling.record());
        const auto again = readBack(bytes);
        require(again && written(*again) == bytes, "the record comes back otherwise");
    }
    host::rootManager().clear();
    return 0;
}
