// SPDX-License-Identifier: Apache-2.0
// The steps of a run and what each failure turns into.
#include "server/importrun.h"

#include "server/progress.h"
#include "server/reading/bodies.h"
#include "server/reading/lengthunit.h"
#include "server/reading/modelreader.h"
#include "server/report.h"
#include "server/stopwatch.h"
#include "server/writing/igesexport.h"
#include "server/writing/modelwriter.h"
#include "server/writing/partialfile.h"

#include <Message.hxx>
#include <Message_Messenger.hxx>
#include <Standard_Failure.hxx>

#include <QFile>
#include <QFileInfo>

namespace server {
namespace {

class Run {
public:
    Run(const Options& options, std::ostream& messages)
        : options_(options), messages_(messages), progress_(&messages) {}

    void perform();

private:
    QString result(const char* extension) const {
        return options_.outputBaseName + QLatin1String(extension);
    }
    QStringList results() const;
    void refuseInputAmongResults() const;
    void removeEarlierResults() const;
    TopoDS_Shape readShape();
    void leaveModel(const TopoDS_Shape& shape);
    void leaveExports(const TopoDS_Shape& shape);
    void leaveReport();

    const Options& options_;
    std::ostream& messages_;
    Progress progress_;
    Report report_;
};

QStringList Run::results() const {
    QStringList files{result(".direct"), result(".direct.partial"), result(".igs.partial"),
                      result(".report.json"), result(".report.json.partial")};
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

TopoDS_Shape Run::readShape() {
    const std::string path = options_.inputFile.toStdString();
    const QFileInfo input(options_.inputFile);
    if (!input.exists()) throw Failure(ExitCode::unreadable, path + " isn't there");
    if (!input.isFile()) throw Failure(ExitCode::unreadable, path + " is no file");
    const auto reader = makeReader(input.fileName().toStdString());
    if (!reader)
        throw Failure(ExitCode::unsupported, path + " is in a format that isn't supported");
    if (!QFile(options_.inputFile).open(QIODevice::ReadOnly)) {
        throw Failure(ExitCode::unreadable, path + " can't be opened");
    }
    report_.file = path;
    return reader->read({path, progress_, report_});
}

void Run::leaveModel(const TopoDS_Shape& shape) {
    progress_.enter("taking bodies apart", 50, 55);
    const Stopwatch watch(report_, "write");
    BodyOptions wanted;
    wanted.solidsOnly = options_.bodiesOnly;
    wanted.sewingTolerance /= report_.unit.millimetres;
    const std::vector<Body> bodies =
        shape.IsNull() ? std::vector<Body>() : bodiesOf(shape, wanted, report_);
    if (bodies.empty()) throw Failure(ExitCode::noShape, "the file holds no shape");
    countWhatWasRead(bodies, shape, report_);
    progress_.enter("writing faces", 55, 90);
    PartialFile file(result(".direct"));
    QDataStream stream(&file.open());
    writeModel(bodies, stream, progress_, report_);
    if (report_.written["CreateBody"] == 0) {
        throw Failure(ExitCode::noShape, "none of the file's faces could be written");
    }
    if (stream.status() != QDataStream::Ok) {
        throw Failure(ExitCode::unwritable, "the model can't be written to the end");
    }
    file.commit();
}

/// An export that the kernel can't make is reported; the model stays.
void Run::leaveExports(const TopoDS_Shape& shape) {
    if (options_.sat) {
        report_.dropped("SAT export", 0, "this server offers no SAT");
        messages_ << "-sat on: this server offers no SAT; the model is written all the same"
                  << std::endl;
    }
    if (!options_.igs) return;
    progress_.enter("exporting IGES", 90, 99);
    const Stopwatch watch(report_, "export");
    try {
        PartialFile file(result(".igs"));
        exportIges(shape, *findLengthUnit(report_.unit.name), file.partialName().toStdString());
        file.commit();
    } catch (const Standard_Failure& failure) {
        report_.dropped("IGES export", 0, failure.GetMessageString());
        messages_ << "no IGES file: " << failure.GetMessageString() << std::endl;
    }
}

void Run::leaveReport() {
    PartialFile file(result(".report.json"));
    file.open().write(QByteArray::fromStdString(report_.json()));
    file.commit();
}

/// A run that fails after the model was written leaves no model: its exit says that there is none.
void Run::perform() {
    refuseInputAmongResults();
    removeEarlierResults();
    const TopoDS_Shape shape = readShape();
    leaveModel(shape);
    try {
        leaveExports(shape);
        leaveReport();
    } catch (...) {
        removeEarlierResults();
        throw;
    }
    progress_.enter("done", 100, 100);
}

/// The kernel talks on standard output; nobody listens there.
void silenceKernel() { Message::DefaultMessenger()->ChangePrinters().Clear(); }

ExitCode failed(std::ostream& messages, ExitCode code, const std::string& reason) {
    messages << "cad-importer-server: " << reason << std::endl;
    return code;
}

std::string kernelReason(const std::string& text) {
    return std::string("the geometry kernel failed while ") + Progress::phase() + ": " + text;
}

} // namespace

ExitCode runImport(const Options& options, std::ostream& messages) {
    for (const QString& word : options.unknown) {
        messages << "ignored: " << word.toStdString() << std::endl;
    }
    try {
        silenceKernel();
        Run(options, messages).perform();
        return ExitCode::ok;
    } catch (const Failure& failure) {
        return failed(messages, failure.code(), failure.what());
    } catch (const Standard_Failure& failure) {
        return failed(messages, ExitCode::kernelFailed,
                      kernelReason(std::string(failure.DynamicType()->Name()) + " " +
                                   failure.GetMessageString()));
    } catch (const std::exception& failure) {
        return failed(messages, ExitCode::kernelFailed, kernelReason(failure.what()));
    }
}

} // namespace server
