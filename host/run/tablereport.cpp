// SPDX-License-Identifier: Apache-2.0
// The report as a table.
#include "host/run/report.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <map>

namespace host {
namespace {

constexpr int significantDigits = 8;
constexpr std::size_t lossesShown = 10; ///< of each kind and reason, beside their number

std::string number(double value) {
    char text[40];
    const auto end = std::to_chars(text, text + sizeof text, value, std::chars_format::general,
                                   significantDigits);
    return {text, end.ptr};
}

std::string line(const std::string& label, const std::string& value) {
    std::string text = "  " + label;
    text.resize(std::max<std::size_t>(text.size() + 1, 22), ' ');
    return text + value + '\n';
}

/// A coordinate to the nanometre, without a sign at zero.
std::string coordinate(double metres) { return number(std::round(metres * 1e9) / 1e9 + 0.0); }

std::string extent(const std::array<double, 6>& box) {
    return number(box[3] - box[0]) + " x " + number(box[4] - box[1]) + " x " +
           number(box[5] - box[2]) + " m, from (" + coordinate(box[0]) + ", " + coordinate(box[1]) +
           ", " + coordinate(box[2]) + ")";
}

std::string solidity(const RebuiltModel& model) {
    const std::string closed = model.closed ? "closed" : "open";
    if (!model.valid) return closed + ", not checked in full";
    return closed + (*model.valid ? ", valid" : ", not valid");
}

std::string modelLines(std::size_t ordinal, const RebuiltModel& model, bool rebuilt) {
    std::string text = "model " + std::to_string(ordinal) + '\n';
    text += line("faces", std::to_string(model.faces));
    text += line("edges", std::to_string(model.edges));
    text += line("shells", std::to_string(model.shells));
    if (!rebuilt) return text + line("solid", "not rebuilt");
    text += line("solid", solidity(model));
    text += line("area", number(model.areaM2) + " m\u00b2");
    text += line("volume", number(model.volumeM3) + " m\u00b3");
    return text + line("box", extent(model.boundingBoxM));
}

std::string namesOf(const std::vector<Identifier>& identifiers) {
    std::string text;
    for (std::size_t i = 0; i < std::min(identifiers.size(), lossesShown); ++i) {
        if (identifiers[i]) text += ' ' + std::to_string(identifiers[i]);
    }
    return identifiers.size() > lossesShown ? text + " ..." : text;
}

/// The kind, and of which model where there are several.
std::string subject(const DroppedRecord& loss, bool severalModels) {
    if (!severalModels || loss.model == 0) return loss.what;
    return loss.what + " of model " + std::to_string(loss.model);
}

/// Entries of one kind with one reason share a line.
std::string entryLines(const char* title, const std::vector<DroppedRecord>& entries,
                       bool severalModels) {
    if (entries.empty()) return {};
    std::map<std::pair<std::string, std::string>, std::vector<Identifier>> groups;
    for (const DroppedRecord& entry : entries) {
        groups[{subject(entry, severalModels), entry.why}].push_back(entry.identifier);
    }
    std::string text = title + std::to_string(entries.size()) + '\n';
    for (const auto& [group, identifiers] : groups) {
        text +=
            line(std::to_string(identifiers.size()) + ' ' + group.first,
                 group.second + (namesOf(identifiers).empty() ? "" : ":" + namesOf(identifiers)));
    }
    return text;
}

std::string fileLines(const RunOutcome& outcome) {
    const char* note = outcome.filesAreTemporary ? " (temporary, removed)" : "";
    std::string text;
    for (const std::string& file : outcome.exportedFiles)
        text += line("exported file", file + note);
    return text.empty() ? text : "exchange files\n" + text;
}

} // namespace

std::string tableReport(const RunOutcome& outcome) {
    std::string text = outcome.name + '\n';
    if (!outcome.hasResults && !outcome.result) text += "nothing was imported\n";
    for (std::size_t i = 0; i < outcome.models.size(); ++i) {
        text += modelLines(i + 1, outcome.models[i], outcome.rebuilt);
    }
    if (const auto count = outcome.record.coordinateSystems.size()) {
        text += "coordinate systems: " + std::to_string(count) + '\n';
    }
    text += fileLines(outcome);
    const std::vector<DroppedRecord> losses = allLosses(outcome);
    const bool severalModels = outcome.models.size() > 1;
    text += entryLines("losses: ", losses, severalModels);
    if (losses.empty() && outcome.hasResults) text += "losses: none\n";
    return text + entryLines("notes: ", allNotes(outcome), severalModels);
}

} // namespace host
