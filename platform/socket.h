// SPDX-License-Identifier: Apache-2.0
// Stream sockets over IPv4, in the vocabulary of the target system's socket library, version 1.1.
//
// A handle is a number above 0; 0 is none, and a negative one says that no socket could be made.
// Calls block unless they name a limit. They answer 0, a count or a handle; what is negative is a
// failure, and lastSocketError() has the system's number for it. 0 as a handle is a failure too.
//
// On every system a write to a peer that has closed is a failure like others, no call ends because
// a signal came, and handles are not passed on to child processes.
//
// A limit is in seconds with their fraction; 0 is none. No call throws but for want of memory.
#pragma once

#include <atomic>
#include <cstdint>
#include <optional>

namespace platform {

using Socket = std::int32_t;

/// Both as plain numbers: 127.0.0.1 is 0x7F000001.
struct SocketAddress {
    std::uint32_t host = 0; ///< 0: any of this machine's
    std::uint16_t port = 0; ///< 0, when bound: one that is free
};

inline constexpr std::uint32_t loopbackHost = 0x7F000001;

/// Asks the system for its socket library, version 1.1. False when it has none or grants another
/// version, and then nothing is held. Each success is paired with one cleanupSockets().
bool startSockets();
void cleanupSockets();

/// The first address that the system knows for a name, or for the name behind an address. Nothing
/// when it knows none.
std::optional<std::uint32_t> findHostByName(const char* name);
std::optional<std::uint32_t> findHostByAddress(std::uint32_t host);

Socket createSocket();
/// Closes the handle; a lingering of 0 seconds resets the connection.
std::int32_t closeSocket(Socket socket);
/// `how`: 0 no more input, 1 no more output, 2 neither. A call that waits for input on another
/// thread comes back.
std::int32_t shutdownSocket(Socket socket, std::int32_t how);

/// How long a close goes on sending. Off: it returns at once and what was sent still arrives.
std::int32_t setLinger(Socket socket, bool on, std::uint16_t seconds);
std::int32_t setReuseAddress(Socket socket);
std::int32_t setNoDelay(Socket socket);
/// From here on a send that makes no way for that long fails, or answers what went so far.
std::int32_t setSendLimit(Socket socket, double seconds);

std::int32_t bindSocket(Socket socket, const SocketAddress& address);
std::int32_t listenOn(Socket socket, std::int32_t backlog);
Socket acceptFrom(Socket listener, SocketAddress& peer);
/// The address that the socket itself has; nothing without one.
std::optional<SocketAddress> ownAddress(Socket socket);

/// With a limit, or a `stop` that becomes true on the way, the attempt is given up as timed out.
std::int32_t connectTo(Socket socket, const SocketAddress& address, double limitSeconds = 0,
                       const std::atomic<bool>* stop = nullptr);

/// 1 when there is input, a connection to accept, or the end of either; 0 when the limit passed.
std::int32_t waitForInput(Socket socket, double limitSeconds);

/// One call of the system's; both may do less than asked for. `flags` are the system's.
std::int32_t sendBytes(Socket socket, const void* bytes, std::int32_t length, std::int32_t flags);
/// 0 when the peer has closed.
std::int32_t receiveBytes(Socket socket, void* bytes, std::int32_t length, std::int32_t flags);

/// Why the last call of this header failed on this thread. After a limit has passed it is
/// socket_error::timedOut(). Successful calls leave it as it is.
std::int32_t lastSocketError();

/// The system's numbers for failures that callers make or look for.
namespace socket_error {
std::int32_t timedOut();
std::int32_t messageTooLong();
std::int32_t refused();
std::int32_t hostNotFound();
} // namespace socket_error

} // namespace platform
