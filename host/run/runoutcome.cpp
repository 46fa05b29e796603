// SPDX-License-Identifier: Apache-2.0
// Judging an outcome.
#include "host/run/runoutcome.h"

namespace host {
namespace {

using Json = nlohmann::ordered_json;

std::string textOf(const Json& entry, const char* key) {
    const auto found = entry.find(key);
    return found != entry.end() && found->is_string() ? found->get<std::string>() : std::string();
}

Identifier numberOf(const Json& entry, const char* key) {
    const auto found = entry.find(key);
    return found != entry.end() && found->is_number_integer() ? found->get<Identifier>() : 0;
}

} // namespace

std::vector<DroppedRecord> serverLosses(const Json& serverReport) {
    std::vector<DroppedRecord> losses;
    if (!serverReport.is_object()) return losses;
    const auto dropped = serverReport.find("dropped");
    if (dropped == serverReport.end() || !dropped->is_array()) return losses;
    for (const Json& entry : *dropped) {
        if (!entry.is_object()) continue;
        losses.push_back(
            {textOf(entry, "what"), numberOf(entry, "identifier"), textOf(entry, "why")});
    }
    return losses;
}

std::vector<DroppedRecord> allLosses(const RunOutcome& outcome) {
    std::vector<DroppedRecord> losses = serverLosses(outcome.server);
    losses.insert(losses.end(), outcome.losses.begin(), outcome.losses.end());
    return losses;
}

ExitStatus exitStatus(const RunOutcome& outcome) {
    const bool arrived = outcome.hasResults || outcome.result;
    if (!arrived) return outcome.failure;
    return allLosses(outcome).empty() ? ExitStatus::complete : ExitStatus::withLosses;
}

} // namespace host
