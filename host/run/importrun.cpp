// SPDX-License-Identifier: Apache-2.0
// The steps of a run: host, module, import, rebuilding.
#include "host/run/importrun.h"

#include "component/manageraccess.h"
#include "host/modelling/modellingcomponent.h"
#include "host/run/componentlog.h"
#include "host/run/interrupts.h"
#include "host/run/liveimport.h"
#include "host/run/loadedmodule.h"
#include "host/run/measuring.h"
#include "host/run/outputfile.h"
#include "host/run/programfiles.h"
#include "host/run/resultbase.h"
#include "host/run/runfacts.h"
#include "host/run/runwatch.h"
#include "host/run/serverreport.h"
#include "host/run/stepphase.h"
#include "host/services/services.h"
#include "host/temporaryfolder.h"
#include "host/text.h"
#include "platform/process.h"
#include "zelbasictypes/sets/bitvector.h"
#include "zelbasictypes/text/zeltranslator.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <filesystem>
#include <optional>
#include <utility>

namespace host {
namespace {

class ImportRun {
public:
    ImportRun(const ImportOptions& options, const RunSurroundings& surroundings)
        : options_(options), surroundings_(surroundings) {}
    ~ImportRun() {
        control_ = nullptr;
        client_ = nullptr;
        rootManager().clear();
    }

    RunOutcome execute();

private:
    /// Each answers the reason for which the run ends there, or an empty text.
    std::string makeSettings();
    std::string makePlaces();
    std::string offerEverything();
    std::string prepareConversation();

    RunOutcome fail(ExitStatus status, const std::string& reason);
    void lookAtModelFile();
    void lookAtServer();
    void import();
    std::string linkModel();
    bool callImport();
    void tidyUp(RunWatch& watch) const;
    bool importModel(const std::list<KorString>& words, std::list<KorString>& files);
    bool readWhatWasNamed(std::list<KorString>& files);
    void takeResults();
    void judge();
    void noteEarlyEnds();
    void noteTrace();
    std::list<KorString> optionList() const;
    QStringList serverLimits() const;
    std::list<KorString> readingList(const KorString& base) const;
    bool wasStartRefused() const;

