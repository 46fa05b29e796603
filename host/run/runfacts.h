// SPDX-License-Identifier: Apache-2.0
// What is known of how a run went, and the line that it makes for the user.
#pragma once

#include "host/run/runoutcome.h"

#include <QString>

#include <cstdint>
#include <optional>
#include <string>

namespace host {

struct RunFacts {
    bool noServer = false;
    bool live = false;       ///< whether the server was to name its files over a connection
    bool modelNamed = false; ///< whether it named a model file there
    bool interrupted = false;
    QString missingModel;        ///< the CAD file, when it isn't there
    QString server;              ///< the program
    QString startProblem;        ///< why the server could not be started; empty when it could
    bool serverReported = false; ///< whether it left a report
    std::string serverFailure;   ///< what the report says of a failure; empty when nothing
    std::string serverWords;     ///< what a server without a report said last; empty when nothing
    QString modelFile;           ///< BASE.direct
    std::string serverEnd;       ///< what the component says of its end; empty when all was well
    bool importerMissing = false;
    /// The size of the model file when it was about to be read; none when it wasn't there.
    std::optional<std::int64_t> modelFileBytes;
};

/// Why nothing arrived, in one line.
std::string reasonForNothing(const RunFacts& facts);

} // namespace host
