// SPDX-License-Identifier: Apache-2.0
// The server in a conversation with a client that the test plays.
#include "cadimport/controlmessages.h"
#include "tests/support/loopback.h"

#include <QBuffer>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>
#include <thread>

namespace server::testing {
namespace {

using namespace CADImport;
using Words = QList<QString>;

class ServerConversation : public ::testing::Test {
protected:
    ~ServerConversation() override {
        process_.kill();
        process_.waitForFinished(10'000);
    }

    QString path(const char* name) const { return folder_.filePath(QLatin1String(name)); }
    bool exists(const char* name) const { return QFile::exists(path(name)); }

    void start(const QString& file = QStringLiteral(BRACKET_FILE)) {
        process_.start(QStringLiteral(SERVER_PROGRAM),
                       {"-InputFile", file, "-OutputBaseName", path("out"), "-ControlSocket",
                        "127.0.0.1", QString::number(port_)});
        ASSERT_TRUE(process_.waitForStarted(30'000));
    }
    /// Starts the server and connects as soon as it listens.
    void meet(const QString& file = QStringLiteral(BRACKET_FILE)) {
        start(file);
        QElapsedTimer timer;
        timer.start();
        while (timer.elapsed() < 30'000) {
            client_ = loopback::connectTo(port_);
            if (receive<OKMessage>()) return;
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
        }
        FAIL() << "it doesn't listen";
    }
    void send(const Message& message) {
        QByteArray frame;
        QDataStream stream(&frame, QIODevice::WriteOnly);
        stream.setVersion(streamVersion);
        stream << message;
        client_.send(frame.toStdString());
    }
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
    int wait() {
        EXPECT_TRUE(process_.waitForFinished(60'000));
        errors_ = QString::fromUtf8(process_.readAllStandardError());
        return process_.exitStatus() == QProcess::NormalExit ? process_.exitCode() : -1;
    }

    QTemporaryDir folder_;
    QProcess process_;
    const std::uint16_t port_ = loopback::freePort();
    loopback::Peer client_;
    QString errors_;
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
    start();
    EXPECT_EQ(wait(), 0);
    EXPECT_TRUE(errors_.contains("nobody came to the control socket"));
    EXPECT_TRUE(exists("out.direct"));
}

} // namespace
} // namespace server::testing
