// SPDX-License-Identifier: Apache-2.0
// The client component: runs the CAD Importer server, reads the model that it left, and keeps the
// results for the host.
//
// One run at a time, on the thread that calls importModel, which blocks until the server has gone.
// The process environment changes for the time of a run, for the whole host process.
//
// A run with a control thread is a connected one: the same steps, and a conversation beside them.
// - A server that listens already, within half a second, is taken as it is; none is started. Only
//   one that this client started in an earlier run is asked for a model and waited for.
// - A server just started has 10 seconds, as long as it runs, until it listens; the connection is
//   tried anew ten times a second. One that doesn't listen works as in a direct run, but what it
//   leaves isn't read.
// - The wait lasts until the server has gone, has said that it finished or breaks off, or has ended
//   the connection. A server that still runs then is sent a FinishMessage and has one second to go;
//   one that stays is given up, and may serve the next run. A wish to stop is noted and ends
//   nothing.
// - The files that the server named are the exported files; no model file is read, so that the run
//   is a success only when an earlier one left models.
#pragma once

#include "client/environmentfile.h"
#include "client/ilivecontrol.h"
#include "client/itessoracadimporterclient.h"

#include <QByteArray>
#include <QObject>
#include <QPointer>
#include <QProcess>
#include <QReadWriteLock>
#include <QStringList>

#include <atomic>
#include <memory>
#include <utility>

class ClientControlThread;
class IGuiBusyState;

namespace CADImport {
class Creator;
class Message;
} // namespace CADImport

class TessoraCADImporterClient : public QObject,
                                 public ITessoraCADImporterClient,
                                 public ILiveControl {
    Q_OBJECT

public:
    /// The thread, when there is one, is attached and stays the caller's, who destroys it before
    /// this object and between runs; from then on runs are direct ones again.
    explicit TessoraCADImporterClient(ClientControlThread* thread = nullptr);
    /// A server that still runs is left to the destructor of QProcess. What the lists point at
    /// stays the host's.
    ~TessoraCADImporterClient() override;

    void qi(const char* name, void** result, std::int32_t reserved = 0) override;
    const char* className() override;

    bool importModel(const KorString& environmentFile, const KorString& serverProgram,
                     const std::list<KorString>& arguments, IZelImportTarget* importTarget,
                     void* reserved1, void* reserved2,
                     std::list<KorString>& exportedFiles) override;
    bool reservedQuery() override { return false; }
    void setEscaped() override { escaped = true; }
    void setFinished() override {
        finished = true;
        ++finishes;
    }
    void setParameters(const std::list<KorString>& parameters) override;
    void setControlSocket(const KorString& host, std::uint16_t port) override;
    void setDataSocket(const KorString& host, std::uint16_t port) override;
    std::list<void*>& models() override { return models_; }
    bool coordinateSystems(std::list<IZelFeature*>& features,
                           std::list<BitVector*>& masks) override;
    bool hasResults() override;

    IZelUnknown* attachControlThread(bool traceFrames) override;

    /// A file that the server names as its result. Safe against other threads that add one.
    void addResultFile(const QString& file);

signals:
    void sendControlMessageSignal(const QByteArray& frame);

public slots:
    /// Sends a message to the server; nothing without a control thread and a running server.
    void sendControlMessage(const CADImport::Message& message);
    /// Acts on a frame, without its count, that came from the server; nothing without a control
    /// thread.
    void controlMessageProcessing(const QByteArray& payload);
    /// The same for a frame from a data connection. Model messages find no visitor there.
    void dataProcessing(const QByteArray& payload);
    /// Nothing: no data connection is opened anywhere.
    void openDataChannel() {}
    void warningBox(const QString&) {}
    void criticalBox(const QString&) {}
    /// Tells the user why the server failed. Ends no run.
    void error(QProcess::ProcessError error);

private:
    friend class LiveControl;
    class TurnQuestion;

    void attach(ClientControlThread* thread);
    bool runImport(const KorString& environmentFile, const KorString& serverProgram,
                   const std::list<KorString>& arguments, IZelImportTarget* target,
                   std::list<KorString>& exportedFiles);
    bool startServer(const KorString& environmentFile, const KorString& serverProgram,
                     const std::list<KorString>& arguments);
    QStringList serverArguments(const std::list<KorString>& arguments) const;
    bool launch(const KorString& serverProgram, const QStringList& arguments);
    void waitForServer(IGuiBusyState* busy);
    bool isConnectedRun() const { return !controlThread.isNull(); }
    bool findListeningServer();
    void connectToServer();
    void attemptConnection(std::int32_t waitTimeMs, TurnQuestion& question);
    void waitForConversation(IGuiBusyState* busy);
    bool isConversationOver(bool wasConnected) const;
    void partWithServer();
    void noteServerEnd();
    bool takeResultFiles(std::list<KorString>& exportedFiles);
    void pauseForATurn(TurnQuestion& question);
    std::pair<QString, std::uint16_t> controlAddress() const;
    bool hasServerHost() const { return !controlAddress().first.isEmpty(); }
    bool collectResults(const KorString& outputBaseName, std::list<KorString>& exportedFiles);
    void readModelFile(const KorString& outputBaseName);
    bool serverRuns() const;

    QProcess serverProcess;
    QString serverHost = QStringLiteral("127.0.0.1"); ///< empty: no server is to be started
    std::uint16_t controlPort = 1234;
    std::uint16_t dataPort = 0;                  ///< stored only
    QPointer<ClientControlThread> controlThread; ///< not owned
    /// Guards `resultFiles`, the host and the ports, which frames from the server change too. Never
    /// held over a call on the control thread.
    mutable QReadWriteLock lock;
    std::atomic<bool> escaped = false;
    std::atomic<bool> finished = false;
    std::atomic<int> finishes = 0; ///< how often the server has finished
    int finishesBefore = 0;        ///< at the start of the run
    bool batchMode = false;        ///< decided once, at construction
    QStringList resultFiles;
    std::unique_ptr<CADImport::Creator> creator;
    std::list<void*> models_;
    std::list<IZelFeature*> coordinateSystems_;
    std::list<BitVector*> coordinateSystemMasks;
    IZelImportTarget* importTarget = nullptr; ///< not owned
    SavedEnvironment savedEnvironment;
    bool decimalComma = false; ///< of the user, at the start of the run: "sat" instead of "igs"
};
