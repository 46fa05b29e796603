// SPDX-License-Identifier: Apache-2.0
// What a run does beside the usual while a control thread is attached: it finds a server that
// listens, waits for what is said, and takes the files that were named.
#include "client/tessoracadimporterclient.h"

#include "cadimport/controlmessages.h"
#include "cadimport/creator.h"
#include "client/clientcontrolthread.h"
#include "client/librarytext.h"
#include "client/runlog.h"
#include "component/objects/services/iguibusystate.h"
#include "component/objects/sptr.h"
#include "platform/clock.h"

#include <QElapsedTimer>

namespace {

constexpr std::int32_t probeMs = 500;
constexpr std::int32_t noLimit = -1;
constexpr int turnMs = 100;
constexpr int turnsPerQuestion = 5;     ///< between two questions to the busy state
constexpr int listenLimitMs = 10'000;   ///< from a server's start until it listens
constexpr int partingMs = 1000;         ///< for a server to go that was told to
constexpr unsigned lastFramesMs = 1000; ///< for reading what a server that has gone had sent

} // namespace

/// Asks the host at every fifth turn whether the user wants to stop, when it has a busy state.
class TessoraCADImporterClient::TurnQuestion {
public:
    explicit TurnQuestion(IGuiBusyState* busy) : busy_(busy) {}

    bool isAnsweredYes() {
        return ++turn_ % turnsPerQuestion == 0 && busy_ && busy_->isCancelled();
    }

private:
    IGuiBusyState* busy_;
    int turn_ = 0;
};

/// Sees the server's end at once.
void TessoraCADImporterClient::pauseForATurn(TurnQuestion& question) {
    if (serverRuns()) {
        serverProcess.waitForFinished(turnMs);
    } else {
        platform::sleep(turnMs);
    }
    if (question.isAnsweredYes()) setEscaped();
}

/// Comes back when it is known whether the connection stands; a thread that has one already keeps
/// it.
void TessoraCADImporterClient::attemptConnection(std::int32_t waitTimeMs, TurnQuestion& question) {
    const auto [host, port] = controlAddress();
    controlThread->setWaitTime(waitTimeMs);
    controlThread->setServerAddress(host, port);
    controlThread->start(QThread::HighPriority);
    do pauseForATurn(question);
    while (controlThread->isRunning() && !controlThread->hasAttempted());
}

bool TessoraCADImporterClient::findListeningServer() {
    if (!isConnectedRun()) return false;
    TurnQuestion none(nullptr);
    attemptConnection(probeMs, none);
    if (controlThread->isRunning() && controlThread->isConnected()) return true;
    while (controlThread->isRunning()) platform::sleep(turnMs);
    return false;
}

/// A server takes its time until it listens, and a refusal comes at once.
void TessoraCADImporterClient::connectToServer() {
    const IPtr<IGuiBusyState> busy = SPtr<IGuiBusyState>();
    TurnQuestion question(busy.iface);
    QElapsedTimer timer;
    timer.start();
    for (;;) {
        attemptConnection(noLimit, question);
        if (!serverRuns()) return noteServerEnd();
        if (controlThread->isConnected()) return;
        controlThread->wait();
        if (timer.elapsed() > listenLimitMs) break;
    }
    qCWarning(runLog, "the server does not listen on its control port");
}

bool TessoraCADImporterClient::isConversationOver(bool wasConnected) const {
    return finishes != finishesBefore || (wasConnected && !controlThread->isRunning());
}

void TessoraCADImporterClient::waitForConversation(IGuiBusyState* busy) {
    const bool wasConnected = controlThread->isConnected();
    TurnQuestion question(busy);
    while (serverRuns() && !isConversationOver(wasConnected)) pauseForATurn(question);
    if (serverRuns()) partWithServer();
    if (!serverRuns()) noteServerEnd();
}

/// What it had sent may still have to be read.
void TessoraCADImporterClient::noteServerEnd() {
    logServerEnd(serverProcess);
    if (controlThread->isConnected()) controlThread->wait(lastFramesMs);
}

void TessoraCADImporterClient::partWithServer() {
    sendControlMessage(CADImport::FinishMessage());
    serverProcess.waitForFinished(partingMs);
}

bool TessoraCADImporterClient::takeResultFiles(std::list<KorString>& exportedFiles) {
    const QWriteLocker guard(&lock);
    for (const QString& file : resultFiles) exportedFiles.push_back(libraryText(file));
    resultFiles.clear();
    return !models_.empty();
}
