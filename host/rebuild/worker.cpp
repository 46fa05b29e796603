// SPDX-License-Identifier: Apache-2.0
// Reading the worker's lines with an eye on the clocks.
#include "host/rebuild/worker.h"

#include "platform/process.h"

#include <QElapsedTimer>
#include <QProcess>

namespace host {
namespace {

constexpr int pollMs = 50;
constexpr int leaveMs = 1000; ///< for a worker that is done to end by itself

class Watch {
public:
    explicit Watch(const WorkerTask& task) : task_(task) {}
    ~Watch() { kill(); }

    WorkerResult run() {
        process_.setStandardErrorFile(QProcess::nullDevice());
        process_.setStandardInputFile(QProcess::nullDevice());
        process_.start(task_.program, task_.arguments, QIODevice::ReadOnly);
        if (!process_.waitForStarted()) return result_;
        stepTime_.start();
        result_.end = WorkerEnd::crashed;
        while (process_.state() != QProcess::NotRunning && !isDone_) {
            process_.waitForReadyRead(pollMs);
            takeLines();
            if (!isDone_ && interrupted()) return result_;
        }
        takeLines();
        // How the kernel takes leave doesn't matter any more.
        if (isDone_) process_.waitForFinished(leaveMs);
        result_.end = isDone_ ? WorkerEnd::done : endOfProcess();
        return result_;
    }

private:
    /// Whether one of the limits, or the user, ended the run.
    bool interrupted() {
        if (task_.stopRequested && task_.stopRequested()) {
            result_.end = WorkerEnd::stopped;
        } else if (task_.deadline.hasExpired()) {
            result_.end = WorkerEnd::outOfTime;
        } else if (stepTime_.elapsed() > task_.stepLimitMs) {
            result_.end = WorkerEnd::hung;
        } else {
            return false;
        }
        kill();
        return true;
    }

    WorkerEnd endOfProcess() const {
        if (process_.exitStatus() == QProcess::NormalExit) {
            switch (process_.exitCode()) {
            case workerMisused:
            case workerRecordUnreadable:
                return WorkerEnd::refused;
            case workerOutOfMemory:
                return WorkerEnd::outOfMemory;
            default:
                break;
            }
        }
        return WorkerEnd::crashed;
    }

    void takeLines() {
        while (process_.canReadLine()) take(parseWorkerLine(process_.readLine()));
    }
    void take(const WorkerLine& line) {
        if (std::holds_alternative<std::monostate>(line)) return;
        stepTime_.restart();
        if (const auto* step = std::get_if<Step>(&line)) begin(*step);
        if (const auto* drop = std::get_if<DroppedRecord>(&line)) result_.dropped.push_back(*drop);
        if (const auto* model = std::get_if<RebuiltModel>(&line)) result_.models.push_back(*model);
        if (const auto* file = std::get_if<WrittenFile>(&line)) {
            (file->isPicture ? result_.pictureWritten : result_.exportWritten) = true;
        }
        isDone_ = isDone_ || std::holds_alternative<WorkDone>(line);
    }

    void begin(const Step& step) {
        result_.step = step;
        if (task_.stepBegun) task_.stepBegun(step);
    }

    /// Whatever the program has started in its turn goes with it.
    void kill() {
        offspring_.end(true);
        if (process_.state() != QProcess::NotRunning) process_.waitForFinished(-1);
        offspring_.endAll();
    }

    const WorkerTask& task_;
    const platform::Offspring offspring_;
    QProcess process_;
    QElapsedTimer stepTime_; ///< since the worker last said anything
    bool isDone_ = false;
    WorkerResult result_;
};

} // namespace

WorkerResult runWorker(const WorkerTask& task) { return Watch(task).run(); }

} // namespace host
