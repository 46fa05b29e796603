// SPDX-License-Identifier: Apache-2.0
/// @file
/// Stream sockets over IPv4, in the vocabulary of the target system's socket library, version 1.1.
///
/// A handle is a positive number; 0 is none, and a negative one says that no socket could be made.
/// Calls block unless they take a limit. They return 0, a count or a handle. A negative result is a
/// failure, and lastSocketError() has the system's number for it. A call on the handle 0 fails.
///
/// On every system a write to a closed connection is an ordinary failure, a signal doesn't
/// interrupt a call, and child processes don't inherit handles.
///
/// Limits are in seconds, with a fraction; 0 is none. Nothing here throws anything but
/// std::bad_alloc. Several threads may use one socket, as the system allows.
#pragma once

#include <atomic>
#include <cstdint>
#include <optional>

namespace platform {

/// A socket handle; the caller closes it with closeSocket().
using Socket = std::int32_t;

/// An address and a port in the byte order of the machine: 127.0.0.1 is 0x7F000001.
struct SocketAddress {
    std::uint32_t host = 0; ///< 0: any address of this machine
    std::uint16_t port = 0; ///< 0, when bound: any free port
};

/// 127.0.0.1.
inline constexpr std::uint32_t loopbackHost = 0x7F000001;

/// Asks the system for its socket library, version 1.1. False, with nothing held, when there is
/// none or another version is granted. Each success must be paired with one cleanupSockets().
[[nodiscard]] bool startSockets();
/// Undoes one successful startSockets().
void cleanupSockets();

/// The first address that the system knows for a name, or for the name behind an address. Nothing
/// when it knows none. The look-up may block for as long as the system likes.
/// @{
std::optional<std::uint32_t> findHostByName(const char* name);
std::optional<std::uint32_t> findHostByAddress(std::uint32_t host);
/// @}

/// A new stream socket, not connected.
Socket createSocket();
/// Closes the handle. With a linger time of 0 seconds the connection is reset.
std::int32_t closeSocket(Socket socket);
/// `how`: 0 ends input, 1 ends output, 2 both. A call that waits for input on another thread
/// returns.
std::int32_t shutdownSocket(Socket socket, std::int32_t how);

/// How long closeSocket() waits for unsent data. When off, it returns at once and the system still
/// delivers what was sent.
std::int32_t setLinger(Socket socket, bool on, std::uint16_t seconds);
/// Allows binding to an address that a closed connection still occupies.
std::int32_t setReuseAddress(Socket socket);
/// Sends small pieces at once instead of gathering them.
std::int32_t setNoDelay(Socket socket);
/// Makes sendBytes() give up when it makes no progress for this time; it then fails, or returns the
/// count sent so far.
std::int32_t setSendLimit(Socket socket, double seconds);

/// Gives the socket a local address.
std::int32_t bindSocket(Socket socket, const SocketAddress& address);
/// Starts accepting connections; up to `backlog` of them wait for acceptFrom().
std::int32_t listenOn(Socket socket, std::int32_t backlog);
/// Waits for a connection and returns a new socket for it, which the caller closes.
Socket acceptFrom(Socket listener, SocketAddress& peer);
/// The local address of the socket; nothing when it has none.
std::optional<SocketAddress> ownAddress(Socket socket);

/// Connects. The attempt fails as timed out after the limit, or soon after `stop` has become true.
std::int32_t connectTo(Socket socket, const SocketAddress& address, double limitSeconds = 0,
                       const std::atomic<bool>* stop = nullptr);

/// 1 when there is input, a connection to accept, or an end of connection; 0 when the limit passed.
std::int32_t waitForInput(Socket socket, double limitSeconds);

/// One send call of the system, which may send fewer bytes than asked for. `flags` are the
/// system's.
std::int32_t sendBytes(Socket socket, const void* bytes, std::int32_t length, std::int32_t flags);
/// One receive call of the system, which may return fewer bytes than asked for: 0 when the peer has
/// closed the connection.
std::int32_t receiveBytes(Socket socket, void* bytes, std::int32_t length, std::int32_t flags);

/// The system's number for the last failure of this header on this thread; socket_error::timedOut()
/// after a limit has passed. A successful call doesn't change it.
std::int32_t lastSocketError();

/// The system's numbers for the failures that callers set or look for.
namespace socket_error {
/// One of the system's error numbers.
/// @{
std::int32_t timedOut();
std::int32_t messageTooLong();
std::int32_t refused();
std::int32_t hostNotFound();
/// @}
} // namespace socket_error

} // namespace platform
