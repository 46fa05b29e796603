// SPDX-License-Identifier: Apache-2.0
// The report of an import, for programs and for people.
#pragma once

#include "host/run/runoutcome.h"

#include <string>

namespace host {

/// An object with "result", "hasResults", "coordinateSystems", "exportedFiles", "models",
/// "dropped", "notes", "server", "reason" (null when all is well) and "exitStatus". Lengths are in
/// metres; "valid", "area" and "volume" of a model are null when no solid was rebuilt, and "valid"
/// when not everything could be checked. Ends with a line
/// feed; bytes that are no UTF-8 come out as replacement characters.
std::string jsonReport(const RunOutcome& outcome);

/// A few aligned lines in UTF-8.
std::string tableReport(const RunOutcome& outcome);

} // namespace host
