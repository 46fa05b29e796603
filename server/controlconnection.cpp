// SPDX-License-Identifier: Apache-2.0
// Frames over the platform's sockets.
#include "server/controlconnection.h"

#include "cadimport/messageregistry.h"

#include <QBuffer>
#include <QtEndian>

#include <algorithm>

namespace server {
namespace {

constexpr double sendLimitSeconds = 1;
constexpr qint32 longestFrame = 64 << 20; ///< bytes; a longer one is noise
constexpr qint32 stepBytes = 1 << 20;     ///< room is made as the bytes come

/// Closes with the scope.
class ListeningSocket {
public:
    explicit ListeningSocket(std::uint16_t port) : socket_(platform::createSocket()) {
        platform::setReuseAddress(socket_);
        listens_ = platform::bindSocket(socket_, {platform::loopbackHost, port}) == 0 &&
                   platform::listenOn(socket_, 1) == 0;
    }
    ~ListeningSocket() { platform::closeSocket(socket_); }
    ListeningSocket(const ListeningSocket&) = delete;
    ListeningSocket& operator=(const ListeningSocket&) = delete;

    platform::Socket accept(double limitSeconds) const {
        platform::SocketAddress client;
        if (!listens_ || platform::waitForInput(socket_, limitSeconds) <= 0) return 0;
        return platform::acceptFrom(socket_, client);
    }

private:
    platform::Socket socket_;
    bool listens_;
};

std::unique_ptr<CADImport::Message> messageIn(QByteArray& payload) {
    QBuffer buffer(&payload);
    buffer.open(QIODevice::ReadOnly);
    QDataStream stream(&buffer);
    stream.setVersion(CADImport::streamVersion);
    QString wireName;
    stream >> wireName;
    return std::unique_ptr<CADImport::Message>(
        CADImport::createMessage(CADImport::messageRegistry(), wireName, stream));
}

} // namespace

ControlConnection::~ControlConnection() {
    if (socket_ > 0) platform::closeSocket(socket_);
}

bool ControlConnection::accept(std::uint16_t port, double limitSeconds) {
    platform::startSockets();
    socket_ = ListeningSocket(port).accept(limitSeconds);
    if (socket_ > 0) platform::setSendLimit(socket_, sendLimitSeconds);
    return socket_ > 0;
}

void ControlConnection::send(const CADImport::Message& message) {
    QByteArray frame;
    QDataStream stream(&frame, QIODevice::WriteOnly);
    stream.setVersion(CADImport::streamVersion);
    stream << message;
    platform::sendBytes(socket_, frame.constData(), static_cast<std::int32_t>(frame.size()), 0);
}

bool ControlConnection::fill(char* bytes, qint64 length, double limitSeconds) {
    while (length > 0) {
        if (platform::waitForInput(socket_, limitSeconds) <= 0) return false;
        const std::int32_t count =
            platform::receiveBytes(socket_, bytes, static_cast<std::int32_t>(length), 0);
        if (count <= 0) return false;
        bytes += count;
        length -= count;
    }
    return true;
}

bool ControlConnection::readFrame(QByteArray& payload, double limitSeconds) {
    char bytes[4];
    if (!fill(bytes, sizeof bytes, limitSeconds)) return false;
    const auto count = qFromBigEndian<qint32>(bytes);
    if (count < 0 || count > longestFrame) return false;
    payload.clear();
    while (payload.size() < count) {
        const auto got = payload.size();
        payload.resize(static_cast<int>(std::min<qint64>(count, got + stepBytes)));
        if (!fill(payload.data() + got, payload.size() - got, limitSeconds)) return false;
    }
    return true;
}

std::unique_ptr<CADImport::Message> ControlConnection::receive(double limitSeconds) {
    QByteArray payload;
    while (readFrame(payload, limitSeconds)) {
        if (auto message = messageIn(payload)) return message;
    }
    return nullptr;
}

} // namespace server
