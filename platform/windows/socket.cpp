// SPDX-License-Identifier: Apache-2.0
// Sockets by the calls of Winsock 1.1.
#include "platform/socket.h"

#include <algorithm>
#include <cmath>
#include <winsock2.h>

#include <windows.h>

namespace platform {
namespace {

constexpr WORD wantedVersion = MAKEWORD(1, 1);
constexpr double longestSeconds = 1e9;

/// Handles fit 32 bits, signed, by the system's own promise; INVALID_SOCKET becomes -1.
SOCKET systemHandle(Socket socket) {
    return socket > 0 ? static_cast<SOCKET>(socket) : INVALID_SOCKET;
}

/// Child processes would inherit it otherwise.
Socket ownHandle(SOCKET socket) {
    if (socket == INVALID_SOCKET) return -1;
    ::SetHandleInformation(reinterpret_cast<HANDLE>(socket), HANDLE_FLAG_INHERIT, 0);
    return static_cast<Socket>(socket);
}

sockaddr_in systemAddress(const SocketAddress& address) {
    sockaddr_in result{};
    result.sin_family = AF_INET;
    result.sin_port = ::htons(address.port);
    result.sin_addr.s_addr = ::htonl(address.host);
    return result;
}

SocketAddress ownForm(const sockaddr_in& address) {
    return {static_cast<std::uint32_t>(::ntohl(address.sin_addr.s_addr)),
            ::ntohs(address.sin_port)};
}

std::int32_t failed(int error) {
    ::WSASetLastError(error);
    return -1;
}

template <class T> std::int32_t setOption(Socket socket, int level, int option, const T& value) {
    return ::setsockopt(systemHandle(socket), level, option, reinterpret_cast<const char*>(&value),
                        sizeof value);
}

timeval timeOf(double seconds) {
    const double bounded = std::clamp(seconds, -1.0, longestSeconds);
    const double whole = std::floor(bounded);
    const double fraction = bounded - whole;
    return {static_cast<long>(whole), static_cast<long>(fraction * 1e6)};
}

fd_set setOf(SOCKET socket) {
    fd_set set{};
    set.fd_count = 1;
    set.fd_array[0] = socket;
    return set;
}

/// Whether a call failed since its socket was shut down, before or while it waited.
bool isCalledOff() {
    const int error = ::WSAGetLastError();
    return error == WSAESHUTDOWN || error == WSA_OPERATION_ABORTED || error == WSAEINTR;
}

std::int32_t timedOutUnless(int ready) {
    if (ready == 0) ::WSASetLastError(WSAETIMEDOUT);
    return ready;
}

/// In slices, so that `stop` is seen soon. A refusal is told as an exception of the handle.
std::int32_t waitUntilConnected(Socket socket, double limitSeconds, const std::atomic<bool>* stop) {
    constexpr double slice = 0.05;
    const ULONGLONG start = ::GetTickCount64();
    for (;;) {
        const double gone = static_cast<double>(::GetTickCount64() - start) / 1000;
        const double left = limitSeconds == 0 ? slice : std::min(slice, limitSeconds - gone);
        if (left <= 0 || (stop && *stop)) return failed(WSAETIMEDOUT);
        fd_set connected = setOf(systemHandle(socket));
        fd_set refused = connected;
        timeval time = timeOf(left);
        const int ready = ::select(0, nullptr, &connected, &refused, &time);
        if (ready != 0) return ready;
    }
}

std::int32_t attemptResult(Socket socket) {
    int error = 0;
    int length = sizeof error;
    if (::getsockopt(systemHandle(socket), SOL_SOCKET, SO_ERROR, reinterpret_cast<char*>(&error),
                     &length) != 0) {
        return -1;
    }
    return error == 0 ? 0 : failed(error);
}

std::int32_t startConnecting(Socket socket, const SocketAddress& address) {
    const sockaddr_in target = systemAddress(address);
    return ::connect(systemHandle(socket), reinterpret_cast<const sockaddr*>(&target),
                     sizeof target);
}

std::optional<std::uint32_t> firstAddress(const hostent* entry) {
    if (!entry || entry->h_addrtype != AF_INET || !entry->h_addr_list[0]) return {};
    in_addr address{};
    std::copy_n(entry->h_addr_list[0], sizeof address, reinterpret_cast<char*>(&address));
    return static_cast<std::uint32_t>(::ntohl(address.s_addr));
}

} // namespace

bool startSockets() {
    WSADATA granted{};
    if (::WSAStartup(wantedVersion, &granted) != 0) return false;
    if (granted.wVersion == wantedVersion) return true;
    ::WSACleanup();
    return false;
}

void cleanupSockets() { ::WSACleanup(); }

std::optional<std::uint32_t> findHostByName(const char* name) {
    return firstAddress(::gethostbyname(name));
}

std::optional<std::uint32_t> findHostByAddress(std::uint32_t host) {
    const std::uint32_t address = ::htonl(host);
    return firstAddress(
        ::gethostbyaddr(reinterpret_cast<const char*>(&address), sizeof address, AF_INET));
}

Socket createSocket() { return ownHandle(::socket(AF_INET, SOCK_STREAM, 0)); }

std::int32_t closeSocket(Socket socket) { return ::closesocket(systemHandle(socket)); }

/// The system leaves calls alone that wait already, so they are called off.
std::int32_t shutdownSocket(Socket socket, std::int32_t how) {
    const std::int32_t result = ::shutdown(systemHandle(socket), how);
    const int error = ::WSAGetLastError();
    if (how != SD_SEND) {
        ::CancelIoEx(reinterpret_cast<HANDLE>(systemHandle(socket)), nullptr);
    }
    ::WSASetLastError(error);
    return result;
}

std::int32_t setLinger(Socket socket, bool on, std::uint16_t seconds) {
    return setOption(socket, SOL_SOCKET, SO_LINGER,
                     linger{static_cast<u_short>(on ? 1 : 0), seconds});
}

std::int32_t setReuseAddress(Socket socket) {
    return setOption(socket, SOL_SOCKET, SO_REUSEADDR, BOOL{TRUE});
}

std::int32_t setNoDelay(Socket socket) {
    return setOption(socket, IPPROTO_TCP, TCP_NODELAY, BOOL{TRUE});
}

std::int32_t setSendLimit(Socket socket, double seconds) {
    const double milliseconds = std::min(seconds, longestSeconds / 1000) * 1000;
    return setOption(socket, SOL_SOCKET, SO_SNDTIMEO, static_cast<DWORD>(milliseconds));
}

std::int32_t bindSocket(Socket socket, const SocketAddress& address) {
    const sockaddr_in own = systemAddress(address);
    return ::bind(systemHandle(socket), reinterpret_cast<const sockaddr*>(&own), sizeof own);
}

std::int32_t listenOn(Socket socket, std::int32_t backlog) {
    return ::listen(systemHandle(socket), backlog);
}

Socket acceptFrom(Socket listener, SocketAddress& peer) {
    sockaddr_in from{};
    int length = sizeof from;
    const SOCKET accepted =
        ::accept(systemHandle(listener), reinterpret_cast<sockaddr*>(&from), &length);
    if (accepted != INVALID_SOCKET) peer = ownForm(from);
    return ownHandle(accepted);
}

std::optional<SocketAddress> ownAddress(Socket socket) {
    sockaddr_in own{};
    int length = sizeof own;
    if (::getsockname(systemHandle(socket), reinterpret_cast<sockaddr*>(&own), &length) != 0) {
        return {};
    }
    return ownForm(own);
}

std::int32_t connectTo(Socket socket, const SocketAddress& address, double limitSeconds,
                       const std::atomic<bool>* stop) {
    if (limitSeconds == 0 && !stop) return startConnecting(socket, address);
    u_long nonBlocking = 1;
    ::ioctlsocket(systemHandle(socket), static_cast<long>(FIONBIO), &nonBlocking);
    std::int32_t result = startConnecting(socket, address);
    if (result != 0 && ::WSAGetLastError() == WSAEWOULDBLOCK) {
        result = waitUntilConnected(socket, limitSeconds, stop);
        if (result > 0) result = attemptResult(socket);
    }
    const int error = ::WSAGetLastError();
    nonBlocking = 0;
    ::ioctlsocket(systemHandle(socket), static_cast<long>(FIONBIO), &nonBlocking);
    ::WSASetLastError(error);
    return result;
}

std::int32_t waitForInput(Socket socket, double limitSeconds) {
    if (limitSeconds < 0) return failed(WSAEINVAL);
    fd_set wanted = setOf(systemHandle(socket));
    timeval time = timeOf(limitSeconds);
    const int ready = ::select(0, &wanted, nullptr, nullptr, limitSeconds == 0 ? nullptr : &time);
    return ready < 0 && isCalledOff() ? 1 : timedOutUnless(ready);
}

std::int32_t sendBytes(Socket socket, const void* bytes, std::int32_t length, std::int32_t flags) {
    return ::send(systemHandle(socket), static_cast<const char*>(bytes), length, flags);
}

std::int32_t receiveBytes(Socket socket, void* bytes, std::int32_t length, std::int32_t flags) {
    const int count = ::recv(systemHandle(socket), static_cast<char*>(bytes), length, flags);
    return count < 0 && isCalledOff() ? 0 : count;
}

std::int32_t lastSocketError() { return ::WSAGetLastError(); }

namespace socket_error {
std::int32_t timedOut() { return WSAETIMEDOUT; }
std::int32_t messageTooLong() { return WSAEMSGSIZE; }
std::int32_t refused() { return WSAECONNREFUSED; }
std::int32_t hostNotFound() { return WSAHOST_NOT_FOUND; }
} // namespace socket_error

} // namespace platform
