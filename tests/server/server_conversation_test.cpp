// SPDX-License-Identifier: Apache-2.0
// The server in a conversation with a client that the test plays.
#include "cadimport/controlframe.h"
#include "cadimport/controlmessages.h"
#include "tests/server/serverrun.h"
#include "tests/support/loopback.h"

#include <QElapsedTimer>

#include <memory>
#include <thread>

namespace server::testing {
namespace {

using namespace CADImport;
using Words = QList<QString>;

class ServerConversation : public ServerRun {
protected:
    QString path(const char* name) const { return folder_.path(name); }
    bool exists(const char* name) const { return folder_.has(name); }

    void startListening(const QString& file = bracket) {
        start(importing(file) << "-ControlSocket"
                              << "127.0.0.1" << QString::number(port_));
    }
    /// Starts the server and connects as soon as it listens.
    void meet(const QString& file = bracket) {
        startListening(file);
        QElapsedTimer timer;
        timer.start();
        while (timer.elapsed() < 30'000) {
            client_ = loopback::connectTo(port_);
            if (receive<OKMessage>()) return;
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
        }
        FAIL() << "it doesn't listen";
    }
    void send(const Message& message) { client_.send(controlFrame(message).toStdString()); }
    /// The next message, when it is of that class.
    template <class T> std::unique_ptr<T> receive() {
        QByteArray frame = QByteArray::fromStdString(client_.receive(4));
        if (frame.size() < 4) return nullptr;
        const auto length =
            static_cast<unsigned char>(frame[2]) * 256u + static_cast<unsigned char>(frame[3]);
        frame += QByteArray::fromStdString(client_.receive(length));
        QDataStream stream(frame);
        stream.setVersion(streamVersion);
        Message* message = nullptr;
        stream >> message;
        std::unique_ptr<Message> held(message);
        auto* wanted = dynamic_cast<T*>(message);
        if (wanted) held.release();
        return std::unique_ptr<T>(wanted);
    }
    const std::uint16_t port_ = loopback::freePort();
    loopback::Peer client_;
};

TEST_F(ServerConversation, ImportsWhenAskedAndNamesItsFiles) {
    meet();
    EXPECT_FALSE(exists("out.direct"));
    send(OKMessage());
    send(SetParameterMessage({"-igs", "maybe"}));
    send(SetParameterMessage({"-igs", "on"}));
    send(SendNextModelMessage());
    const auto named = receive<SetParameterMessage>();
    ASSERT_TRUE(named);
    EXPECT_EQ(named->parameters,
              (Words{"-ResultFile", path("out.direct"), "-ResultFile", path("out.igs")}));
    EXPECT_TRUE(exists("out.direct") && exists("out.igs"));
    EXPECT_TRUE(receive<FinishMessage>());
    send(FinishMessage());
    EXPECT_EQ(wait(), 0);
    EXPECT_TRUE(errors_.contains("ignored: -igs"));
}

TEST_F(ServerConversation, BreaksOffWhenTheImportFails) {
    meet(path("missing.step"));
    send(SendNextModelMessage());
    EXPECT_TRUE(receive<EscapeMessage>());
    client_.close();
    EXPECT_EQ(wait(), 3);
}

TEST_F(ServerConversation, ImportsNothingForAClientThatLeavesOrTalksNoise) {
    for (const char* word : {"", "\xff\xff\xff\xff", "\x7f\xff\xff\xff"}) {
        meet();
        client_.send(word);
        if (!*word) client_.close();
        EXPECT_EQ(wait(), 9);
        EXPECT_TRUE(errors_.contains("the client left without asking for a model"));
        EXPECT_FALSE(exists("out.direct"));
    }
}

TEST_F(ServerConversation, EndsThoughTheClientSaysNothingMore) {
    meet();
    send(SendNextModelMessage());
    EXPECT_EQ(wait(), 0);
    EXPECT_TRUE(exists("out.direct"));
}

TEST_F(ServerConversation, ImportsWithoutAClientAfterAWhile) {
    startListening();
    EXPECT_EQ(wait(), 0);
    EXPECT_TRUE(errors_.contains("nobody came to the control socket"));
    EXPECT_TRUE(exists("out.direct"));
}

} // namespace
} // namespace server::testing
