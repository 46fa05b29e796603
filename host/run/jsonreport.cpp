// SPDX-License-Identifier: Apache-2.0
// The report as JSON.
#include "host/run/report.h"

namespace host {
namespace {

using Json = nlohmann::ordered_json;

Json boxJson(const std::array<double, 6>& box) {
    return {{box[0], box[1], box[2]}, {box[3], box[4], box[5]}};
}

/// What only a solid can tell is null without one.
Json modelJson(const RebuiltModel& model, bool rebuilt) {
    Json json;
    json["faces"] = model.faces;
    json["edges"] = model.edges;
    json["shells"] = model.shells;
    json["closed"] = model.closed;
    json["valid"] = rebuilt && model.valid ? Json(*model.valid) : Json();
    json["area"] = rebuilt ? Json(model.areaM2) : Json();
    json["volume"] = rebuilt ? Json(model.volumeM3) : Json();
    json["boundingBox"] = boxJson(model.boundingBoxM);
    return json;
}

Json entryJson(const DroppedRecord& entry, const char* by) {
    return {{"what", entry.what},
            {"model", entry.model ? Json(entry.model) : Json()},
            {"identifier", entry.identifier},
            {"why", entry.why},
            {"by", by}};
}

Json modelsJson(const RunOutcome& outcome) {
    Json list = Json::array();
    for (const RebuiltModel& model : outcome.models) {
        list.push_back(modelJson(model, outcome.rebuilt));
    }
    return list;
}

Json listJson(const std::vector<DroppedRecord>& ofServer,
              const std::vector<DroppedRecord>& ofHost) {
    Json list = Json::array();
    for (const auto& entry : ofServer) list.push_back(entryJson(entry, "server"));
    for (const auto& entry : ofHost) list.push_back(entryJson(entry, "host"));
    return list;
}

} // namespace

std::string jsonReport(const RunOutcome& outcome) {
    Json json;
    json["result"] = outcome.result;
    json["hasResults"] = outcome.hasResults;
    json["coordinateSystems"] = outcome.record.coordinateSystems.size();
    json["exportedFiles"] = outcome.exportedFiles;
    json["models"] = modelsJson(outcome);
    json["dropped"] = listJson(serverLosses(outcome.server), outcome.losses);
    json["notes"] = listJson(serverNotes(outcome.server), outcome.notes);
    json["server"] = outcome.server;
    json["reason"] = outcome.reason.empty() ? Json() : Json(outcome.reason);
    json["exitStatus"] = static_cast<int>(exitStatus(outcome));
    return json.dump(2, ' ', false, Json::error_handler_t::replace) + '\n';
}

} // namespace host
