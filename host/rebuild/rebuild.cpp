// SPDX-License-Identifier: Apache-2.0
// One worker after the other, each told to leave out what its predecessors died of.
#include "host/rebuild/rebuild.h"

#include "host/modelling/recordfile.h"
#include "host/rebuild/worker.h"
#include "host/temporaryfolder.h"
#include "platform/process.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <algorithm>
#include <map>

namespace host {
namespace {

/// What a step does, as the object and the verb of a sentence.
const char* doingOf(const std::string& step) {
    static const std::map<std::string, const char*> doings{
        {"edge", "preparing it"},
        {"face", "building it"},
        {"measure", "measuring it"},
        {"check", "checking it"},
        {"model", "putting its solids together"},
        {"box", "finding its bounding box"},
        {"fit", "checking how its faces fit together"},
        {"picture", "drawing it"},
        {"export", "writing it"},
    };
    const auto found = doings.find(step);
    return found == doings.end() ? "working on it" : found->second;
}

std::string reasonOf(WorkerEnd end, const std::string& step, const RebuildLimits& limits) {
    const std::string doing = doingOf(step);
    const std::int64_t megabytes = limits.memoryBytes >> 20;
    switch (end) {
    case WorkerEnd::outOfStepTime:
        return doing + " took more than " + std::to_string(limits.stepTimeMs / 1000) +
               " s of processor time";
    case WorkerEnd::silent:
        return doing + " made no progress for " + std::to_string(limits.silenceMs / 1000) + " s";
    case WorkerEnd::outOfMemory:
        return doing + (megabytes > 0 ? " took more than " + std::to_string(megabytes) + " MB"
                                      : " took more memory than there is");
    default:
        return "the geometry kernel crashed while " + doing;
    }
}

/// What becomes of the rest when nothing can be left out any more.
QString failureOf(WorkerEnd end, const RebuildLimits& limits) {
    switch (end) {
    case WorkerEnd::notStarted:
        return "the program that rebuilds solids could not be started";
    case WorkerEnd::refused:
        return "the program that rebuilds solids did not accept the record";
    case WorkerEnd::outOfTime:
        return QString("rebuilding solids took more than %1 s of processor time")
            .arg(limits.timeMs / 1000);
    case WorkerEnd::stopped:
        return "rebuilding solids was stopped";
    default:
        return "the program that rebuilds solids kept dying";
    }
}

/// Into the place of a file only when it is whole. What is no file, such as a device, is left
/// alone.
bool copyOver(const QString& from, const QString& to) {
    constexpr qint64 pieceBytes = 1 << 20;
    const QFileInfo target(to);
    if (target.exists() && !target.isFile()) return false;
    QFile source(from);
    QSaveFile file(to);
    if (!source.open(QIODevice::ReadOnly) || !file.open(QIODevice::WriteOnly)) return false;
    while (!source.atEnd()) {
        const QByteArray piece = source.read(pieceBytes);
        if (piece.isEmpty() || file.write(piece) != piece.size()) return false;
    }
    return file.commit();
}

/// What can't be checked is as good as before.
bool isCheck(const std::string& what) { return what == "check" || what == "fit"; }

/// How many steps of that kind a record makes likely.
std::size_t likelySteps(const ImportRecord& record, const Step& step) {
    if (step.model < 1 || static_cast<std::size_t>(step.model) > record.models.size()) return 1;
    const ModelRecord& model = record.models[static_cast<std::size_t>(step.model - 1)];
    if (step.what == "face" || step.what == "measure" || step.what == "check")
        return model.faces.size();
    return step.what == "edge" ? model.edges.size() : 1;
}

bool isStage(const std::string& what) { return what == "picture" || what == "export"; }

class Rebuilding {
public:
    Rebuilding(const ImportRecord& record, const RebuildOptions& options)
        : record_(record), options_(options) {}

    RebuildOutcome run() {
        if (!QFileInfo(options_.program).isExecutable()) {
            outcome_.failure = "there is no program here that rebuilds solids";
        } else if (!prepare()) {
            outcome_.failure =
                "the record could not be written for the program that rebuilds solids";
        } else {
            work();
        }
        noteMissingFiles();
        return std::move(outcome_);
    }

private:
    bool prepare() {
        QFile file(inFolder("record"));
        return folder_.problem().isEmpty() && file.open(QIODevice::WriteOnly) &&
               writeRecord(file, record_) && file.flush();
    }
    QString inFolder(const QString& name) const { return folder_.filePath(name); }
    QString pictureName() const { return inFolder("picture.png"); }
    QString exportName() const {
        return inFolder("export." + QFileInfo(options_.exportFile).suffix());
    }

    void work() {
        WorkerEnd end = WorkerEnd::crashed;
        for (int i = 0; i < options_.tries; ++i) {
            const WorkerResult result = runWorker(task());
            end = result.end;
            takeOver(result);
            if (end == WorkerEnd::done) return finish();
            spentMs_ += result.processorMs;
            if (end == WorkerEnd::crashed && isStopRequested()) end = WorkerEnd::stopped;
            if (!leaveOut(result, end)) break;
        }
        if (outcome_.failure.isEmpty()) outcome_.failure = failureOf(end, options_.limits);
        finish();
    }

    /// Each worker begins from the beginning.
    std::function<void(const Step&)> stepCounter() const {
        if (!options_.stepBegun) return {};
        return
            [this, begun = std::map<std::pair<int, std::string>, int>()](const Step& step) mutable {
                const int count = static_cast<int>(likelySteps(record_, step));
                const int number = ++begun[{step.model, step.what}];
                options_.stepBegun(step, std::min(number, count), count);
            };
    }

