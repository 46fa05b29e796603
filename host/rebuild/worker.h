// SPDX-License-Identifier: Apache-2.0
// One run of the worker program, watched to its end.
#pragma once

#include "host/rebuild/workerlines.h"

#include <QDeadlineTimer>
#include <QStringList>

#include <functional>
#include <vector>

namespace host {

struct WorkerTask {
    QString program;
    QStringList arguments;
    int stepLimitMs = 0;
    QDeadlineTimer deadline;                    ///< of the whole run
    std::function<bool()> stopRequested;        ///< may be empty
    std::function<void(const Step&)> stepBegun; ///< may be empty
};

enum class WorkerEnd {
    done,
    notStarted,
    refused, ///< it ended by itself and couldn't work: a wrong call, an unreadable record
    crashed, ///< or was killed by somebody else
    hung,    ///< in one step
    outOfMemory,
    outOfTime, ///< the deadline
    stopped,   ///< as requested
};

struct WorkerResult {
    WorkerEnd end = WorkerEnd::notStarted;
    std::optional<Step> step; ///< the last that it began
    std::vector<RebuiltModel> models;
    std::vector<DroppedRecord> dropped;
    bool pictureWritten = false, exportWritten = false;
};

/// Blocks. No process is left behind, whatever the end.
WorkerResult runWorker(const WorkerTask& task);

} // namespace host
