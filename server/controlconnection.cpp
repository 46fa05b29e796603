// SPDX-License-Identifier: Apache-2.0
// Frames over the platform's sockets.
#include "server/controlconnection.h"

#include "cadimport/controlframe.h"
#include "cadimport/framelimits.h"

#include <QtEndian>

#include <algorithm>
#include <chrono>
#include <optional>

namespace server {
namespace {

constexpr double sendLimitSeconds = 1;

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

} // namespace

/// A limit on what takes several waits.
class ControlConnection::Deadline {
public:
    /// 0 is none.
    explicit Deadline(double limitSeconds) {
        if (limitSeconds > 0) end_ = Clock::now() + std::chrono::duration<double>(limitSeconds);
    }
    /// In the form of waitForInput, to which 0 is no limit: what is used up is a moment.
    double secondsLeft() const {
        if (!end_) return 0;
        return std::max(std::chrono::duration<double>(*end_ - Clock::now()).count(), 1e-3);
    }

private:
    using Clock = std::chrono::steady_clock;
    std::optional<std::chrono::time_point<Clock, std::chrono::duration<double>>> end_;
};

ControlConnection::ControlConnection() : started_(platform::startSockets()) {}

ControlConnection::~ControlConnection() {
    if (socket_ > 0) platform::closeSocket(socket_);
    if (started_) platform::cleanupSockets();
}

bool ControlConnection::accept(std::uint16_t port, double limitSeconds) {
    socket_ = ListeningSocket(port).accept(limitSeconds);
    if (socket_ > 0) platform::setSendLimit(socket_, sendLimitSeconds);
    return socket_ > 0;
}

void ControlConnection::send(const CADImport::Message& message) {
    const QByteArray frame = CADImport::controlFrame(message);
    platform::sendBytes(socket_, frame.constData(), static_cast<std::int32_t>(frame.size()), 0);
}

bool ControlConnection::fill(char* bytes, qint64 length, const Deadline& deadline) {
    while (length > 0) {
        if (platform::waitForInput(socket_, deadline.secondsLeft()) <= 0) return false;
        const std::int32_t count =
            platform::receiveBytes(socket_, bytes, static_cast<std::int32_t>(length), 0);
        if (count <= 0) return false;
        bytes += count;
        length -= count;
    }
    return true;
}

bool ControlConnection::readFrame(QByteArray& payload, const Deadline& deadline) {
    char bytes[4];
    if (!fill(bytes, sizeof bytes, deadline)) return false;
    const auto count = qFromBigEndian<qint32>(bytes);
    if (count < 0 || count > CADImport::longestFrameBytes) return false;
    payload.clear();
    while (payload.size() < count) {
        const auto got = payload.size();
        payload.resize(static_cast<int>(std::min<qint64>(count, got + CADImport::frameStepBytes)));
        if (!fill(payload.data() + got, payload.size() - got, deadline)) return false;
    }
    return true;
}

std::unique_ptr<CADImport::Message> ControlConnection::receive(double limitSeconds) {
    const Deadline deadline(limitSeconds);
    QByteArray payload;
    while (readFrame(payload, deadline)) {
        if (auto message = CADImport::messageInFrame(payload)) return message;
    }
    return nullptr;
}

} // namespace server
