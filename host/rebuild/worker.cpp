// SPDX-License-Identifier: Apache-2.0
// Reading the worker's lines with an eye on the clocks.
#include "host/rebuild/worker.h"

#include "platform/process.h"

#include <QElapsedTimer>
#include <QProcess>

#include <utility>

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
        silence_.start();
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
        } else if (task_.silenceMs > 0 && silence_.elapsed() > task_.silenceMs) {
            result_.end = WorkerEnd::silent;
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
            case workerOutOfTime:
                return WorkerEnd::outOfTime;
            case workerOutOfStepTime:
                return WorkerEnd::outOfStepTime;
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
        silence_.restart();
        std::visit([this](const auto& kind) { take(kind); }, line);
    }
    void take(const std::monostate&) {}
    void take(const Step& step) {
        result_.step = step;
        if (task_.stepBegun) task_.stepBegun(step);
    }
    void take(const AtWork& atWork) { result_.processorMs = atWork.processorMs; }
    void take(const DroppedRecord& drop) { result_.dropped.push_back(drop); }
    void take(const WorkerNote& note) { result_.notes.push_back(note.note); }
    void take(const FaceMeasure& face) { measures_.push_back(face); }
    void take(const RebuiltModel& model) {
        result_.models.push_back(model);
        result_.models.back().faceMeasures = std::exchange(measures_, {});
    }
    void take(const WrittenFile& file) {
        (file.isPicture ? result_.pictureWritten : result_.exportWritten) = true;
    }
    void take(const WorkDone&) { isDone_ = true; }

    /// Whatever the program has started in its turn goes with it.
    void kill() {
        offspring_.end(true);
        if (process_.state() != QProcess::NotRunning) process_.waitForFinished(-1);
        offspring_.endAll();
    }

    const WorkerTask& task_;
    const platform::Offspring offspring_;
    QProcess process_;
    QElapsedTimer silence_; ///< since the worker last said anything
    bool isDone_ = false;
    std::vector<FaceMeasure> measures_; ///< of the model that is still to come
    WorkerResult result_;
};

} // namespace

WorkerResult runWorker(const WorkerTask& task) { return Watch(task).run(); }

} // namespace host
