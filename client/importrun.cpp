// SPDX-License-Identifier: Apache-2.0
// One import, from the host's call to its result: the server is prepared, started and waited for,
// then its files are read.
#include "client/tessoracadimporterclient.h"

#include "cadimport/creator.h"
#include "client/hostdialog.h"
#include "client/librarytext.h"
#include "client/modelfile.h"
#include "client/runlog.h"
#include "component/objects/services/iguibusystate.h"
#include "component/objects/sptr.h"
#include "platform/locale.h"
#include "zelbasictypes/text/korstring.h"

#include <QFile>

#include <algorithm>
#include <new>

namespace {

constexpr int startLimitMs = 3000;
constexpr int waitTurnMs = 500;

/// Any answer but the one character "," is a point, a failed question too.
bool isDecimalComma() { return platform::decimalSeparator() == u","; }

/// The word behind the first "-OutputBaseName"; empty when there is none.
KorString outputBaseName(const std::list<KorString>& arguments) {
    const KorString option = KorString::borrow(u"-OutputBaseName", "-OutputBaseName");
    auto found = std::find(arguments.begin(), arguments.end(), option);
    if (found == arguments.end() || ++found == arguments.end()) return {};
    return *found;
}

} // namespace

/// A run without memory is one that failed.
bool TessoraCADImporterClient::importModel(const KorString& environmentFile,
                                           const KorString& serverProgram,
                                           const std::list<KorString>& arguments,
                                           IZelImportTarget* target, void*, void*,
                                           std::list<KorString>& exportedFiles) {
    try {
        return runImport(environmentFile, serverProgram, arguments, target, exportedFiles);
    } catch (const std::bad_alloc&) {
        return false;
    }
}

bool TessoraCADImporterClient::runImport(const KorString& environmentFile,
                                         const KorString& serverProgram,
                                         const std::list<KorString>& arguments,
                                         IZelImportTarget* target,
                                         std::list<KorString>& exportedFiles) {
    decimalComma = isDecimalComma();
    creator.reset();
    if (!target) return false;
    creator = std::make_unique<CADImport::Creator>(target);
    importTarget = target;
    static_cast<ITessoraCADImporterClient*>(this)->setParameters(arguments);

    finishesBefore = finishes;

    IPtr<IGuiBusyState> busy;
    const EnvironmentLoan loan(savedEnvironment);
    if (hasServerHost() && !findListeningServer() &&
        !startServer(environmentFile, serverProgram, arguments)) {
        return false;
    }
    sendControlMessage(CADImport::SendNextModelMessage());
    busy = SPtr<IGuiBusyState>();
    waitForServer(busy.iface);
    exportedFiles.clear();
    return isConnectedRun() ? takeResultFiles(exportedFiles)
                            : collectResults(outputBaseName(arguments), exportedFiles);
}

/// False when the run ends here, with the user told why. A host without a dialog cannot be told,
/// and then the run goes on.
bool TessoraCADImporterClient::startServer(const KorString& environmentFile,
                                           const KorString& serverProgram,
                                           const std::list<KorString>& arguments) {
    if (serverRuns()) return !showNotice("It couldn't be connected to the running server.");
    const QStringList words = serverArguments(arguments);
    loadEnvironmentFile(environmentFile, savedEnvironment);
    const bool isLaunched = launch(serverProgram, words);
    if (!isLaunched && showNotice("The CAD Importer server could not be started")) return false;
    if (isConnectedRun()) {
        connectToServer();
    } else if (!isLaunched) {
        logServerEnd(serverProcess);
    }
    return true;
}

/// The host's words first and unchanged, then the client's five.
QStringList TessoraCADImporterClient::serverArguments(const std::list<KorString>& arguments) const {
    QStringList words = narrowTexts(arguments);
    if (batchMode) {
        words << QStringLiteral("-Batch");
    } else if (const auto custom = askQuestion("Do you want a custom import?")) {
        words << (*custom ? QStringLiteral("-Interactive") : QStringLiteral("-Passive"));
    }
    words << (decimalComma ? QStringLiteral("-sat") : QStringLiteral("-igs"));
    return words << QStringLiteral("on") << QStringLiteral("-BodiesOnly") << QStringLiteral("off");
}

bool TessoraCADImporterClient::launch(const KorString& serverProgram,
                                      const QStringList& arguments) {
    serverProcess.start(narrowText(serverProgram), arguments, QIODevice::ReadWrite);
    return serverProcess.waitForStarted(startLimitMs);
}

/// As long as the server lives. A wish to stop is noted at each turn and ends nothing: what ends a
/// server is the host's affair.
void TessoraCADImporterClient::waitForServer(IGuiBusyState* busy) {
    if (!serverRuns()) return;
    if (isConnectedRun()) return waitForConversation(busy);
    while (serverRuns()) {
        serverProcess.waitForFinished(waitTurnMs);
        if (busy && busy->isCancelled()) setEscaped();
    }
    logServerEnd(serverProcess);
}

bool TessoraCADImporterClient::collectResults(const KorString& baseName,
                                              std::list<KorString>& exportedFiles) {
    if (baseName.isEmpty()) return false;
    readModelFile(baseName);
    collectExportedFiles(baseName, decimalComma, exportedFiles);
    resultFiles.clear();
    return !exportedFiles.empty() || !coordinateSystems_.empty();
}

/// Where no importer could take a message, the file stays where it is.
void TessoraCADImporterClient::readModelFile(const KorString& baseName) {
    models_.clear();
    QFile file;
    if (!openModelFile(baseName, file)) return;
    CADImport::Creator reader(importTarget);
    if (!reader.hasImporter()) return;
    readMessages(file, reader);
    models_ = reader.models();
    reader.coordinateSystems(coordinateSystems_, coordinateSystemMasks);
    removeModelFile(baseName, file);
}
