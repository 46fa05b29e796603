// SPDX-License-Identifier: Apache-2.0
// The steps of a run and what each failure turns into.
#include "server/importrun.h"

#include "platform/clock.h"
#include "platform/process.h"
#include "platform/processcopy.h"
#include "server/ending.h"
#include "server/measuring/modelmeasure.h"
#include "server/progress.h"
#include "server/reading/bodies.h"
#include "server/reading/lengthunit.h"
#include "server/reading/modelreader.h"
#include "server/report.h"
#include "server/stopwatch.h"
#include "server/watcher.h"
#include "server/writing/igesexport.h"
#include "server/writing/modelwriter.h"
#include "server/writing/partialfile.h"

#include <Message.hxx>
#include <Message_Messenger.hxx>
#include <Standard_Failure.hxx>
#include <Standard_OutOfMemory.hxx>

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <new>
#include <system_error>

namespace server {
namespace {

constexpr double defaultSeconds = 120, defaultSecondsPerMegabyte = 30;
/// What the kernel may take for things beside the model, whatever the model took.
constexpr double leastExportSeconds = 5, leastSewingSeconds = 30, leastMeasuringSeconds = 30;

std::string kernelReason(const Standard_Failure& failure) {
    return std::string(failure.DynamicType()->Name()) + " " + failure.GetMessageString();
}

class Run {
public:
    Run(const Options& options, std::ostream& messages)
        : options_(options), messages_(messages), progress_(&messages) {}

    void perform();
    /// Leaves the report all the same, unless nothing may be written yet.
    void fail(ExitCode code, const std::string& reason);

private:
    QString result(const char* extension) const {
        return options_.outputBaseName + QLatin1String(extension);
    }
    QStringList results() const;
    void refuseInputAmongResults() const;
    void removeEarlierResults() const;
    void prepareLastReport() const;
    double timeLimit() const;
    double remaining(double share, double least) const;
    TopoDS_Shape readShape();
    std::vector<Body> bodiesFrom(const TopoDS_Shape& shape);
    void leaveModel(const TopoDS_Shape& shape);
    void measure(const std::vector<WrittenBody>& bodies);
    void leaveExports(const TopoDS_Shape& shape);
    std::string exportInCopy(const TopoDS_Shape& shape, const PartialFile& file) const;
    void leaveReport();

