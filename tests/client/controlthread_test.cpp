// SPDX-License-Identifier: Apache-2.0
// The control thread against a server that the test plays, over a real connection.
#include "client/clientcontrolthread.h"

#include "cadimport/controlframe.h"
#include "cadimport/controlmessages.h"
#include "tests/support/loopback.h"
#include "tests/support/wine.h"

#include <QElapsedTimer>

#include <gtest/gtest.h>

#include <memory>
#include <mutex>
#include <thread>

using namespace loopback;

namespace {

const std::string okFrame("\0\0\0\x08\0\0\0\x04\0O\0K", 12);

/// Keeps what a thread says. Direct, as the client connects.
class Ear {
public:
    explicit Ear(ClientControlThread& thread) {
        QObject::connect(
            &thread, &ClientControlThread::newMessageArrivedSignal, &thread,
            [this](const QByteArray& payload) {
                const std::lock_guard guard(lock);
                payloads.push_back(payload.toStdString());
            },
            Qt::DirectConnection);
        QObject::connect(
            &thread, &ClientControlThread::criticalSignal, &thread,
            [this](const QString& text) {
                const std::lock_guard guard(lock);
                errors.push_back(text.toStdString());
            },
            Qt::DirectConnection);
    }
    std::vector<std::string> payloads, errors;

private:
    std::mutex lock;
};

class ControlThreadTest : public testing::Test {
protected:
    ControlThreadTest() { thread->setServerAddress("127.0.0.1", listener.port()); }

    /// Another thread, to which nobody listens.
    void renew(std::uint16_t port) {
        thread = std::make_unique<ClientControlThread>();
        thread->setServerAddress("127.0.0.1", port);
    }
    /// Starts the thread and plays the server up to its greeting.
    void meet() {
        thread->start();
        peer = listener.accept();
        EXPECT_EQ(peer.receive(12), okFrame);
    }
    /// Meets the thread, sends the bytes, closes, and waits for the thread's end.
    void serve(const std::string& bytes) {
        meet();
        peer.send(bytes);
        peer.close();
        ASSERT_TRUE(thread->wait(10'000));
    }
    void endSoon() {
        QElapsedTimer timer;
        timer.start();
        thread.reset();
        EXPECT_LT(timer.elapsed(), 1000);
    }
    std::string error(std::int32_t number) const {
        return "Control socket error: " + std::to_string(number);
    }

    Listener listener;
    std::unique_ptr<ClientControlThread> thread = std::make_unique<ClientControlThread>();
    Ear ear{*thread};
    Peer peer;
};

using Texts = std::vector<std::string>;

} // namespace

TEST_F(ControlThreadTest, GreetsFirstAndHandsFramesOnWithoutTheirCount) {
    EXPECT_FALSE(thread->isConnected());
    serve(frame("one") + frame("") + frame("two"));
    EXPECT_EQ(ear.payloads, (Texts{"one", "", "two"}));
    EXPECT_EQ(ear.errors, Texts{error(0)}) << "the end of the connection";
    EXPECT_TRUE(thread->isConnected()) << "it tells of the attempt";
    EXPECT_STREQ(thread->metaObject()->className(), "ClientControlThread");
    serve("\xff\xff\xff\xfe");
    EXPECT_EQ(ear.errors.back(), error(-platform::socket_error::messageTooLong())) << "noise";
}

TEST_F(ControlThreadTest, EndsWithoutAWordWhenItCanNotConnect) {
    const std::pair<const char*, std::uint16_t> cases[] = {
        {"127.0.0.1", freePort()}, {"localhost", listener.port()}, {"", listener.port()}};
    for (const auto& [host, port] : cases) {
        thread->setServerAddress(host, port);
        EXPECT_FALSE(thread->hasAttempted());
        thread->start();
        ASSERT_TRUE(thread->wait(10'000));
        EXPECT_TRUE(thread->hasAttempted());
        EXPECT_FALSE(thread->isConnected());
    }
    EXPECT_TRUE(ear.errors.empty());
}

TEST_F(ControlThreadTest, BoundsTheAttemptByTheWaitTime) {
    const DeafListener deaf;
    thread->setServerAddress("127.0.0.1", deaf.port());
    thread->setWaitTime(300);
    QElapsedTimer timer;
    timer.start();
    thread->start();
    ASSERT_TRUE(thread->wait(10'000));
    EXPECT_GE(timer.elapsed(), 300);
    EXPECT_LT(timer.elapsed(), 1300);
    EXPECT_FALSE(thread->isConnected());
}

TEST_F(ControlThreadTest, SendsWholeFramesWhileConnectedOnly) {
    thread->sendMessage("lost");
    meet();
    const QByteArray first = CADImport::controlFrame(CADImport::SendNextModelMessage());
    const QByteArray second = CADImport::controlFrame(CADImport::SetParameterMessage({"a", "b"}));
    thread->sendMessage(first);
    thread->sendMessage(second);
    const QByteArray both = first + second;
    EXPECT_EQ(peer.receive(static_cast<std::size_t>(both.size())), both.toStdString());
    peer.close();
    ASSERT_TRUE(thread->wait(10'000));
    thread->sendMessage("into the void");
}

TEST_F(ControlThreadTest, IsNotHeldUpByAServerThatDoesNotRead) {
    meet();
    QElapsedTimer timer;
    timer.start();
    thread->sendMessage(QByteArray(64 << 20, 'x'));
    EXPECT_LT(timer.elapsed(), 5000);
    endSoon();
}

TEST_F(ControlThreadTest, ComesOutOfWhateverItWaitsForWhenDestroyed) {
    meet();
    endSoon();
    EXPECT_TRUE(peer.seesOrderlyEnd());
    EXPECT_TRUE(ear.errors.empty());

    renew(listener.port());
    meet();
    peer.send(frame("half").substr(0, 6));
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    endSoon();

    const DeafListener deaf;
    renew(deaf.port());
    thread->start();
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    endSoon();
}

TEST_F(ControlThreadTest, EndsAtAnyMomentOfItsStart) {
    const Listener patient(300);
    for (int i = 0; i < 200; ++i) {
        renew(patient.port());
        thread->start();
        std::this_thread::sleep_for(std::chrono::microseconds(i * 5));
        endSoon();
    }
}

TEST_F(ControlThreadTest, LeavesNoThreadAndNoDescriptorAfterAThousandConversations) {
    serve({}); // with which Qt opens what it keeps
    const auto descriptors = openDescriptors();
    const auto threads = runningThreads();
    const int conversations = testsupport::rounds(1000);
    for (int i = 0; i < conversations; ++i) {
        meet();
        if (i % 2) peer.send(frame("word"));
        peer.close();
        ASSERT_TRUE(thread->wait(10'000));
    }
    EXPECT_EQ(openDescriptors(), descriptors);
    // The system takes a moment to clear a thread away that has ended.
    for (int i = 0; i < 2000 && runningThreads() > threads; ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    EXPECT_LE(runningThreads(), threads);
    EXPECT_EQ(ear.payloads.size(), static_cast<std::size_t>(conversations) / 2);
}
