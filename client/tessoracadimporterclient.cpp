// SPDX-License-Identifier: Apache-2.0
// The component's face to the host and the messages of a live conversation; the run itself stands
// in importrun.cpp.
#include "client/tessoracadimporterclient.h"

#include "cadimport/controlframe.h"
#include "cadimport/creator.h"
#include "client/batchmode.h"
#include "client/clientcontrolthread.h"
#include "client/controlmessageinterpreter.h"
#include "client/hostdialog.h"
#include "client/librarytext.h"
#include "client/livecontrol.h"
#include "component/itemfactory.h"
#include "component/objects/queryinterface.h"

#include <cstring>

namespace {

ZelTClassItemFactory<TessoraCADImporterClient> itemFactory{"TessoraCADImporterClient", nullptr,
                                                           zelImportClientClassId};

template <class T> void replace(std::list<T>& target, const std::list<T>& source) {
    if (&target != &source) target = source;
}

/// Lets the message of a frame without its count visit the interpreter, when it is valid.
void interpretFrame(const QByteArray& payload, TessoraCADImporterClient* client) {
    const auto message = CADImport::messageInFrame(payload);
    if (!message || !message->isValid()) return;
    CADImport::ClientControlMessageInterpreter interpreter(client);
    message->accept(interpreter);
}

/// The words for the user; null where nothing is shown.
const char* textFor(QProcess::ProcessError error) {
    switch (error) {
    case QProcess::FailedToStart:
        return "It failed to start";
    case QProcess::Crashed:
        return nullptr;
    case QProcess::Timedout:
        return "It is timed out.";
    case QProcess::ReadError:
        return "There is a \"READ\" error.";
    case QProcess::WriteError:
        return "There is a \"WRITE\" error.";
    case QProcess::UnknownError:
        break;
    }
    return "There is an unknown error.";
}

} // namespace

/// What the server says on its standard error is let through to the host's; the client reads none
/// of the server's channels, so that its standard output is thrown away instead of kept.
TessoraCADImporterClient::TessoraCADImporterClient(ClientControlThread* thread) {
    serverProcess.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    serverProcess.setStandardOutputFile(QProcess::nullDevice());
    connect(this, &QObject::destroyed, &serverProcess, &QProcess::terminate, Qt::QueuedConnection);
    connect(&serverProcess, &QProcess::errorOccurred, this, &TessoraCADImporterClient::error);
    if (thread) attach(thread);
    batchMode = isBatchMode();
}

TessoraCADImporterClient::~TessoraCADImporterClient() = default;

/// Those who walk the object aren't told of the live control: it is for who knows its name.
void TessoraCADImporterClient::qi(const char* name, void** result, std::int32_t) {
    if (name && std::strcmp(name, ILiveControl::interfaceName) == 0) {
        *result = static_cast<ILiveControl*>(this);
        return;
    }
    zelAnswerQuery<ITessoraCADImporterClient>(this, className(), name, result);
}

const char* TessoraCADImporterClient::className() { return "TessoraCADImporterClient"; }

IZelUnknown* TessoraCADImporterClient::attachControlThread(bool traceFrames) {
    if (!controlThread.isNull()) return nullptr;
    return new LiveControl(*this, traceFrames);
}

void TessoraCADImporterClient::attach(ClientControlThread* thread) {
    using Client = TessoraCADImporterClient;
    using Thread = ClientControlThread;
    controlThread = thread;
    connect(thread, &Thread::criticalSignal, this, &Client::criticalBox, Qt::DirectConnection);
    connect(thread, &Thread::warningSignal, this, &Client::warningBox, Qt::DirectConnection);
    connect(thread, &Thread::newMessageArrivedSignal, this, &Client::controlMessageProcessing,
            Qt::DirectConnection);
    connect(this, &Client::sendControlMessageSignal, thread, &Thread::sendMessage,
            Qt::DirectConnection);
}

void TessoraCADImporterClient::setParameters(const std::list<KorString>& parameters) {
    const CADImport::SetParameterMessage message(narrowTexts(parameters));
    if (serverRuns() && hasServerHost()) return sendControlMessage(message);
    CADImport::ClientControlMessageInterpreter interpreter(this);
    message.accept(interpreter);
}

void TessoraCADImporterClient::setControlSocket(const KorString& host, std::uint16_t port) {
    const QWriteLocker guard(&lock);
    serverHost = narrowText(host);
    controlPort = port;
}

void TessoraCADImporterClient::setDataSocket(const KorString& host, std::uint16_t port) {
    const QWriteLocker guard(&lock);
    serverHost = narrowText(host);
    dataPort = port;
}

std::pair<QString, std::uint16_t> TessoraCADImporterClient::controlAddress() const {
    const QReadLocker guard(&lock);
    return {serverHost, controlPort};
}

bool TessoraCADImporterClient::coordinateSystems(std::list<IZelFeature*>& features,
                                                 std::list<BitVector*>& masks) {
    replace(features, coordinateSystems_);
    replace(masks, coordinateSystemMasks);
    return !coordinateSystems_.empty();
}

bool TessoraCADImporterClient::hasResults() {
    return !models_.empty() || !coordinateSystems_.empty();
}

void TessoraCADImporterClient::addResultFile(const QString& file) {
    const QWriteLocker guard(&lock);
    resultFiles.append(file);
}

bool TessoraCADImporterClient::serverRuns() const {
    return serverProcess.state() == QProcess::Running;
}

void TessoraCADImporterClient::sendControlMessage(const CADImport::Message& message) {
    if (controlThread.isNull() || !serverRuns() || !hasServerHost()) return;
    emit sendControlMessageSignal(CADImport::controlFrame(message));
}

void TessoraCADImporterClient::controlMessageProcessing(const QByteArray& payload) {
    if (!controlThread.isNull()) interpretFrame(payload, this);
}

void TessoraCADImporterClient::dataProcessing(const QByteArray& payload) {
    interpretFrame(payload, this);
}

void TessoraCADImporterClient::error(QProcess::ProcessError error) {
    if (const char* text = textFor(error)) showNotice(text);
}
