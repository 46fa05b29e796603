// SPDX-License-Identifier: Apache-2.0
// What came of one import of the reference host: everything that the report tells.
#pragma once

#include "host/modelling/record.h"
#include "host/rebuild/rebuild.h"

#include <nlohmann/json.hpp>

#include <string>
#include <vector>

namespace host {

enum class ExitStatus {
    complete = 0,   ///< the whole model arrived
    nothing = 1,    ///< nothing was imported
    wrongUse = 2,   ///< or a file beside the model can't be read or written
    unusable = 3,   ///< module or server can't be used
    withLosses = 4, ///< something is missing, and named
};

struct RunOutcome {
    std::string name;                       ///< of the model, for people
    bool result = false;                    ///< what importModel answered
    bool hasResults = false;                ///< whether the client had models or coordinate systems
    std::vector<std::string> exportedFiles; ///< paths with slashes
    bool filesAreTemporary = false;         ///< whether they are gone when the run is over
    ImportRecord record;
    /// One for each model of the record, of what arrived when nothing could be rebuilt.
    std::vector<RebuiltModel> models;
    bool rebuilt = false;              ///< whether `models` was measured on solids
    nlohmann::ordered_json server;     ///< the server's report, or null
    std::vector<DroppedRecord> losses; ///< of host and rebuilding; the server's are in its report
    /// What is no part of the model and has no bearing on the exit status; likewise.
    std::vector<DroppedRecord> notes;
    std::string reason; ///< why nothing came, or why the rest didn't, in one line; else empty
    /// Decides the exit status of a run that brought nothing: wrong use, or module or server
    /// unusable.
    ExitStatus failure = ExitStatus::nothing;
};

/// The entries of the server's "dropped", as far as they are what they should be.
std::vector<DroppedRecord> serverLosses(const nlohmann::ordered_json& serverReport);

/// The entries of its "notes", likewise.
std::vector<DroppedRecord> serverNotes(const nlohmann::ordered_json& serverReport);

/// Everything lost, the server's first.
std::vector<DroppedRecord> allLosses(const RunOutcome& outcome);
/// Everything noted, the server's first.
std::vector<DroppedRecord> allNotes(const RunOutcome& outcome);

ExitStatus exitStatus(const RunOutcome& outcome);

} // namespace host