    WorkerTask task() const {
        WorkerTask task{options_.program,
                        {inFolder("record")},
                        options_.limits.silenceMs,
                        options_.stopRequested,
                        stepCounter()};
        task.arguments << "--memory" << QString::number(options_.limits.memoryBytes)
                       << "--step-time" << QString::number(options_.limits.stepTimeMs) << "--time"
                       << QString::number(timeLeftMs());
        if (options_.measuresFaces) task.arguments << "--measures";
        if (!options_.picture.isEmpty()) {
            task.arguments
                << "--picture" << pictureName() << "--size"
                << QString("%1x%2").arg(options_.pictureWidth).arg(options_.pictureHeight);
        }
        if (!options_.exportFile.isEmpty()) task.arguments << "--export" << exportName();
        for (const Step& step : skipped_) task.arguments << "--skip" << stepArgument(step);
        return task;
    }

    /// 0 for no limit, so that a worker gets a millisecond at least.
    std::int64_t timeLeftMs() const {
        const std::int64_t limit = options_.limits.timeMs;
        return limit == 0 ? 0 : std::max<std::int64_t>(1, limit - spentMs_);
    }

    /// Of several runs the one that came furthest counts.
    void takeOver(const WorkerResult& result) {
        if (result.models.size() < outcome_.models.size()) return;
        outcome_.models = result.models;
        named_ = result.dropped;
        noted_ = result.notes;
        outcome_.pictureWritten = result.pictureWritten;
        outcome_.exportWritten = result.exportWritten;
    }

    bool isStopRequested() const { return options_.stopRequested && options_.stopRequested(); }

    /// False when there is nothing that another worker could do better.
    bool leaveOut(const WorkerResult& result, WorkerEnd end) {
        const bool isSomethings = end == WorkerEnd::crashed || end == WorkerEnd::outOfStepTime ||
                                  end == WorkerEnd::silent || end == WorkerEnd::outOfMemory;
        if (!isSomethings || !result.step || result.step->what == "record") return false;
        const Step& step = *result.step;
        if (!skipped_.insert(step).second) return false;
        auto& list = isCheck(step.what) ? outcome_.notes : outcome_.dropped;
        const std::string reason = reasonOf(end, step.what, options_.limits);
        list.push_back({step.what, step.identifier, reason, step.model});
        return true;
    }

    void finish() {
        outcome_.dropped.insert(outcome_.dropped.end(), named_.begin(), named_.end());
        outcome_.notes.insert(outcome_.notes.end(), noted_.begin(), noted_.end());
        outcome_.pictureWritten =
            outcome_.pictureWritten && deliver(pictureName(), options_.picture, "picture");
        outcome_.exportWritten =
            outcome_.exportWritten && deliver(exportName(), options_.exportFile, "export");
    }
    bool deliver(const QString& from, const QString& to, const char* what) {
        if (copyOver(from, to)) return true;
        outcome_.dropped.push_back({what, 0, "the file could not be written: " + to.toStdString()});
        return false;
    }

    void noteMissingFiles() {
        if (!options_.picture.isEmpty() && !outcome_.pictureWritten) noteMissing("picture");
        if (!options_.exportFile.isEmpty() && !outcome_.exportWritten) noteMissing("export");
    }
    void noteMissing(const char* what) {
        for (const DroppedRecord& drop : outcome_.dropped) {
            if (drop.what == what && isStage(drop.what)) return;
        }
        const std::string why = outcome_.failure.toStdString();
        outcome_.dropped.push_back({what, 0, why.empty() ? "nothing was built" : why});
    }

    const ImportRecord& record_;
    const RebuildOptions& options_;
    const TemporaryFolder folder_;
    std::set<Step> skipped_;
    std::int64_t spentMs_ = 0;                 ///< processor time of the workers so far
    std::vector<DroppedRecord> named_, noted_; ///< by the worker whose result counts
    RebuildOutcome outcome_;
};

} // namespace

RebuildLimits RebuildLimits::forFaces(std::size_t faces) {
    constexpr int timeMsForAFace = 50, stepTimeMsForAFace = 20;
    constexpr std::int64_t bytesForAFace = 64 << 10;
    const auto count = static_cast<int>(std::min<std::size_t>(faces, 10'000'000));
    RebuildLimits limits;
    limits.timeMs += count * timeMsForAFace;
    limits.stepTimeMs += count * stepTimeMsForAFace;
    limits.memoryBytes += count * bytesForAFace;
    return limits;
}

QString rebuildProgram() {
    const QString told = qEnvironmentVariable("BRIX_REBUILD_PROGRAM");
    if (!told.isEmpty()) return told;
    QString here = QString::fromStdU16String(platform::executablePath()).replace('\\', '/');
    const QFileInfo program(here);
    QString suffix = program.suffix() == "exe" ? ".exe" : "";
    const QFileInfo worker(program.canonicalPath() + "/brix-rebuild" + suffix);
    return worker.isExecutable() ? worker.filePath() : QString();
}

RebuildOutcome rebuild(const ImportRecord& record, const RebuildOptions& options) {
    try {
        return Rebuilding(record, options).run();
    } catch (const std::exception& failure) {
        RebuildOutcome outcome;
        outcome.failure = QString("rebuilding solids failed: ") + failure.what();
        return outcome;
    }
}

} // namespace host
