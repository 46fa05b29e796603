// SPDX-License-Identifier: Apache-2.0
// Rebuilding, or counting instead.
#include "host/run/measuring.h"

#include "host/run/comparison.h"
#include "host/run/importoptions.h"
#include "host/run/interrupts.h"
#include "host/run/runoutcome.h"

#include <algorithm>
#include <set>
#include <tuple>

namespace host {
namespace {

void include(std::array<double, 6>& box, const ShellRecord& shell) {
    box = {std::min(box[0], shell.boxMin.x), std::min(box[1], shell.boxMin.y),
           std::min(box[2], shell.boxMin.z), std::max(box[3], shell.boxMax.x),
           std::max(box[4], shell.boxMax.y), std::max(box[5], shell.boxMax.z)};
}

/// What arrived of a model, by its topology and the boxes of its shells.
RebuiltModel counted(const ModelRecord& model) {
    RebuiltModel figures;
    figures.faces = static_cast<int>(model.faces.size());
    figures.edges = static_cast<int>(model.edges.size());
    figures.shells = static_cast<int>(model.shells.size());
    if (model.shells.empty()) return figures;
    figures.closed = true;
    const ShellRecord& first = model.shells.front();
    figures.boundingBoxM = {first.boxMin.x, first.boxMin.y, first.boxMin.z,
                            first.boxMax.x, first.boxMax.y, first.boxMax.z};
    for (const ShellRecord& shell : model.shells) {
        figures.closed = figures.closed && shell.closed;
        include(figures.boundingBoxM, shell);
    }
    return figures;
}

using Subject = std::tuple<std::int32_t, std::string, Identifier>;

Subject subjectOf(const DroppedRecord& loss) { return {loss.model, loss.what, loss.identifier}; }

/// What the host has named already isn't told again when it shows in the solid as well.
void addLosses(RunOutcome& outcome, const RebuildOutcome& rebuilt) {
    std::set<Subject> named;
    for (const DroppedRecord& loss : outcome.losses) named.insert(subjectOf(loss));
    for (const DroppedRecord& loss : rebuilt.dropped) {
        if (!named.count(subjectOf(loss))) outcome.losses.push_back(loss);
    }
    outcome.notes.insert(outcome.notes.end(), rebuilt.notes.begin(), rebuilt.notes.end());
    if (!rebuilt.failure.isEmpty()) {
        outcome.losses.push_back({"solid", 0, rebuilt.failure.toStdString()});
    }
}

std::size_t facesOf(const ImportRecord& record) {
    std::size_t faces = 0;
    for (const ModelRecord& model : record.models) faces += model.faces.size();
    return faces;
}

RebuildLimits limitsOf(const ImportOptions& options, const ImportRecord& record) {
    RebuildLimits limits = RebuildLimits::forFaces(facesOf(record));
    if (options.timeLimitSeconds > 0) {
        limits.timeMs = options.timeLimitSeconds * 1000;
        limits.stepTimeMs = std::min(limits.stepTimeMs, limits.timeMs);
    }
    if (options.memoryLimitMb > 0) {
        limits.memoryBytes = std::int64_t{options.memoryLimitMb} << 20;
    }
    return limits;
}

RebuildOptions rebuildOptions(const ImportOptions& options, const ImportRecord& record,
                              const StepListener& stepBegun) {
    RebuildOptions result;
    result.program = rebuildProgram();
    result.limits = limitsOf(options, record);
    result.measuresFaces = options.compares;
    result.picture = options.picture;
    result.exportFile = options.exportFile;
    result.stopRequested = [] { return interruptCount() > 0; };
    result.stepBegun = stepBegun;
    return result;
}

/// A server writes one model; of several it isn't known which one its figures are of.
void compare(RunOutcome& outcome) {
    if (outcome.record.models.size() != 1 || outcome.models.size() != 1) return;
    noteOldFaults(outcome.server, outcome.losses, outcome.notes);
    for (DroppedRecord& loss :
         differences(outcome.server, outcome.record.models[0], outcome.models[0])) {
        loss.model = 1;
        outcome.losses.push_back(std::move(loss));
    }
}

void noteUnmade(RunOutcome& outcome, const ImportOptions& options) {
    const char* why = "there is no program here that rebuilds solids";
    if (!options.picture.isEmpty()) outcome.losses.push_back({"picture", 0, why});
    if (!options.exportFile.isEmpty()) outcome.losses.push_back({"export", 0, why});
}

} // namespace

void measure(RunOutcome& outcome, const ImportOptions& options, const StepListener& stepBegun) {
    if (outcome.record.models.empty()) return;
    const RebuildOptions settings = rebuildOptions(options, outcome.record, stepBegun);
    if (settings.program.isEmpty()) {
        noteUnmade(outcome, options);
    } else {
        const RebuildOutcome rebuilt = rebuild(outcome.record, settings);
        addLosses(outcome, rebuilt);
        outcome.models = rebuilt.models;
        outcome.rebuilt = !rebuilt.models.empty();
        if (options.compares) compare(outcome);
    }
    const auto& models = outcome.record.models;
    for (std::size_t i = outcome.models.size(); i < models.size(); ++i) {
        outcome.models.push_back(counted(models[i]));
    }
}

} // namespace host
