// SPDX-License-Identifier: Apache-2.0
// Sockets by the system's own calls, which share their names and most of their habits.
#include "platform/socket.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <csignal>
#include <ctime>
#include <fcntl.h>
#include <netdb.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <unistd.h>
#include <vector>

namespace platform {
namespace {

sockaddr_in systemAddress(const SocketAddress& address) {
    sockaddr_in result{};
    result.sin_family = AF_INET;
    result.sin_port = htons(address.port);
    result.sin_addr.s_addr = htonl(address.host);
    return result;
}

SocketAddress ownForm(const sockaddr_in& address) {
    return {ntohl(address.sin_addr.s_addr), ntohs(address.sin_port)};
}

std::int32_t failed(int error) {
    errno = error;
    return -1;
}

/// Number 0 is a good descriptor to the system and none here; a negative one stays what it is.
Socket usable(int descriptor) {
    if (descriptor != 0) return descriptor;
    const int moved = ::fcntl(0, F_DUPFD_CLOEXEC, 1);
    ::close(0);
    return moved;
}

template <class Call> auto uninterrupted(Call call) {
    auto result = call();
    while (result < 0 && errno == EINTR) result = call();
    return result;
}

template <class T> std::int32_t setOption(Socket socket, int level, int option, const T& value) {
    if (socket <= 0) return failed(ENOTSOCK);
    return ::setsockopt(socket, level, option, &value, sizeof value);
}

constexpr double longestSeconds = 1e9;

timespec timeOf(double seconds) {
    const double bounded = std::clamp(seconds, -1.0, longestSeconds);
    const double whole = std::floor(bounded);
    const double fraction = bounded - whole;
    return {static_cast<time_t>(whole), static_cast<long>(fraction * 1e9)};
}

double now() {
    timespec time{};
    ::clock_gettime(CLOCK_MONOTONIC, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

/// Waits for one of `events`, without a limit when `seconds` is 0. A limit below 0 is an error.
std::int32_t waitFor(Socket socket, short events, double seconds) {
    if (socket <= 0) return failed(ENOTSOCK);
    pollfd wanted{socket, events, 0};
    const double end = now() + seconds;
    double left = seconds;
    for (;;) {
        const timespec time = timeOf(left);
        const int result = ::ppoll(&wanted, 1, seconds == 0 ? nullptr : &time, nullptr);
        if (result < 0 && errno == EINTR) {
            left = std::max(end - now(), 0.0);
            continue;
        }
        if (result == 0) errno = ETIMEDOUT;
        if (result > 0 && (wanted.revents & POLLNVAL)) return failed(EBADF);
        return result;
    }
}

/// In slices, so that `stop` is seen soon.
std::int32_t waitUntilConnected(Socket socket, double limitSeconds, const std::atomic<bool>* stop) {
    constexpr double slice = 0.05;
    const double end = now() + limitSeconds;
    for (;;) {
        const double left = limitSeconds == 0 ? slice : std::min(slice, end - now());
        if (left <= 0 || (stop && *stop)) return failed(ETIMEDOUT);
        const std::int32_t result = waitFor(socket, POLLOUT, left);
        if (result != 0) return result;
    }
}

/// The outcome of an attempt that went on by itself.
std::int32_t attemptResult(Socket socket) {
    int error = 0;
    socklen_t length = sizeof error;
    if (::getsockopt(socket, SOL_SOCKET, SO_ERROR, &error, &length) != 0) return -1;
    return error == 0 ? 0 : failed(error);
}

std::int32_t startConnecting(Socket socket, const SocketAddress& address) {
    const sockaddr_in target = systemAddress(address);
    return ::connect(socket, reinterpret_cast<const sockaddr*>(&target), sizeof target);
}

/// A blocking attempt that a signal breaks into goes on in the background.
std::int32_t connectBlocking(Socket socket, const SocketAddress& address) {
    if (startConnecting(socket, address) == 0) return 0;
    if (errno != EINTR) return -1;
    return waitFor(socket, POLLOUT, 0) < 0 ? -1 : attemptResult(socket);
}

/// Calls one of the reentrant look-ups, with room that grows until it suffices.
template <class LookUp> std::optional<std::uint32_t> find(LookUp lookUp) {
    std::vector<char> room(1024);
    hostent entry{};
    hostent* found = nullptr;
    int reason = 0;
    while (lookUp(&entry, room.data(), room.size(), &found, &reason) == ERANGE) {
        room.resize(room.size() * 2);
    }
    if (!found || found->h_addrtype != AF_INET || !found->h_addr_list[0]) {
        errno = ENOENT;
        return {};
    }
    in_addr address{};
    std::copy_n(found->h_addr_list[0], sizeof address, reinterpret_cast<char*>(&address));
    return ntohl(address.s_addr);
}

} // namespace

bool startSockets() { return true; }

void cleanupSockets() {}

std::optional<std::uint32_t> findHostByName(const char* name) {
    return find([name](hostent* entry, char* room, std::size_t size, hostent** found, int* reason) {
        return ::gethostbyname2_r(name, AF_INET, entry, room, size, found, reason);
    });
}

std::optional<std::uint32_t> findHostByAddress(std::uint32_t host) {
    const in_addr address{htonl(host)};
    return find([&](hostent* entry, char* room, std::size_t size, hostent** found, int* reason) {
        return ::gethostbyaddr_r(&address, sizeof address, AF_INET, entry, room, size, found,
                                 reason);
    });
}

Socket createSocket() { return usable(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)); }

std::int32_t closeSocket(Socket socket) { return socket <= 0 ? failed(ENOTSOCK) : ::close(socket); }

std::int32_t shutdownSocket(Socket socket, std::int32_t how) {
    return socket <= 0 ? failed(ENOTSOCK) : ::shutdown(socket, how);
}

std::int32_t setLinger(Socket socket, bool on, std::uint16_t seconds) {
    return setOption(socket, SOL_SOCKET, SO_LINGER, linger{on ? 1 : 0, seconds});
}

std::int32_t setReuseAddress(Socket socket) {
    return setOption(socket, SOL_SOCKET, SO_REUSEADDR, 1);
}

std::int32_t setNoDelay(Socket socket) { return setOption(socket, IPPROTO_TCP, TCP_NODELAY, 1); }

std::int32_t setSendLimit(Socket socket, double seconds) {
    const timespec time = timeOf(seconds);
    const timeval limit{time.tv_sec, time.tv_nsec / 1000};
    return setOption(socket, SOL_SOCKET, SO_SNDTIMEO, limit);
}

std::int32_t bindSocket(Socket socket, const SocketAddress& address) {
    if (socket <= 0) return failed(ENOTSOCK);
    const sockaddr_in own = systemAddress(address);
    return ::bind(socket, reinterpret_cast<const sockaddr*>(&own), sizeof own);
}

std::int32_t listenOn(Socket socket, std::int32_t backlog) {
    return socket <= 0 ? failed(ENOTSOCK) : ::listen(socket, backlog);
}

Socket acceptFrom(Socket listener, SocketAddress& peer) {
    if (listener <= 0) return failed(ENOTSOCK);
    sockaddr_in from{};
    socklen_t length = sizeof from;
    const int accepted = uninterrupted([&] {
        return ::accept4(listener, reinterpret_cast<sockaddr*>(&from), &length, SOCK_CLOEXEC);
    });
    if (accepted >= 0) peer = ownForm(from);
    return usable(accepted);
}

std::optional<SocketAddress> ownAddress(Socket socket) {
    sockaddr_in own{};
    socklen_t length = sizeof own;
    if (socket <= 0 || ::getsockname(socket, reinterpret_cast<sockaddr*>(&own), &length) != 0) {
        return {};
    }
    return ownForm(own);
}

std::int32_t connectTo(Socket socket, const SocketAddress& address, double limitSeconds,
                       const std::atomic<bool>* stop) {
    if (socket <= 0) return failed(ENOTSOCK);
    if (limitSeconds == 0 && !stop) return connectBlocking(socket, address);
    const int flags = ::fcntl(socket, F_GETFL);
    ::fcntl(socket, F_SETFL, flags | O_NONBLOCK);
    std::int32_t result = startConnecting(socket, address);
    if (result != 0 && (errno == EINPROGRESS || errno == EINTR)) {
        result = waitUntilConnected(socket, limitSeconds, stop);
        if (result > 0) result = attemptResult(socket);
    }
    const int error = errno;
    ::fcntl(socket, F_SETFL, flags);
    errno = error;
    return result;
}

std::int32_t waitForInput(Socket socket, double limitSeconds) {
    return waitFor(socket, POLLIN, limitSeconds);
}

std::int32_t sendBytes(Socket socket, const void* bytes, std::int32_t length, std::int32_t flags) {
    if (socket <= 0) return failed(ENOTSOCK);
    if (length < 0) return failed(EINVAL);
    return static_cast<std::int32_t>(uninterrupted([&] {
        return ::send(socket, bytes, static_cast<std::size_t>(length), flags | MSG_NOSIGNAL);
    }));
}

std::int32_t receiveBytes(Socket socket, void* bytes, std::int32_t length, std::int32_t flags) {
    if (socket <= 0) return failed(ENOTSOCK);
    if (length < 0) return failed(EINVAL);
    return static_cast<std::int32_t>(uninterrupted(
        [&] { return ::recv(socket, bytes, static_cast<std::size_t>(length), flags); }));
}

std::int32_t lastSocketError() { return errno; }

namespace socket_error {
std::int32_t timedOut() { return ETIMEDOUT; }
std::int32_t messageTooLong() { return EMSGSIZE; }
std::int32_t refused() { return ECONNREFUSED; }
std::int32_t hostNotFound() { return ENOENT; }
} // namespace socket_error

} // namespace platform
