// SPDX-License-Identifier: Apache-2.0
// Frames over the loopback address: the control thread, up to a directly connected receiver,
// against a plain loop of two blocking receives a frame.
//
// One round is one conversation: connect, greet, and take all frames until the server closes. The
// server writes them in large pieces and is the same for all. Isolated is what the client does for
// a frame; the payloads stay in the cache and nobody looks into them.
#include "benchmarks/support/race.h"
#include "client/clientcontrolthread.h"
#include "tests/support/loopback.h"

#include <cstdio>
#include <cstdlib>
#include <thread>

namespace {

constexpr std::size_t bytesPerPiece = 256 << 10;

struct Job {
    const char* name;
    std::size_t payloadBytes;
    int frames;
};

constexpr Job jobs[] = {{"frames of 12 bytes", 8, 200'000}, {"frames of 64 kB", 64 << 10, 4'000}};

/// Plays the server for one conversation.
void serve(const loopback::Listener& listener, const Job& job) {
    const std::string frame = loopback::frame(std::string(job.payloadBytes, 'x'));
    const int perPiece = std::max(1, static_cast<int>(bytesPerPiece / frame.size()));
    std::string piece;
    for (int i = 0; i < perPiece; ++i) piece += frame;
    loopback::Peer peer = listener.accept();
    peer.receive(12);
    int left = job.frames;
    for (; left >= perPiece; left -= perPiece) peer.send(piece);
    peer.send(piece.substr(0, frame.size() * static_cast<std::size_t>(left)));
}

bool fill(platform::Socket socket, char* bytes, std::int32_t length) {
    for (std::int32_t got = 0; got < length;) {
        const std::int32_t count = platform::receiveBytes(socket, bytes + got, length - got, 0);
        if (count <= 0) return false;
        got += count;
    }
    return true;
}

int plainLoop(std::uint16_t port) {
    const platform::Socket socket = platform::createSocket();
    platform::connectTo(socket, {platform::loopbackHost, port});
    platform::sendBytes(socket, "\0\0\0\x08\0\0\0\x04\0O\0K", 12, 0);
    std::string payload;
    int frames = 0;
    for (unsigned char count[4]; fill(socket, reinterpret_cast<char*>(count), 4); ++frames) {
        const std::uint32_t length =
            static_cast<std::uint32_t>(count[0]) << 24 | count[1] << 16 | count[2] << 8 | count[3];
        if (payload.size() < length) payload.resize(length);
        if (!fill(socket, payload.data(), static_cast<std::int32_t>(length))) break;
    }
    platform::closeSocket(socket);
    return frames;
}

int frameReader(std::uint16_t port) {
    TcpSocket socket(port);
    socket.useNumericAddress();
    socket.connectTo("127.0.0.1");
    socket.send("\0\0\0\x08\0\0\0\x04\0O\0K", 12);
    FrameReader reader(socket);
    int frames = 0;
    while (reader.read()) ++frames;
    return frames;
}

int controlThread(std::uint16_t port) {
    ClientControlThread thread;
    int frames = 0;
    QObject::connect(
        &thread, &ClientControlThread::newMessageArrivedSignal, &thread,
        [&](const QByteArray&) { ++frames; }, Qt::DirectConnection);
    thread.setServerAddress("127.0.0.1", port);
    thread.start();
    thread.wait();
    return frames;
}

void converse(benchmark::State& state, const Job& job, int (*client)(std::uint16_t)) {
    const loopback::Listener listener;
    for (auto _ : state) {
        std::thread server([&] { serve(listener, job); });
        const int frames = client(listener.port());
        server.join();
        if (frames == job.frames) continue;
        std::fprintf(stderr, "%d frames came instead of %d\n", frames, job.frames);
        std::exit(1);
    }
}

} // namespace

int main(int argc, char** argv) {
    for (const Job& job : jobs) {
        const std::pair<const char*, int (*)(std::uint16_t)> peers[] = {
            {"plain loop", plainLoop},
            {"FrameReader", frameReader},
            {"ClientControlThread", controlThread}};
        for (const auto& [peer, client] : peers) {
            race::add(job.name, peer,
                      [&job, run = client](benchmark::State& state) { converse(state, job, run); });
        }
    }
    return race::run(argc, argv);
}
