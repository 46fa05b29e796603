// SPDX-License-Identifier: Apache-2.0
// One run of the worker program, watched to its end.
#pragma once

#include "host/rebuild/workerlines.h"

#include <QStringList>

#include <functional>
#include <vector>

namespace host {

struct WorkerTask {
    QString program;
    QStringList arguments;
    int silenceMs = 0;                          ///< by the clock; 0 for no limit
    std::function<bool()> stopRequested;        ///< may be empty
    std::function<void(const Step&)> stepBegun; ///< may be empty
};

enum class WorkerEnd {
    done,
    notStarted,
    refused,       ///< it ended by itself and couldn't work: a wrong call, an unreadable record
    crashed,       ///< or was killed by somebody else
    outOfStepTime, ///< one step took too much processor time
    silent,        ///< it said nothing for too long, without using processor time
    outOfMemory,
    outOfTime, ///< all its steps together took too much
    stopped,   ///< as requested
};

struct WorkerResult {
    WorkerEnd end = WorkerEnd::notStarted;
    std::optional<Step> step; ///< the last that it began
    std::vector<RebuiltModel> models;
    std::vector<DroppedRecord> dropped, notes;
    std::int64_t processorMs = 0; ///< that it used, to the second
    bool pictureWritten = false, exportWritten = false;
};

/// Blocks. No process is left behind, whatever the end.
WorkerResult runWorker(const WorkerTask& task);

} // namespace host
