// SPDX-License-Identifier: Apache-2.0
// Frames of a control connection: what a peer sends comes out of the client's reader as its bytes
// say and out of the server's as the messages in them, and each message goes there and back.
#include "cadimport/controlframe.h"
#include "client/framereader.h"
#include "fuzz/input.h"
#include "server/controlconnection.h"
#include "tests/support/loopback.h"

#include <thread>

namespace {

/// What the client's reader makes of bytes behind which the connection ends.
std::vector<QByteArray> readByClient(const std::string& bytes) {
    static const loopback::Listener listener;
    TcpSocket socket(listener.port());
    require(socket.connectTo("127.0.0.1") == TcpSocket::success, "no connection");
    loopback::Peer peer = listener.accept();
    require(peer.send(bytes), "not sent");
    peer.close();
    FrameReader reader(socket);
    std::vector<QByteArray> payloads;
    while (reader.read()) payloads.emplace_back(reader.data(), reader.size());
    require(reader.failure() <= 0, "no failure");
    return payloads;
}

/// And the server's.
std::vector<QByteArray> readByServer(const std::string& bytes) {
    static const std::uint16_t port = loopback::freePort();
    server::ControlConnection connection;
    std::thread sender([&] {
        for (bool isSent = false; !isSent;) isSent = loopback::connectTo(port).send(bytes);
    });
    require(connection.accept(port, 20), "not accepted");
    sender.join();
    std::vector<QByteArray> frames;
    while (const auto message = connection.receive(20)) frames.push_back(controlFrame(*message));
    return frames;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes = Input(data, std::min<std::size_t>(size, 4000)).rest();
    std::vector<QByteArray> frames;
    for (const QByteArray& payload : readByClient(bytes)) {
        const auto message = CADImport::messageInFrame(payload);
        if (!message) continue;
        frames.push_back(CADImport::controlFrame(*message));
        const auto again = CADImport::messageInFrame(frames.back().mid(4));
        require(again && CADImport::controlFrame(*again) == frames.back(), "comes back otherwise");
    }
    require(bytes.empty() || readByServer(bytes) == frames, "the server reads otherwise");
    return 0;
}
