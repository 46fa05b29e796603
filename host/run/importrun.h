// SPDX-License-Identifier: Apache-2.0
// One import of the reference host: everything between the options and the outcome.
#pragma once

#include "host/run/importoptions.h"
#include "host/run/runoutcome.h"
#include "host/services/simpledialog.h"

#include <iosfwd>

namespace host {

/// The world around a run. Streams outlive it.
struct RunSurroundings {
    std::ostream& messages; ///< notices, questions, progress
    LineReader terminal{};  ///< where questions are answered; null when nobody is there
};

/// Blocks until the import and the rebuilding are done; counted interrupts end it early. The root
/// manager serves the run and holds nothing of it afterwards; what the module gave is released, and
/// the temporary directory is gone. One run at a time.
RunOutcome runImport(const ImportOptions& options, const RunSurroundings& surroundings);

} // namespace host