    const ImportOptions& options_;
    const RunSurroundings& surroundings_;
    LoadedModule module_; ///< goes last: services may hold objects that came from it
    const TemporaryFolder temporary_;
    ResultBase base_;
    QString outputBase_;
    QString input_; ///< the CAD file by a name that a server can be told
    std::optional<LateFile> trace_;
    IPtr<SettingsStore> settings_{new SettingsStore};
    Services services_;
    std::unique_ptr<ModellingComponent> modelling_;
    IPtr<ITessoraCADImporterClient> client_;
    IPtr<IZelUnknown> control_; ///< while the client has a control thread
    std::uint16_t controlPort_ = 0;
    RunFacts facts_;
    bool isFirstImporterMade_ = false;
    RunOutcome outcome_;
};

RunOutcome ImportRun::execute() {
    for (const auto step :
         {&ImportRun::makeSettings, &ImportRun::makePlaces, &ImportRun::offerEverything}) {
        const std::string reason = (this->*step)();
        if (!reason.empty()) return fail(ExitStatus::wrongUse, reason);
    }
    const QString file = options_.module.isEmpty() ? defaultModule() : options_.module;
    const std::string reason = module_.load(file, rootManager());
    if (!reason.empty()) return fail(ExitStatus::unusable, reason);
    client_ = module_.makeClient();
    if (!client_) return fail(ExitStatus::unusable, "the module offers no import client");
    if (options_.live) {
        const std::string problem = prepareConversation();
        if (!problem.empty()) return fail(ExitStatus::unusable, problem);
    }
    import();
    return std::move(outcome_);
}

std::string ImportRun::prepareConversation() {
    controlPort_ = findControlPort();
    if (controlPort_ == 0) return "this machine has no free port for the control connection";
    control_ = attachControlThread(*client_.iface, options_.traceFrames);
    return control_ ? "" : "the component offers no control connection";
}

RunOutcome ImportRun::fail(ExitStatus status, const std::string& reason) {
    outcome_.failure = status;
    outcome_.reason = reason;
    return std::move(outcome_);
}

std::string ImportRun::makeSettings() {
    if (!options_.settingsFile.isEmpty() && !settings_->load(options_.settingsFile)) {
        return "the settings can't be read: " + options_.settingsFile.toStdString();
    }
    for (const QString& word : options_.settings) {
        if (!settings_->setFromWord(word)) return "not KEY=VALUE: " + word.toStdString();
    }
    return {};
}

/// Of a file that is named at all.
bool isReadable(const QString& file) {
    return file.isEmpty() || (QFileInfo(file).isFile() && QFile(file).open(QIODevice::ReadOnly));
}

/// A name that no text can hold is reached by a link that has one.
std::string ImportRun::linkModel() {
    input_ = options_.model;
    if (options_.modelBytes.empty()) return {};
    const std::filesystem::path model = std::filesystem::absolute(options_.modelBytes);
    input_ = temporary_.filePath(QStringLiteral("given.") + QFileInfo(options_.model).suffix());
    std::error_code error;
    std::filesystem::create_symlink(model, input_.toStdString(), error);
    return error ? "the CAD file can't be linked: " + error.message() : std::string();
}

std::string ImportRun::makePlaces() {
    if (!temporary_.problem().isEmpty()) return temporary_.problem().toStdString();
    if (!isReadable(options_.environmentFile)) {
        return "the environment file can't be read: " + options_.environmentFile.toStdString();
    }
    outputBase_ = options_.outputBase.isEmpty() ? temporary_.filePath(QStringLiteral("model"))
                                                : options_.outputBase;
    const std::string taken = base_.take(outputBase_, !options_.noServer).toStdString();
    if (!taken.empty()) return taken;
    if (!options_.traceFile.isEmpty()) trace_.emplace(options_.traceFile);
    outcome_.filesAreTemporary = options_.outputBase.isEmpty();
    outcome_.name =
        QFileInfo(options_.model.isEmpty() ? outputBase_ : options_.model).fileName().toStdString();
    return linkModel();
}

std::string ImportRun::offerEverything() {
    services_ = offerServices(rootManager(), {surroundings_.messages, surroundings_.terminal,
                                              options_.answer, settings_});
    services_.directories->setDirectory("temp", toKorString(temporary_.path()));
    facts_.modelFile = outputBase_ + QStringLiteral(".direct");
    modelling_ = std::make_unique<ModellingComponent>(rootManager(), trace_ ? &*trace_ : nullptr,
                                                      [this] { lookAtModelFile(); });
    for (const QString& service : options_.without) {
        if (!rootManager().withdraw(service.toStdString())) {
            return "no such service: " + service.toStdString();
        }
    }
    return {};
}

/// A client makes its first importer before the server runs, when at most a file of an earlier run
/// is there, and another one once it has opened the model file.
void ImportRun::lookAtModelFile() {
    if (!std::exchange(isFirstImporterMade_, true)) return;
    const QFileInfo file(facts_.modelFile);
    facts_.modelFileBytes = file.isFile() ? std::optional(file.size()) : std::nullopt;
}

void ImportRun::lookAtServer() {
    facts_.noServer = options_.noServer;
    facts_.live = options_.live;
    facts_.importerMissing = options_.without.contains(QStringLiteral("IZelCADImporter"));
    if (options_.noServer) return;
    facts_.server = options_.server.isEmpty() ? defaultServer() : options_.server;
    if (facts_.server.isEmpty()) facts_.server = QStringLiteral("cad-importer-server");
    facts_.startProblem = startProblem(facts_.server);
    if (!QFileInfo::exists(input_)) facts_.missingModel = options_.model;
}

void ImportRun::import() {
    lookAtServer();
    const ServerReportFile reportFile(outputBase_);
    RunWatch watch(services_, outcome_.name, options_.progress);
    outcome_.result = callImport();
    tidyUp(watch);
    if (!facts_.modelFileBytes) lookAtModelFile(); // one that can't be opened is still there
    facts_.interrupted = interruptCount() > 0;
    takeResults();
    outcome_.server = reportFile.read();
    facts_.serverReported = !outcome_.server.is_null();
    facts_.serverFailure = failureIn(outcome_.server);
    if (!outcome_.result && !facts_.serverReported) facts_.serverWords = watch.lastWords();
    outcome_.losses = outcome_.record.dropped;
    for (auto& loss : lostOnTheWay(outcome_.server, outcome_.record)) {
        outcome_.losses.push_back(std::move(loss));
    }
    measure(outcome_, options_, [&watch](const Step& step, int number, int count) {
        watch.enter(phaseOf(step), count > 1 ? std::optional(number * 100 / count) : std::nullopt);
    });
    noteTrace();
    judge();
}

std::list<KorString> ImportRun::optionList() const {
    QStringList words;
    if (options_.noServer) return readingList(toKorString(outputBase_));
    if (options_.live) {
        words << QStringLiteral("-ControlSocket") << QStringLiteral("127.0.0.1")
              << QString::number(controlPort_);
    }
    words << QStringLiteral("-InputFile") << input_ << QStringLiteral("-OutputBaseName")
          << outputBase_ << serverLimits() << options_.arguments;
    std::list<KorString> list;
    for (const QString& word : words) list.push_back(toKorString(word));
    return list;
}

/// Only what the user asks for: other servers needn't know these words.
QStringList ImportRun::serverLimits() const {
    QStringList words;
    if (!options_.compares) words << QStringLiteral("-Compare") << QStringLiteral("off");
    if (options_.timeLimitSeconds > 0) {
        words << QStringLiteral("-TimeLimit") << QString::number(options_.timeLimitSeconds);
    }
    if (options_.memoryLimitMb > 0) {
        words << QStringLiteral("-MemoryLimit") << QString::number(options_.memoryLimitMb);
    }
    return words;
}

/// Options for a run that starts no server and reads an existing model file.
std::list<KorString> ImportRun::readingList(const KorString& base) const {
    std::list<KorString> list{"-ControlSocket", "", "0", "-OutputBaseName", base};
    for (const QString& word : options_.arguments) list.push_back(toKorString(word));
    return list;
}

bool ImportRun::importModel(const std::list<KorString>& words, std::list<KorString>& files) {
    return client_->importModel(toKorString(options_.environmentFile), toKorString(facts_.server),
                                words, modelling_->importTarget(), nullptr, nullptr, files);
}

/// A connected run names files and reads none; a second client, which has no server, reads them.
bool ImportRun::readWhatWasNamed(std::list<KorString>& files) {
    control_ = nullptr;
    const KorString base = modelBaseIn(files);
    facts_.modelNamed = !base.isEmpty();
    if (!facts_.modelNamed) return false;
    facts_.modelFile = toQString(base) + QStringLiteral(".direct");
    client_ = module_.makeClient();
    return importModel(readingList(base), files);
}

bool ImportRun::callImport() {
    const ComponentLog log;
    std::list<KorString> files;
    bool result = importModel(optionList(), files);
    if (options_.live) result = readWhatWasNamed(files);
    for (const std::string& line : log.lines()) facts_.serverEnd = line;
    for (const KorString& file : files) {
        outcome_.exportedFiles.push_back(
            toQString(file).replace(QLatin1Char('\\'), QLatin1Char('/')).toStdString());
    }
    return result;
}

/// A server may have died, or been left by a program that stood between.
void ImportRun::tidyUp(RunWatch& watch) const {
    watch.endProcesses();
    if (!options_.noServer) removeHalfMade(outputBase_);
}

/// The lists pass to the host with all that they point at. The entries of the models are the
/// host's own objects, which the modelling component holds anyway.
void ImportRun::takeResults() {
    outcome_.hasResults = client_->hasResults();
    std::list<IZelFeature*> systems;
    std::list<BitVector*> masks;
    client_->coordinateSystems(systems, masks);
    modelling_->takeCoordinateSystems(systems);
    for (BitVector* mask : masks) {
        mask->addRef();
        mask->release();
    }
    outcome_.record = modelling_->record();
}

/// A model came all the same, but what the server had yet to say is unknown, and what an interrupt
/// cut short.
void ImportRun::noteEarlyEnds() {
    if (!facts_.serverEnd.empty()) outcome_.losses.push_back({"server", 0, facts_.serverEnd});
    if (interruptCount() > 0) outcome_.losses.push_back({"run", 0, "it was interrupted"});
}

void ImportRun::noteTrace() {
    if (!trace_ || trace_->flush()) return;
    outcome_.losses.push_back({"trace", 0, "the file could not be written to its end"});
}

/// The notice bears the text that the translator gives this program too.
bool ImportRun::wasStartRefused() const {
    const std::string notice = toUtf8(zelTranslate("The CAD Importer server could not be started"));
    const auto& notices = services_.dialog->notices();
    return std::find(notices.begin(), notices.end(), notice) != notices.end();
}

void ImportRun::judge() {
    if (outcome_.hasResults) return noteEarlyEnds();
    const bool refused = wasStartRefused();
    if (refused && facts_.startProblem.isEmpty()) {
        facts_.startProblem = QStringLiteral("the system refuses to run it");
    }
    if (refused) outcome_.failure = ExitStatus::unusable;
    const std::string reason = reasonForNothing(facts_);
    if (outcome_.result) {
        outcome_.losses.push_back({"model", 0, reason});
    } else {
        outcome_.reason = reason;
    }
}

} // namespace

RunOutcome runImport(const ImportOptions& options, const RunSurroundings& surroundings) {
    zelSetManager(&rootManager());
    platform::superviseDescendants();
    return ImportRun(options, surroundings).execute();
}

} // namespace host
