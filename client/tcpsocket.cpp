// SPDX-License-Identifier: Apache-2.0
// The connection over the platform's sockets.
#include "client/tcpsocket.h"

#include <algorithm>
#include <mutex>

namespace {

constexpr std::int32_t backlog = 5;
constexpr std::int32_t bothDirections = 2;

std::mutex libraryLock;
bool libraryStarted = false;

void startLibraryOnce() {
    const std::lock_guard guard(libraryLock);
    if (!libraryStarted) libraryStarted = platform::startSockets();
}

/// A close resets the connection from here on, and a port just left may be taken again.
void setOptions(platform::Socket socket) {
    platform::setLinger(socket, true, 0);
    platform::setReuseAddress(socket);
}

/// What was sent still arrives: the lingering of 0 seconds, which would throw it away, is undone.
void endInOrder(platform::Socket& socket) {
    if (socket == 0) return;
    platform::shutdownSocket(socket, bothDirections);
    platform::setLinger(socket, false, 0);
    platform::closeSocket(socket);
    socket = 0;
}

void letGo(platform::Socket& socket, std::int32_t how) {
    if (socket == 0) return;
    how < 0 ? platform::closeSocket(socket) : platform::shutdownSocket(socket, how);
    socket = 0;
}

/// One group of digits at `text`, cut to a byte; `text` moves behind it.
std::optional<std::uint32_t> takeGroup(const char*& text) {
    constexpr int longestGroup = 15;
    std::uint64_t value = 0;
    int digits = 0;
    for (; *text >= '0' && *text <= '9'; ++text) {
        if (++digits > longestGroup) return {};
        value = value * 10 + static_cast<std::uint64_t>(*text - '0');
    }
    if (digits == 0) return {};
    return static_cast<std::uint32_t>(value & 0xff);
}

std::optional<std::uint32_t> parseNumericAddress(const char* text) {
    constexpr int groups = 4;
    std::uint32_t host = 0;
    for (int i = 0; i < groups; ++i) {
        if (i > 0 && *text++ != '.') return {};
        const auto group = takeGroup(text);
        if (!group) return {};
        host = host << 8 | *group;
    }
    return *text == '\0' ? std::optional(host) : std::nullopt;
}

} // namespace

TcpSocket::TcpSocket(std::int32_t port, const char* host) : port_(std::max(port, 0)) {
    startLibraryOnce();
    setHostName(host);
}

TcpSocket::~TcpSocket() { disconnect(); }

void TcpSocket::setHostName(const char* host) {
    hostName = host ? std::optional<std::string>(host) : std::nullopt;
}

std::int32_t TcpSocket::fail(Result code) { return fail(code, platform::lastSocketError()); }

std::int32_t TcpSocket::fail(Result code, std::int32_t error) {
    disconnect();
    lastError_ = error;
    return code;
}

/// Where there is nothing to look up, the system isn't asked and has no error of its own.
std::optional<std::uint32_t> TcpSocket::findHost() {
    lastError_ = platform::socket_error::hostNotFound();
    if (!hostName) return {};
    const auto number = parseNumericAddress(hostName->c_str());
    if (numeric && !number) return {};
    const auto found = numeric ? platform::findHostByAddress(*number)
                               : platform::findHostByName(hostName->c_str());
    lastError_ = found ? 0 : platform::lastSocketError();
    return found;
}

std::int32_t TcpSocket::connectTo(const char* host) { return connectTo(host, {}); }

std::int32_t TcpSocket::connectTo(const char* host, const ConnectLimits& limits) {
    disconnect();
    if (host) setHostName(host);
    const auto found = findHost();
    if (!found) return fail(hostNotFound, lastError_);
    address = {*found, static_cast<std::uint16_t>(port_)};
    const platform::Socket made = platform::createSocket();
    if (made < 0) return fail(noSocket);
    connection = made;
    setOptions(connection);
    if (platform::connectTo(connection, address, limits.seconds, limits.stop) < 0) {
        return fail(connectFailed);
    }
    platform::setLinger(connection, true, 0);
    return success;
}

std::int32_t TcpSocket::listenAndAccept(double timeoutSeconds) {
    disconnect();
    lastError_ = 0;
    address = {0, static_cast<std::uint16_t>(port_)};
    const platform::Socket made = platform::createSocket();
    if (made < 0) return fail(noSocket);
    listener = made;
    setOptions(listener);
    if (platform::bindSocket(listener, address) < 0) return fail(bindFailed);
    if (platform::listenOn(listener, backlog) < 0) return fail(listenFailed);
    const std::int32_t ready = platform::waitForInput(listener, timeoutSeconds);
    if (ready <= 0) return fail(ready == 0 ? timedOut : waitFailed);
    platform::SocketAddress peer;
    const platform::Socket accepted = platform::acceptFrom(listener, peer);
    if (accepted < 0) return fail(acceptFailed);
    connection = accepted;
    platform::setLinger(connection, true, 0);
    return success;
}

std::int32_t TcpSocket::send(const void* bytes, std::int32_t length, std::int32_t flags) {
    const std::int32_t sent = platform::sendBytes(connection, bytes, length, flags);
    if (sent < 0) lastError_ = platform::lastSocketError();
    return sent;
}

void TcpSocket::setSendLimit(double seconds) { platform::setSendLimit(connection, seconds); }

std::int32_t TcpSocket::receive(void* bytes, std::int32_t length, std::int32_t flags,
                                double timeoutSeconds) {
    // Without a timeout the first receiving call does the waiting as well, unless flags forbid it.
    if (timeoutSeconds != 0 || length <= 0 || flags != 0) {
        const std::int32_t ready = platform::waitForInput(connection, timeoutSeconds);
        if (ready < 0) return -platform::lastSocketError();
        if (ready == 0) return timedOut;
    }
    std::int32_t received = 0;
    while (received < length) {
        const std::int32_t count = platform::receiveBytes(
            connection, static_cast<char*>(bytes) + received, length - received, flags);
        if (count < 0) return -platform::lastSocketError();
        if (count == 0) break;
        received += count;
    }
    return received;
}

std::int32_t TcpSocket::setNoDelay() {
    return connection == 0 ? 1 : platform::setNoDelay(connection);
}

void TcpSocket::close(std::int32_t how) {
    letGo(connection, how);
    letGo(listener, how);
}

void TcpSocket::disconnect() {
    endInOrder(connection);
    endInOrder(listener);
}

void TcpSocket::interrupt() { platform::shutdownSocket(connection, bothDirections); }

bool TcpSocket::startLibrary() {
    const std::lock_guard guard(libraryLock);
    libraryStarted = platform::startSockets();
    return libraryStarted;
}

void TcpSocket::cleanupLibrary() {
    const std::lock_guard guard(libraryLock);
    platform::cleanupSockets();
    libraryStarted = false;
}
