// SPDX-License-Identifier: Apache-2.0
// The thread's life: connect, greet, read until there is nothing more to read.
#include "client/clientcontrolthread.h"

#include "cadimport/controlframe.h"
#include "cadimport/controlmessages.h"

#include <QtEndian>

#include <algorithm>
#include <new>

namespace {

constexpr std::int32_t longestAttemptMs = 10'000;
constexpr double sendLimitSeconds = 1;

/// The frame as it came over the wire, for the trace.
QByteArray withCount(const QByteArray& payload) {
    QByteArray frame(4, '\0');
    qToBigEndian(static_cast<quint32>(payload.size()), frame.data());
    return frame + payload;
}

} // namespace

ClientControlThread::ClientControlThread() = default;

/// The order matters: the thread looks for the request after it has a connection, so that either it
/// sees the request or the interruption finds the connection.
ClientControlThread::~ClientControlThread() {
    stopRequested = true;
    wake.wakeAll();
    {
        const QReadLocker guard(&lock);
        socket.interrupt();
    }
    wait();
}

/// Of a thread that runs the attempt is over.
void ClientControlThread::setServerAddress(const QString& host, std::uint16_t port) {
    const QWriteLocker guard(&lock);
    serverHost = host;
    serverPort = port;
    if (!isRunning()) attempted = false;
}

void ClientControlThread::setWaitTime(std::int32_t milliseconds) { waitTime = milliseconds; }

bool ClientControlThread::isConnected() const {
    const QReadLocker guard(&lock);
    return connected;
}

void ClientControlThread::run() {
    const bool isConnectedNow = connectToServer();
    attempted = true;
    if (!isConnectedNow) return;
    if (!stopRequested) converse();
    endConnection();
}

/// A frame that finds no memory ends the conversation.
void ClientControlThread::converse() {
    try {
        readFrames();
    } catch (const std::bad_alloc&) {
        return;
    }
}

bool ClientControlThread::connectToServer() {
    const QWriteLocker guard(&lock);
    const std::int32_t limitMs = waitTime < 0 ? longestAttemptMs : std::max<int>(waitTime, 1);
    const TcpSocket::ConnectLimits limits{limitMs / 1000.0, &stopRequested};
    socket.setPort(serverPort);
    socket.useNumericAddress();
    connected = socket.connectTo(serverHost.toLatin1().constData(), limits) >= 0;
    if (connected) greet();
    return connected;
}

/// Before anything else passes on the connection.
void ClientControlThread::greet() {
    socket.setSendLimit(sendLimitSeconds);
    send(CADImport::controlFrame(CADImport::OKMessage()));
}

void ClientControlThread::send(const QByteArray& frame) {
    if (tracing) writeSendTrace(frame);
    socket.send(frame.constData(), static_cast<std::int32_t>(frame.size()));
}

void ClientControlThread::sendMessage(const QByteArray& frame) {
    const QWriteLocker guard(&lock);
    if (connected) send(frame);
}

void ClientControlThread::readFrames() {
    FrameReader reader(socket);
    while (!stopRequested) {
        if (reader.read()) {
            handOn(reader);
        } else if (!stopRequested) {
            emit criticalSignal(QStringLiteral("Control socket error: %1").arg(reader.failure()));
            return;
        }
    }
}

void ClientControlThread::handOn(const FrameReader& frame) {
    const QReadLocker guard(&lock);
    const QByteArray payload(frame.data(), frame.size());
    if (tracing) writeReadTrace(withCount(payload));
    emit newMessageArrivedSignal(payload);
}

/// So that the server learns of it, and no handle stays open.
void ClientControlThread::endConnection() {
    const QWriteLocker guard(&lock);
    socket.disconnect();
}
