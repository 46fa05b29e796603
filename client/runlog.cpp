// SPDX-License-Identifier: Apache-2.0
// The log of a run.
#include "client/runlog.h"

#include <QProcess>

Q_LOGGING_CATEGORY(runLog, "brix.run")

void logServerEnd(const QProcess& server) {
    if (server.error() == QProcess::FailedToStart) {
        qCWarning(runLog, "the server could not be started");
    } else if (server.exitStatus() == QProcess::CrashExit) {
        qCWarning(runLog, "the server crashed");
    } else if (server.exitCode() != 0) {
        qCWarning(runLog, "the server ended with exit code %d", server.exitCode());
    }
}
