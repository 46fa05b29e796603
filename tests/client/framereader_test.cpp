// SPDX-License-Identifier: Apache-2.0
// Frames from peers that do as they should, and from those that don't.
#include "client/framereader.h"

#include "tests/support/loopback.h"
#include "tests/support/wine.h"

#include <gtest/gtest.h>

#include <thread>

using namespace loopback;

namespace {

class FrameReaderTest : public testing::Test {
protected:
    FrameReaderTest() { connect(); }

    void connect() {
        socket.setPort(listener.port());
        ASSERT_EQ(socket.connectTo("127.0.0.1"), TcpSocket::success);
        peer = listener.accept();
    }
    /// The next frame, or "failure: " and the number.
    std::string next() {
        if (!reader.read()) return "failure: " + std::to_string(reader.failure());
        return std::string(reader.data(), static_cast<std::size_t>(reader.size()));
    }
    /// What the reader says of a peer that sends these bytes and closes.
    std::string afterBytes(const std::string& bytes) {
        connect();
        peer.send(bytes);
        peer.close();
        return next();
    }

    const std::string tooLong =
        "failure: " + std::to_string(-platform::socket_error::messageTooLong());
    Listener listener;
    TcpSocket socket;
    FrameReader reader{socket};
    Peer peer;
};

std::string pattern(std::size_t length) {
    std::string bytes(length, '\0');
    for (std::size_t i = 0; i < length; ++i) bytes[i] = static_cast<char>(i * 7 + i / 251);
    return bytes;
}

} // namespace

TEST_F(FrameReaderTest, TellsFramesApartInOrder) {
    const std::string large = pattern((3 << 20) + 5);
    std::thread sender([&] { peer.send(frame("one") + frame("") + frame(large) + frame("two")); });
    EXPECT_EQ(next(), "one");
    EXPECT_EQ(next(), "");
    EXPECT_TRUE(next() == large);
    EXPECT_EQ(next(), "two");
    sender.join();
}

TEST_F(FrameReaderTest, EndsWithoutAnErrorWhereverThePeerCloses) {
    const std::string whole = frame("payload");
    for (std::size_t cut = 0; cut < whole.size(); ++cut) {
        EXPECT_EQ(afterBytes(whole.substr(0, cut)), "failure: 0") << "cut at " << cut;
    }
    EXPECT_EQ(afterBytes(whole), "payload");
    EXPECT_EQ(next(), "failure: 0");
}

TEST_F(FrameReaderTest, TakesAbsurdCountsForNoise) {
    EXPECT_EQ(afterBytes("\xff\xff\xff\xff"), tooLong);
    EXPECT_EQ(afterBytes(std::string("\x80\0\0\0", 4)), tooLong) << "2 GiB";
    EXPECT_EQ(afterBytes("\x7f\xff\xff\xff"), tooLong);
    EXPECT_EQ(afterBytes(std::string("\x04\0\0\x01", 4)), tooLong);
    EXPECT_EQ(afterBytes(std::string("\x04\0\0\0", 4)), "failure: 0") << "long, but it may come";
}

TEST_F(FrameReaderTest, TellsAResetBySystemNumber) {
    if (testsupport::runsByWine()) GTEST_SKIP() << testsupport::wineResets;
    peer.reset();
    EXPECT_EQ(next().substr(0, 10), "failure: -");
}

TEST_F(FrameReaderTest, ReadsAndLetsOthersSendAtTheSameTime) {
    constexpr int rounds = 20'000;
    const std::string word = frame(pattern(12));
    std::thread peerSends([&] {
        for (int i = 0; i < rounds; ++i) peer.send(word);
    });
    std::thread peerReads([&] {
        std::string got;
        for (int i = 0; i < rounds; ++i) got = peer.receive(word.size());
        EXPECT_TRUE(got == word);
    });
    std::thread sender([&] {
        for (int i = 0; i < rounds; ++i) {
            socket.send(word.data(), static_cast<std::int32_t>(word.size()));
        }
    });
    for (int i = 0; i < rounds; ++i) ASSERT_TRUE(next() == pattern(12)) << i;
    for (std::thread* thread : {&peerSends, &peerReads, &sender}) thread->join();
}
