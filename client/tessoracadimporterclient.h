// SPDX-License-Identifier: Apache-2.0
// The client component: runs the CAD Importer server, reads the model that it left, and keeps the
// results for the host.
//
// One run at a time, on the thread that calls importModel, which blocks until the server has gone.
// The process environment changes for the time of a run, for the whole host process.
#pragma once

#include "client/environmentfile.h"
#include "client/itessoracadimporterclient.h"

#include <QByteArray>
#include <QObject>
#include <QPointer>
#include <QProcess>
#include <QReadWriteLock>
#include <QStringList>

#include <memory>

class ClientControlThread;
class IGuiBusyState;

namespace CADImport {
class Creator;
class Message;
} // namespace CADImport

class TessoraCADImporterClient : public QObject, public ITessoraCADImporterClient {
    Q_OBJECT

public:
    TessoraCADImporterClient();
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
    void setFinished() override { finished = true; }
    void setParameters(const std::list<KorString>& parameters) override;
    void setControlSocket(const KorString& host, std::uint16_t port) override;
    void setDataSocket(const KorString& host, std::uint16_t port) override;
    std::list<void*>& models() override { return models_; }
    bool coordinateSystems(std::list<IZelFeature*>& features,
                           std::list<BitVector*>& masks) override;
    bool hasResults() override;

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
    bool startServer(const KorString& environmentFile, const KorString& serverProgram,
                     const std::list<KorString>& arguments);
    QStringList serverArguments(const std::list<KorString>& arguments) const;
    bool launch(const KorString& serverProgram, const QStringList& arguments);
    void waitForServer(IGuiBusyState* busy);
    bool collectResults(const KorString& outputBaseName, std::list<KorString>& exportedFiles);
    void readModelFile(const KorString& outputBaseName);
    bool serverRuns() const;

    QProcess serverProcess;
    QString serverHost = QStringLiteral("127.0.0.1"); ///< empty: no server is to be started
    std::uint16_t controlPort = 1234;
    std::uint16_t dataPort = 0;                  ///< stored only
    QPointer<ClientControlThread> controlThread; ///< not owned; nothing here attaches one
    QReadWriteLock lock;                         ///< guards the appends to `resultFiles`
    bool escaped = false;
    bool finished = false;
    bool batchMode = false; ///< decided once, at construction
    QStringList resultFiles;
    std::unique_ptr<CADImport::Creator> creator;
    std::list<void*> models_;
    std::list<IZelFeature*> coordinateSystems_;
    std::list<BitVector*> coordinateSystemMasks;
    IZelImportTarget* importTarget = nullptr; ///< not owned
    SavedEnvironment savedEnvironment;
    bool decimalComma = false; ///< of the user, at the start of the run: "sat" instead of "igs"
};
