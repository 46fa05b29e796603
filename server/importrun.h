// SPDX-License-Identifier: Apache-2.0
// One run of the server, from the input file to its results.
#pragma once

#include "server/failure.h"
#include "server/options.h"

#include <ostream>

namespace server {

/// Reads the input, writes the model, then the report and the export. Results of an earlier run
/// under the same base name are removed first, so that nobody takes them for this one's. Progress
/// and the reason of a failure go to `messages`. Throws nothing.
ExitCode runImport(const Options& options, std::ostream& messages);

} // namespace server