    const Options& options_;
    std::ostream& messages_;
    Progress progress_;
    Report report_;
    bool mayWrite_ = false;
};

/// Whatever a run writes, or would remove.
QStringList Run::results() const {
    QStringList files;
    for (const char* extension : {".direct", ".report.json"}) {
        files << result(extension) << result(extension) + QStringLiteral(".partial");
    }
    files << result(".igs.partial");
    if (options_.igs) files << result(".igs");
    return files;
}

/// An IGES file may be both: it would be gone before it is read.
void Run::refuseInputAmongResults() const {
    const QString input = QFileInfo(options_.inputFile).canonicalFilePath();
    for (const QString& file : results()) {
        if (!input.isEmpty() && QFileInfo(file).canonicalFilePath() == input) {
            throw Failure(ExitCode::wrongUse,
                          options_.inputFile.toStdString() + " would be replaced by a result");
        }
    }
}

void Run::removeEarlierResults() const {
    for (const QString& file : results()) QFile::remove(file);
}

void Run::prepareLastReport() const { LastReport::prepare(result(".report.json"), report_.json()); }

double Run::timeLimit() const {
    if (options_.timeLimitSeconds) return *options_.timeLimitSeconds;
    const double megabytes = 1e-6 * static_cast<double>(QFileInfo(options_.inputFile).size());
    return defaultSeconds + defaultSecondsPerMegabyte * megabytes;
}

/// For something beside the model: a share of the time used so far, or the least that it gets, but
/// no more than half of what the limit leaves.
double Run::remaining(double share, double least) const {
    const double used = platform::processorSeconds(), limit = timeLimit();
    const double wanted = std::max(share * used, least);
    return limit > 0 ? std::max(std::min(wanted, 0.5 * (limit - used)), 0.1) : wanted;
}

TopoDS_Shape Run::readShape() {
    const std::string path = options_.inputFile.toStdString();
    report_.file = path;
    const QFileInfo input(options_.inputFile);
    if (!input.exists()) throw Failure(ExitCode::unreadable, path + " isn't there");
    if (!input.isFile()) throw Failure(ExitCode::unreadable, path + " is no file");
    const auto reader = makeReader(input.fileName().toStdString());
    if (!reader)
        throw Failure(ExitCode::unsupported, path + " is in a format that isn't supported");
    if (!QFile(options_.inputFile).open(QIODevice::ReadOnly)) {
        throw Failure(ExitCode::unreadable, path + " can't be opened");
    }
    prepareLastReport();
    return reader->read({path, progress_, report_});
}

std::vector<Body> Run::bodiesFrom(const TopoDS_Shape& shape) {
    BodyOptions wanted;
    wanted.solidsOnly = options_.bodiesOnly;
    wanted.sewing.tolerance /= report_.unit.millimetres;
    wanted.sewing.processorSeconds = remaining(10, leastSewingSeconds);
    std::vector<Body> bodies;
    if (!shape.IsNull()) bodies = bodiesOf(shape, wanted, report_);
    if (bodies.empty()) throw Failure(ExitCode::noShape, "the file holds no shape");
    countWhatWasRead(bodies, shape, report_);
    return bodies;
}

/// The model gets its name last, so that a run that fails on the way leaves none: its exit says
/// that there is none.
void Run::leaveModel(const TopoDS_Shape& shape) {
    PartialFile file(result(".direct"));
    std::vector<WrittenBody> written;
    {
        progress_.enter("taking bodies apart", 50, 55);
        const Stopwatch watch(report_, "write");
        const std::vector<Body> bodies = bodiesFrom(shape);
        prepareLastReport();
        progress_.enter("writing faces", 55, 80);
        QDataStream stream(&file.open());
        written = writeModel(bodies, stream, progress_, report_);
        if (report_.written["CreateBody"] == 0) {
            throw Failure(ExitCode::noShape, "none of the file's faces could be written");
        }
        if (stream.status() != QDataStream::Ok) {
            throw Failure(ExitCode::unwritable, "the model can't be written to the end");
        }
    }
    if (options_.compare) measure(written);
    leaveExports(shape);
    file.commit();
}

void Run::measure(const std::vector<WrittenBody>& bodies) {
    progress_.enter("measuring faces", 80, 90);
    const Stopwatch watch(report_, "measure");
    measureModel(bodies, remaining(3, leastMeasuringSeconds), progress_, report_);
}

/// The reason why there is no export, or nothing. In a copy of the process, since the kernel may
/// crash or take for ever on what it has read without complaint.
std::string Run::exportInCopy(const TopoDS_Shape& shape, const PartialFile& file) const {
    const auto work = [&](const platform::TakeBytes& send) {
        try {
            exportIges(shape, *findLengthUnit(report_.unit.name), file.partialName().toStdString());
        } catch (const Standard_Failure& failure) {
            const std::string reason = kernelReason(failure);
            send(reason.data(), reason.size());
        }
    };
    std::string reason;
    const auto receive = [&](const char* more, std::size_t length) { reason.append(more, length); };
    switch (platform::runInCopy(work, receive, remaining(1, leastExportSeconds))) {
    case platform::CopyEnd::failed:
        return "the geometry kernel crashed";
    case platform::CopyEnd::limit:
        return "it would take longer than the import itself";
    case platform::CopyEnd::notOffered:
        work(receive);
        return reason;
    default:
        return reason;
    }
}

/// An export that isn't offered, or that the kernel can't make, is no part of the model.
void Run::leaveExports(const TopoDS_Shape& shape) {
    if (options_.sat) {
        report_.noted("SAT export", 0, "this server offers no SAT");
        messages_ << "-sat on: this server offers no SAT; the model is written all the same"
                  << std::endl;
    }
    if (!options_.igs) return;
    progress_.enter("exporting IGES", 90, 99);
    const Stopwatch watch(report_, "export");
    PartialFile file(result(".igs"));
    const std::string reason = exportInCopy(shape, file);
    if (reason.empty()) return file.commit();
    report_.noted("IGES export", 0, reason);
    messages_ << "no IGES file: " << reason << std::endl;
}

void Run::leaveReport() {
    PartialFile file(result(".report.json"));
    file.open().write(QByteArray::fromStdString(report_.json()));
    file.commit();
    LastReport::withdraw();
}

void Run::perform() {
    refuseInputAmongResults();
    removeEarlierResults();
    mayWrite_ = true;
    WatcherOptions limits;
    limits.processorSeconds = timeLimit();
    limits.atLimit = [] { endAt(ExitCode::timeLimit, "the processor time is used up"); };
    const Watcher watcher(progress_, limits);
    leaveModel(readShape());
    leaveReport();
    progress_.enter("done", 100, 100);
}

void Run::fail(ExitCode code, const std::string& reason) {
    messages_ << "cad-importer-server: " + reason + "\n" << std::flush;
    if (!mayWrite_) return;
    removeEarlierResults();
    report_.failure = FailedRun{static_cast<int>(code), Progress::phase(), reason};
    try {
        leaveReport();
    } catch (const std::exception&) {
        LastReport::withdraw(); // Nothing can be written there.
    }
}

/// The kernel talks on standard output; nobody listens there.
void silenceKernel() { Message::DefaultMessenger()->ChangePrinters().Clear(); }

std::string during(const std::string& who, const std::string& text) {
    return who + " failed while " + Progress::phase() + ": " + text;
}

std::string noMemory() { return std::string("there is no more memory while ") + Progress::phase(); }

ExitCode failed(Run& run, ExitCode code, const std::string& reason) {
    run.fail(code, reason);
    return code;
}

/// Each exception as an exit code and a reason.
ExitCode performed(Run& run) {
    try {
        run.perform();
        return ExitCode::ok;
    } catch (const Failure& failure) {
        return failed(run, failure.code(), failure.what());
    } catch (const Standard_OutOfMemory&) {
        return failed(run, ExitCode::memoryLimit, noMemory());
    } catch (const std::bad_alloc&) {
        return failed(run, ExitCode::memoryLimit, noMemory());
    } catch (const std::system_error& failure) {
        // A thread that can't be had for want of memory.
        const bool isMemory = failure.code() == std::errc::resource_unavailable_try_again;
        return isMemory ? failed(run, ExitCode::memoryLimit, noMemory())
                        : failed(run, ExitCode::kernelFailed, during("the server", failure.what()));
    } catch (const Standard_Failure& failure) {
        return failed(run, ExitCode::kernelFailed,
                      during("the geometry kernel", kernelReason(failure)));
    } catch (const std::exception& failure) {
        return failed(run, ExitCode::kernelFailed, during("the server", failure.what()));
    }
}

} // namespace

ExitCode runImport(const Options& options, std::ostream& messages) {
    for (const QString& word : options.unknown) {
        messages << "ignored: " << word.toStdString() << std::endl;
    }
    silenceKernel();
    platform::limitMemory(std::uint64_t{options.memoryLimitMegabytes} << 20);
    Run run(options, messages);
    return performed(run);
}

} // namespace server
