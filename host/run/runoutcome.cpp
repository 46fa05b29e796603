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

std::vector<DroppedRecord> entriesOf(const Json& report, const char* key) {
    std::vector<DroppedRecord> entries;
    if (!report.is_object()) return entries;
    const auto list = report.find(key);
    if (list == report.end() || !list->is_array()) return entries;
    for (const Json& entry : *list) {
        if (!entry.is_object()) continue;
        entries.push_back(
            {textOf(entry, "what"), numberOf(entry, "identifier"), textOf(entry, "why")});
    }
    return entries;
}

std::vector<DroppedRecord> together(std::vector<DroppedRecord> first,
                                    const std::vector<DroppedRecord>& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

} // namespace

std::vector<DroppedRecord> serverLosses(const Json& serverReport) {
    return entriesOf(serverReport, "dropped");
}

std::vector<DroppedRecord> serverNotes(const Json& serverReport) {
    return entriesOf(serverReport, "notes");
}

std::vector<DroppedRecord> allLosses(const RunOutcome& outcome) {
    return together(serverLosses(outcome.server), outcome.losses);
}

std::vector<DroppedRecord> allNotes(const RunOutcome& outcome) {
    return together(serverNotes(outcome.server), outcome.notes);
}

ExitStatus exitStatus(const RunOutcome& outcome) {
    const bool arrived = outcome.hasResults || outcome.result;
    if (!arrived) return outcome.failure;
    return allLosses(outcome).empty() ? ExitStatus::complete : ExitStatus::withLosses;
}

} // namespace host
