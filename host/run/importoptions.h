// SPDX-License-Identifier: Apache-2.0
// What one import of the reference host is asked to do.
#pragma once

#include "host/run/progressdisplay.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <string>

namespace host {

/// Empty texts mean the default, or that a thing isn't wanted.
struct ImportOptions {
    QString model; ///< the CAD file; none when there is no server
    /// Its name as the system has it, where `model` can't hold that: bytes that are no UTF-8.
    std::string modelBytes;
    QString outputBase; ///< default: in a new temporary directory, removed at the end
    bool noServer = false;
    bool live = false;        ///< over a control connection
    bool traceFrames = false; ///< of that connection
    QStringList arguments;    ///< further words of the option list
    QString server, module;
    QString environmentFile;
    std::optional<bool> answer;
    QStringList settings; ///< words KEY=VALUE; they come after the file
    QString settingsFile;
    QStringList without; ///< interfaces of services
    QString traceFile;
    QString picture, exportFile;
    bool compares = true;     ///< what was rebuilt with what the server measured
    int timeLimitSeconds = 0; ///< processor time of the server and of rebuilding; 0: the defaults
    int memoryLimitMb = 0;    ///< likewise
    ProgressStyle progress = ProgressStyle::none;
};

} // namespace host
