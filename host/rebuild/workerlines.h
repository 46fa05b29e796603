// SPDX-License-Identifier: Apache-2.0
// What the worker tells on its standard output: one JSON object a line. Lines that are none of
// these are chatter of the kernel and mean nothing.
#pragma once

#include "host/rebuild/progress.h"
#include "host/rebuild/rebuild.h"

#include <QByteArray>
#include <QString>

#include <optional>
#include <variant>

namespace host {

/// Worth knowing, and no loss.
struct WorkerNote {
    DroppedRecord note;
};
/// A file that was asked for was written.
struct WrittenFile {
    bool isPicture = false; ///< else the export
};
/// Nothing comes behind it.
struct WorkDone {};

/// The worker is at work: it has used so much processor time, a second more than at the last such
/// line at least.
struct AtWork {
    std::int64_t processorMs = 0;
};

/// The measures of faces come in front of the model that they belong to.
using WorkerLine = std::variant<std::monostate, Step, AtWork, DroppedRecord, WorkerNote,
                                FaceMeasure, RebuiltModel, WrittenFile, WorkDone>;

/// With a line feed.
QByteArray workerLine(const WorkerLine& line);
/// std::monostate for chatter.
WorkerLine parseWorkerLine(const QByteArray& line);

/// A step as an argument of the worker, such as "1/face/12".
QString stepArgument(const Step& step);
std::optional<Step> parseStepArgument(const QString& argument);

/// How the worker ends when it isn't killed.
enum WorkerExit {
    workerDone = 0,
    workerMisused = 2,
    workerRecordUnreadable = 3,
    workerOutOfMemory = 5,
    workerCrashed = 8,
    workerOrphaned = 10,
    workerOutOfTime = 11,     ///< of all its steps together
    workerOutOfStepTime = 12, ///< of one step
};

} // namespace host
