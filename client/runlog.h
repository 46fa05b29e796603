// SPDX-License-Identifier: Apache-2.0
// What a run has to say beyond dialogs, which are for decisions: the host may listen.
#pragma once

#include <QLoggingCategory>

class QProcess;

/// "brix.run".
Q_DECLARE_LOGGING_CATEGORY(runLog)

/// Says how a server ended that didn't end well, or never began. A crash shows nothing and ends no
/// run, so that only the log tells it from a server that left nothing of its own will.
void logServerEnd(const QProcess& server);
