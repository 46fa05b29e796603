// SPDX-License-Identifier: Apache-2.0
// The connection from both sides, over the loopback address.
#include "client/tcpsocket.h"

#include "tests/support/loopback.h"
#include "tests/support/wine.h"

#include <gtest/gtest.h>

#include <thread>

using namespace loopback;

namespace {

using Clock = std::chrono::steady_clock;

/// A connected socket and the other end of it.
class TcpSocketTest : public testing::Test {
protected:
    void connect() {
        socket.setPort(listener.port());
        socket.useNumericAddress();
        ASSERT_EQ(socket.connectTo("127.0.0.1"), TcpSocket::success);
        peer = listener.accept();
        ASSERT_TRUE(peer.isThere());
    }
    std::string receive(std::int32_t length, double timeout = 0) {
        std::string bytes(static_cast<std::size_t>(length), '\0');
        received = socket.receive(bytes.data(), length, 0, timeout);
        bytes.resize(static_cast<std::size_t>(std::max(received, 0)));
        return bytes;
    }

    Listener listener;
    TcpSocket socket;
    Peer peer;
    std::int32_t received = 0;
};

} // namespace

TEST_F(TcpSocketTest, TakesNoPortBelowOne) {
    EXPECT_EQ(TcpSocket(-7).port(), 0);
    EXPECT_EQ(TcpSocket(80, "host").port(), 80);
    socket.setPort(-1);
    EXPECT_EQ(socket.port(), 0);
}

TEST_F(TcpSocketTest, ReadsNumericAddressesByTheirForm) {
    const std::pair<const char*, bool> cases[] = {
        {"127.0.0.1", true},
        {"000000000000127.0.0.1", true},
        {"383.256.512.257", true}, // each group is cut to a byte
        {"0000000000000127.0.0.1", false},
        {"127.0.0.a", false},
        {"127.0.0.1 ", false},
        {" 127.0.0.1", false},
        {"127.0.0.-1", false},
        {"127.0.0", false},
        {"127.0.0.1.", false},
        {"127.0.0.1.1", false},
        {"127..0.1", false},
        {"127", false},
        {"", false},
        {"localhost", false},
    };
    socket.setPort(listener.port());
    socket.useNumericAddress();
    for (const auto& [text, good] : cases) {
        EXPECT_EQ(socket.connectTo(text), good ? TcpSocket::success : TcpSocket::hostNotFound)
            << text;
        EXPECT_EQ(socket.handle() != 0, good) << text;
        EXPECT_EQ(socket.lastError() == 0, good) << text;
    }
}

TEST_F(TcpSocketTest, FindsAHostByNameUnlessToldOtherwise) {
    TcpSocket named(listener.port(), "localhost");
    EXPECT_EQ(named.connectTo(), TcpSocket::success);
    named.useNumericAddress();
    EXPECT_EQ(named.connectTo(), TcpSocket::hostNotFound);
    named.useHostName();
    EXPECT_EQ(named.connectTo(), TcpSocket::success);
    named.setHostName(nullptr);
    EXPECT_EQ(named.connectTo(), TcpSocket::hostNotFound);
}

TEST_F(TcpSocketTest, TellsARefusalAndConnectsTheNextTime) {
    socket.setPort(freePort());
    EXPECT_EQ(socket.connectTo("127.0.0.1"), TcpSocket::connectFailed);
    EXPECT_EQ(socket.lastError(), platform::socket_error::refused());
    EXPECT_EQ(socket.handle(), 0);
    connect();
    EXPECT_EQ(socket.lastError(), 0);
}

TEST_F(TcpSocketTest, GivesUpAnAttemptAtItsLimitOrWhenTold) {
    const DeafListener deaf;
    socket.setPort(deaf.port());
    auto start = Clock::now();
    EXPECT_EQ(socket.connectTo("127.0.0.1", {0.25, nullptr}), TcpSocket::connectFailed);
    EXPECT_EQ(socket.lastError(), platform::socket_error::timedOut());
    EXPECT_GE(secondsSince(start), 0.25);

    std::atomic<bool> stop = false;
    std::thread stopper([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        stop = true;
    });
    start = Clock::now();
    EXPECT_EQ(socket.connectTo("127.0.0.1", {0, &stop}), TcpSocket::connectFailed);
    EXPECT_LT(secondsSince(start), 1);
    stopper.join();
}

TEST_F(TcpSocketTest, AcceptsAPeerAndTalksToIt) {
    const std::uint16_t port = freePort();
    std::thread client([port] {
        TcpSocket connecting(port);
        while (connecting.connectTo("127.0.0.1") != TcpSocket::success) std::this_thread::yield();
        char bytes[5];
        EXPECT_EQ(connecting.receive(bytes, 5), 5);
        EXPECT_EQ(connecting.send(bytes, 5), 5);
        EXPECT_EQ(connecting.receive(bytes, 1), 0) << "the other side closes first";
    });
    socket.setPort(port);
    ASSERT_EQ(socket.listenAndAccept(20), TcpSocket::success);
    EXPECT_GT(socket.handle(), 0);
    EXPECT_EQ(socket.send("hello", 5), 5);
    EXPECT_EQ(receive(5), "hello");
    socket.disconnect();
    client.join();
}

