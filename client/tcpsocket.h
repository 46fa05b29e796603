// SPDX-License-Identifier: Apache-2.0
// One IPv4 stream connection with blocking calls, for either side of it.
//
// Nothing here throws but std::bad_alloc. Port and host are set first; then either connectTo or
// listenAndAccept makes the connection, as often as wanted. Both let go of what the object held
// before, and of what they made when they fail.
//
// An object belongs to one thread, except that `send` and `receive` may run at the same time, on
// two threads, as may `interrupt` beside either of them.
#pragma once

#include "platform/socket.h"

#include <atomic>
#include <cstdint>
#include <optional>
#include <string>

class TcpSocket {
public:
    /// What connectTo and listenAndAccept answer. After a failure lastError() has the cause.
    enum Result : std::int32_t {
        success = 0,
        acceptFailed = -1,
        bindFailed = -2,
        noSocket = -3,
        hostNotFound = -4,
        connectFailed = -5,
        listenFailed = -6,
        timedOut = -7,  ///< the wait for readiness
        waitFailed = -8 ///< the same
    };

    /// What may cut connectTo short, which then fails as connectFailed. The defaults leave the
    /// attempt to the system, which may take minutes.
    struct ConnectLimits {
        double seconds = 0;                      ///< 0: no limit
        const std::atomic<bool>* stop = nullptr; ///< looked at some twenty times a second
    };

    /// Starts the socket library when no object before did; if that fails, the calls below fail
    /// with codes of their own. A port below 1 becomes 0.
    explicit TcpSocket(std::int32_t port = 0, const char* host = nullptr);
    TcpSocket(const TcpSocket&) = delete;
    TcpSocket& operator=(const TcpSocket&) = delete;
    /// Ends the connection in order, as `disconnect` does.
    ~TcpSocket();

    void setPort(std::int32_t port) { port_ = port < 1 ? 0 : port; }
    /// The host to connect to; null for none. The text is copied.
    void setHostName(const char* host);
    /// The host is a name. The initial choice.
    void useHostName() { numeric = false; }
    /// The host is four groups of at most 15 digits with "." between them, each cut to one byte.
    /// Anything else is not found. Beyond its form the system must know a host of that address.
    void useNumericAddress() { numeric = true; }

    std::int32_t port() const { return port_; }
    /// Of the connection; 0 without one.
    std::int32_t handle() const { return connection; }
    /// The system's number for the last failure; 0 when the last connectTo or listenAndAccept went
    /// well. `receive` leaves it alone.
    std::int32_t lastError() const { return lastError_; }

    /// Connects to `host`, or to the host set before. A close resets the connection.
    std::int32_t connectTo(const char* host = nullptr);
    std::int32_t connectTo(const char* host, const ConnectLimits& limits);

    /// Listens on the port, at all addresses, and accepts the first to come within the timeout, in
    /// seconds with their fraction; 0 is none. The listening goes on until the object lets go.
    std::int32_t listenAndAccept(double timeoutSeconds = 0);

    /// The count sent, which may be less than the length, or negative. A peer that has closed is a
    /// failure like others.
    std::int32_t send(const void* bytes, std::int32_t length, std::int32_t flags = 0);
    /// A peer that doesn't read holds a send up for that long at most.
    void setSendLimit(double seconds);

    /// Waits up to the timeout (0: without one) for something to come, and from then on without a
    /// limit until the length is reached or the peer closes. Answers the count, which is short only
    /// when the peer has closed; timedOut; or the negated number of the system's failure.
    std::int32_t receive(void* bytes, std::int32_t length, std::int32_t flags = 0,
                         double timeoutSeconds = 0);

    /// 1 without a connection, 0 on success, else negative.
    std::int32_t setNoDelay();

    /// Forgets connection and listener. A negative `how` closes both handles, which resets the
    /// connection; any other only shuts them down that way (0 input, 1 output, 2 both) and leaves
    /// them open to whoever asked handle() before.
    void close(std::int32_t how);
    /// Ends both directions, so that what was sent still arrives, and closes the handles.
    void disconnect();
    /// Ends both directions and keeps the handle: a `receive` that waits on another thread answers
    /// 0 or a failure.
    void interrupt();

    /// Process-wide. False when there is no library or only one of another version than 1.1.
    static bool startLibrary();
    static void cleanupLibrary();

private:
    std::int32_t fail(Result code);
    std::int32_t fail(Result code, std::int32_t error);
    std::optional<std::uint32_t> findHost();

    platform::Socket connection = 0;
    platform::Socket listener = 0;
    platform::SocketAddress address; ///< where to connect, or where to listen
    std::optional<std::string> hostName;
    std::int32_t port_;
    std::int32_t lastError_ = 0;
    bool numeric = false;
};
