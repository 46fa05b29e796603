// SPDX-License-Identifier: Apache-2.0
// The client's live conversation with a running server: one connection, on which frames go both
// ways while the server works.
//
// The thread connects, announces itself with an OKMessage and then waits for frames, each of which
// it hands on by a signal. It ends when it can't connect, when it is destroyed, and through
// criticalSignal at the end of the connection, at a failure of the system, and at a frame whose
// count is negative or above CADImport::longestFrameBytes; without a word, where a frame finds no
// memory. It can be started again after that.
#pragma once

#include "client/framereader.h"
#include "client/tcpsocket.h"

#include <QByteArray>
#include <QReadWriteLock>
#include <QString>
#include <QThread>
#include <QWaitCondition>

#include <atomic>
#include <cstdint>

class QTextStream;

class ClientControlThread : public QThread {
    Q_OBJECT

public:
    ClientControlThread();
    /// Takes the thread out of whatever it waits for, and waits for its end.
    ~ClientControlThread() override;

    /// Where the next start connects to. The host is a numeric address: a name isn't found.
    void setServerAddress(const QString& host, std::uint16_t port);
    /// How long the attempt to connect may take, in milliseconds, once the system has looked up the
    /// address. A negative time, as at first, leaves it to the system, but for no longer than 10
    /// seconds.
    void setWaitTime(std::int32_t milliseconds);

    /// Whether the last attempt to connect went well; stays true when the connection ends. Waits
    /// for an attempt that is under way.
    bool isConnected() const;
    /// Whether the start that followed the last setServerAddress has made its attempt.
    bool hasAttempted() const { return attempted; }

    /// From here on all frames are written to the trace files, as they go over the wire. Before the
    /// start.
    void setTracing(bool on) { tracing = on; }

    /// Append a frame to the trace file for what was read, or sent: its length, then its bytes in
    /// hexadecimal, ten to a line. The paths are fixed, in "C:\Temp"; a file that can't be opened
    /// is left alone without a word. No lock: two threads on one file may mix their blocks.
    static void writeReadTrace(const QByteArray& frame);
    static void writeSendTrace(const QByteArray& frame);

signals:
    /// "Control socket error: %1": the thread ends. %1 is FrameReader::failure().
    void criticalSignal(const QString& text);
    /// Nothing emits it.
    void warningSignal(const QString& text);
    /// A frame without its count. Emitted on this thread, with `lock` held for reading: a receiver
    /// that is connected directly must not send.
    void newMessageArrivedSignal(const QByteArray& payload);

public slots:
    /// Sends a whole frame, on the thread that calls. Dropped without a word when not connected;
    /// cut or lost when the sending fails, for which a server that doesn't read has one second.
    void sendMessage(const QByteArray& frame);

protected:
    void run() override;

private:
    bool connectToServer();
    void greet();
    void send(const QByteArray& frame);
    void converse();
    void readFrames();
    void handOn(const FrameReader& frame);
    void endConnection();
    static void writeTrace(QTextStream& text, const QByteArray& frame);
    static void appendTrace(const char16_t* path, const QByteArray& frame);

    QString serverHost = QStringLiteral("127.0.0.1");
    std::uint16_t serverPort = 65535;
    TcpSocket socket;
    /// Guards `connected`, the address, and `socket` but for receiving.
    mutable QReadWriteLock lock;
    QWaitCondition wake; ///< woken by the destructor; nothing waits on it
    bool connected = false;
    std::atomic<bool> stopRequested = false; ///< by the destructor only
    std::atomic<std::int32_t> waitTime = -1; ///< in milliseconds
    std::atomic<bool> attempted = false;
    std::atomic<bool> tracing = false;
};