TEST_F(TcpSocketTest, TellsWhyNobodyWasAccepted) {
    socket.setPort(listener.port());
    EXPECT_EQ(socket.listenAndAccept(1), TcpSocket::bindFailed);
    EXPECT_NE(socket.lastError(), 0);
    socket.setPort(freePort());
    const auto start = Clock::now();
    EXPECT_EQ(socket.listenAndAccept(0.25), TcpSocket::timedOut);
    EXPECT_GE(secondsSince(start), 0.25);
    EXPECT_LT(secondsSince(start), 2);
    EXPECT_EQ(socket.listenAndAccept(0.01), TcpSocket::timedOut) << "the port is free again";
    EXPECT_EQ(socket.listenAndAccept(-3), TcpSocket::waitFailed);
    EXPECT_EQ(socket.handle(), 0);
}

TEST_F(TcpSocketTest, WaitsAFractionOfASecondForInput) {
    connect();
    const auto start = Clock::now();
    EXPECT_EQ(receive(1, 0.25), "");
    EXPECT_EQ(received, TcpSocket::timedOut);
    EXPECT_GE(secondsSince(start), 0.25);
    EXPECT_LT(secondsSince(start), 2);
    peer.send("x");
    EXPECT_EQ(receive(1, 0.25), "x");
    EXPECT_EQ(socket.lastError(), 0);
}

TEST_F(TcpSocketTest, ReceivesTheWholeLengthOrWhatCameBeforeTheEnd) {
    connect();
    std::thread slow([&] {
        for (const char byte : std::string("slowly")) {
            peer.send(std::string(1, byte));
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
        peer.close();
    });
    EXPECT_EQ(receive(4, 5), "slow");
    EXPECT_EQ(receive(4), "ly");
    EXPECT_EQ(receive(4), "");
    EXPECT_EQ(received, 0);
    slow.join();
}

/// What a flag lets the receiving call do, its wait doesn't: flag 0x40 answers at once on Linux.
TEST_F(TcpSocketTest, WaitsForInputWhateverTheFlags) {
    connect();
    std::thread later([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        peer.send("x");
    });
    char byte = 0;
    EXPECT_EQ(socket.receive(&byte, 1, 0x40), 1);
    later.join();
}

TEST_F(TcpSocketTest, AnswersTheNegatedSystemErrorOfAFailedReceive) {
    EXPECT_EQ(receive(1), "");
    EXPECT_LT(received, TcpSocket::waitFailed) << "there is no connection";
    if (testsupport::runsByWine()) GTEST_SKIP() << testsupport::wineResets;
    connect();
    peer.reset();
    receive(1, 5);
    EXPECT_LT(received, TcpSocket::waitFailed);
}

TEST_F(TcpSocketTest, TellsAWriteToAClosedPeerByACode) {
    EXPECT_LT(socket.send("x", 1), 0);
    EXPECT_NE(socket.lastError(), 0);
    connect();
    peer.reset();
    std::int32_t sent = 1;
    for (int i = 0; i < 100 && sent > 0; ++i) {
        sent = socket.send("x", 1);
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    EXPECT_LT(sent, 0);
    EXPECT_NE(socket.lastError(), 0);
}

TEST_F(TcpSocketTest, SetsNoDelayOnAConnectionOnly) {
    EXPECT_EQ(socket.setNoDelay(), 1);
    connect();
    EXPECT_EQ(socket.setNoDelay(), 0);
}

TEST_F(TcpSocketTest, ClosesWithAReset) {
    connect();
    socket.close(-1);
    EXPECT_EQ(socket.handle(), 0);
    if (testsupport::runsByWine()) GTEST_SKIP() << testsupport::wineResets;
    EXPECT_FALSE(peer.seesOrderlyEnd());
}

TEST_F(TcpSocketTest, ShutsDownInOrder) {
    connect();
    const std::int32_t kept = socket.handle();
    socket.send("last", 4);
    socket.close(2);
    EXPECT_EQ(socket.handle(), 0);
    EXPECT_EQ(peer.receive(4), "last");
    EXPECT_TRUE(peer.seesOrderlyEnd());
    EXPECT_EQ(platform::closeSocket(kept), 0) << "it was left open";
}

TEST_F(TcpSocketTest, LetsWhatWasSentArriveWhenItIsDestroyed) {
    {
        TcpSocket brief(listener.port());
        ASSERT_EQ(brief.connectTo("127.0.0.1"), TcpSocket::success);
        peer = listener.accept();
        brief.send("last", 4);
    }
    EXPECT_EQ(peer.receive(4), "last");
    EXPECT_TRUE(peer.seesOrderlyEnd());
}

TEST_F(TcpSocketTest, ComesBackFromReceivingWhenInterrupted) {
    connect();
    std::thread reader([&] { EXPECT_EQ(receive(10), "some"); });
    peer.send("some");
    // On Windows what wasn't read by then is lost.
    std::this_thread::sleep_for(std::chrono::milliseconds(testsupport::runsByWine() ? 1000 : 50));
    const auto start = Clock::now();
    socket.interrupt();
    reader.join();
    EXPECT_LT(secondsSince(start), 1);
    EXPECT_GT(socket.handle(), 0);
}

TEST_F(TcpSocketTest, LeavesNoDescriptorBehind) {
    if (testsupport::runsByWine()) GTEST_SKIP() << "Wine keeps the descriptors in another process";
    const auto before = openDescriptors();
    TcpSocket deafTo(freePort());
    for (int i = 0; i < 1000; ++i) {
        connect();
        deafTo.connectTo("127.0.0.1");
        if (i % 2) socket.close(-1);
    }
    socket.disconnect();
    peer.close();
    EXPECT_EQ(openDescriptors(), before);
}

TEST_F(TcpSocketTest, StartsTheLibraryAsOftenAsWanted) {
    EXPECT_TRUE(TcpSocket::startLibrary());
    TcpSocket::cleanupLibrary();
    const TcpSocket next;
    connect();
}
