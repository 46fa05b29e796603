// SPDX-License-Identifier: Apache-2.0
// The server's side of a control connection: messages in frames, both ways.
#pragma once

#include "cadimport/message.h"
#include "platform/socket.h"

#include <QByteArray>

#include <memory>

namespace server {

/// Lets go of the connection at its end; what was sent still arrives.
class ControlConnection {
public:
    ControlConnection();
    ~ControlConnection();
    ControlConnection(const ControlConnection&) = delete;
    ControlConnection& operator=(const ControlConnection&) = delete;

    /// Listens at 127.0.0.1 and takes the first client. False when the port is taken, or none comes
    /// within the limit.
    bool accept(std::uint16_t port, double limitSeconds);

    /// A client that has gone, or doesn't read for a second, doesn't get it.
    void send(const CADImport::Message& message);

    /// The next message of a name that is known. Null when none comes within the limit, 0 being
    /// none, or none can come any more: the client has gone, or talks noise.
    std::unique_ptr<CADImport::Message> receive(double limitSeconds);

private:
    class Deadline;

    bool fill(char* bytes, qint64 length, const Deadline& deadline);
    bool readFrame(QByteArray& payload, const Deadline& deadline);

    bool started_;
    platform::Socket socket_ = 0;
};

} // namespace server
