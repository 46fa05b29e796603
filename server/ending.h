// SPDX-License-Identifier: Apache-2.0
// How the process ends when it can't unwind: at a signal, at a limit, or on request.
#pragma once

#include "server/failure.h"

#include <QString>

#include <string>

namespace server {

/// What an end at a crash or a limit leaves as the run's report: what was known when it was last
/// prepared, and how it ended.
class LastReport {
public:
    /// `json` is a report without a failure. A later call replaces an earlier one.
    static void prepare(const QString& path, const std::string& json);
    /// From now on nothing is left: the run leaves its own.
    static void withdraw() noexcept;
    /// `reason` holds nothing that JSON would escape; the phase is told behind it. Touches no lock
    /// and no heap, so that a signal handler may call it. Does nothing when none is prepared.
    static void leave(ExitCode code, const char* reason) noexcept;
};

/// Says why, removes partial files, leaves the last report when a limit is the cause, and ends.
/// `reason` is a literal.
void endAt(ExitCode code, const char* reason);

} // namespace server
