// SPDX-License-Identifier: Apache-2.0
// The other end of a connection on this machine, plain and free of Qt.
#pragma once

#include "platform/socket.h"
#include "tests/support/wine.h"

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <utility>

namespace loopback {

/// Before any socket is made, for as long as the process lives.
inline const bool isReady = platform::startSockets();

inline double secondsSince(std::chrono::steady_clock::time_point start) {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// How many entries a directory of facts about this process has; 0 where there is none.
inline std::ptrdiff_t countOf(const char* facts) {
    std::error_code problem;
    const std::filesystem::directory_iterator entries(facts, problem);
    return problem ? 0 : std::distance(begin(entries), end(entries));
}
/// Wine keeps most of them in another process, and some that it likes in this one.
inline std::ptrdiff_t openDescriptors() {
    return testsupport::runsByWine() ? 0 : countOf("/proc/self/fd");
}
inline std::ptrdiff_t runningThreads() { return countOf("/proc/self/task"); }

/// One accepted connection. A read waits 20 seconds at most.
class Peer {
public:
    Peer() = default;
    explicit Peer(platform::Socket accepted) : socket(accepted) {}
    Peer(Peer&& other) noexcept : socket(std::exchange(other.socket, 0)) {}
    Peer& operator=(Peer&& other) noexcept {
        std::swap(socket, other.socket);
        return *this;
    }
    ~Peer() { close(); }

    bool isThere() const { return socket > 0; }

    bool send(const std::string& bytes) const {
        std::size_t sent = 0;
        while (sent < bytes.size()) {
            const auto count = platform::sendBytes(
                socket, bytes.data() + sent, static_cast<std::int32_t>(bytes.size() - sent), 0);
            if (count <= 0) return false;
            sent += static_cast<std::size_t>(count);
        }
        return true;
    }
    /// `length` bytes; fewer when the other side has closed or nothing comes.
    std::string receive(std::size_t length) {
        std::string bytes(length, '\0');
        std::size_t got = 0;
        while (got < length && platform::waitForInput(socket, 20) > 0) {
            lastCount = platform::receiveBytes(socket, bytes.data() + got,
                                               static_cast<std::int32_t>(length - got), 0);
            if (lastCount <= 0) break;
            got += static_cast<std::size_t>(lastCount);
        }
        bytes.resize(got);
        return bytes;
    }
    /// Whether the other side ended in order, behind whatever it had sent.
    bool seesOrderlyEnd() {
        while (!receive(4096).empty()) {
        }
        return lastCount == 0;
    }
    /// In order: what was sent arrives.
    void close() {
        if (socket > 0) platform::closeSocket(socket);
        socket = 0;
    }
    void reset() {
        platform::setLinger(socket, true, 0);
        close();
    }

private:
    platform::Socket socket = 0;
    std::int32_t lastCount = -1;
};

/// Listens at 127.0.0.1, on a port that was free.
class Listener {
public:
    explicit Listener(std::int32_t backlog = 5, std::uint16_t wanted = 0)
        : socket(platform::createSocket()) {
        platform::setReuseAddress(socket);
        platform::bindSocket(socket, {platform::loopbackHost, wanted});
        platform::listenOn(socket, backlog);
        port_ = platform::ownAddress(socket).value_or(platform::SocketAddress()).port;
    }
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;
    ~Listener() { platform::closeSocket(socket); }

    std::uint16_t port() const { return port_; }
    /// Waits 20 seconds at most.
    Peer accept() const {
        platform::SocketAddress from;
        if (platform::waitForInput(socket, 20) <= 0) return {};
        return Peer(platform::acceptFrom(socket, from));
    }

private:
    platform::Socket socket;
    std::uint16_t port_ = 0;
};

/// One at which nobody listens.
inline std::uint16_t freePort() { return Listener().port(); }

inline Peer connectTo(std::uint16_t port, double seconds = 20) {
    const platform::Socket socket = platform::createSocket();
    platform::connectTo(socket, {platform::loopbackHost, port}, seconds);
    return Peer(socket);
}

/// A listener whose queue is full, so that a further attempt to connect hangs.
class DeafListener {
public:
    DeafListener() {
        for (Peer& waiting : crowd) waiting = connectTo(port(), 0.2);
    }
    std::uint16_t port() const { return listener.port(); }

private:
    Listener listener{0};
    Peer crowd[3];
};

/// A payload with its count in front.
inline std::string frame(const std::string& payload) {
    const auto count = static_cast<std::uint32_t>(payload.size());
    std::string bytes;
    for (int shift = 24; shift >= 0; shift -= 8) bytes += static_cast<char>(count >> shift & 0xff);
    return bytes + payload;
}

} // namespace loopback
