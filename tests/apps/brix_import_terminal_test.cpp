// SPDX-License-Identifier: Apache-2.0
// Somebody sits at the terminal of brix-import.
#include <QElapsedTimer>

#include <gtest/gtest.h>

#include <poll.h>
#include <pty.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace {

class Terminal : public testing::Test {
protected:
    ~Terminal() override { ::close(master_); }

    void start() {
        child_ = ::forkpty(&master_, nullptr, nullptr, nullptr);
        ASSERT_GE(child_, 0);
        if (child_ == 0) {
            ::execl(BRIX_IMPORT, BRIX_IMPORT, "part.step", "--module", FAKE_MODULE, "--argument",
                    "ask", nullptr);
            ::_exit(99);
        }
    }
    void type(const std::string& keys) const {
        EXPECT_EQ(::write(master_, keys.data(), keys.size()), static_cast<ssize_t>(keys.size()));
    }
    /// What is shown until `text` is there, or nothing comes for 20 seconds.
    void awaitText(const std::string& text) {
        pollfd shown{master_, POLLIN, 0};
        while (shown_.find(text) == shown_.npos && ::poll(&shown, 1, 20'000) > 0) {
            char piece[256];
            const ssize_t got = ::read(master_, piece, sizeof piece);
            if (got <= 0) break;
            shown_.append(piece, static_cast<std::size_t>(got));
        }
        EXPECT_NE(shown_.find(text), shown_.npos) << shown_;
    }
    int exitStatus() {
        int status = 0;
        EXPECT_EQ(::waitpid(child_, &status, 0), child_);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    int master_ = -1;
    pid_t child_ = -1;
    std::string shown_;
};

TEST_F(Terminal, IsAskedAndAnswers) {
    start();
    awaitText("[y/N] ");
    type("y\n");
    awaitText("losses: none");
    EXPECT_EQ(exitStatus(), 0);
}

TEST_F(Terminal, EndsTheQuestionByAnInterrupt) {
    start();
    awaitText("[y/N] ");
    QElapsedTimer timer;
    timer.start();
    type("\x03");
    awaitText("stopped on request");
    EXPECT_EQ(exitStatus(), 1);
    EXPECT_LT(timer.elapsed(), 10'000);
}

} // namespace
