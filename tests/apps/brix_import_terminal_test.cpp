// SPDX-License-Identifier: Apache-2.0
// Somebody sits at the terminal of brix-import.
#include "tests/support/folder.h"

#include <QElapsedTimer>

#include <csignal>
#include <poll.h>
#include <pty.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

class Terminal : public testing::Test {
protected:
    ~Terminal() override { ::close(master_); }

    void start(std::vector<const char*> words) {
        child_ = ::forkpty(&master_, nullptr, nullptr, nullptr);
        ASSERT_GE(child_, 0);
        if (child_ == 0) {
            words.insert(words.begin(), {BRIX_IMPORT, "part.step"});
            words.push_back(nullptr);
            ::execv(BRIX_IMPORT, const_cast<char* const*>(words.data()));
            ::_exit(99);
        }
    }
    void startAsking() { start({"--module", FAKE_MODULE, "--argument", "ask"}); }
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
        if (HasFailure()) ::kill(child_, SIGKILL);
        EXPECT_EQ(::waitpid(child_, &status, 0), child_);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    int master_ = -1;
    pid_t child_ = -1;
    std::string shown_;
};

TEST_F(Terminal, IsAskedAndAnswers) {
    startAsking();
    awaitText("[y/N] ");
    type("y\n");
    awaitText("losses: none");
    EXPECT_EQ(exitStatus(), 0);
}

TEST_F(Terminal, EndsTheQuestionByAnInterrupt) {
    startAsking();
    awaitText("[y/N] ");
    QElapsedTimer timer;
    timer.start();
    type("\x03");
    awaitText("stopped on request");
    EXPECT_EQ(exitStatus(), 1);
    EXPECT_LT(timer.elapsed(), 10'000);
}

/// A server that says where it is in pieces, and other things in between.
TEST_F(Terminal, ShowsOneLineThatOtherWordsKeepClearOf) {
    const testsupport::Folder folder;
    const QString server = folder.write("server", R"(#!/bin/sh
exec >&2
printf 'progress 40 %%'; sleep 0.1; printf ' writing faces\n'; sleep 0.3; echo 'a word'; sleep 0.2
)");
    QFile::setPermissions(server, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    const std::string program = server.toStdString();
    start({"--server", program.c_str(), "--answer", "no"});
    awaitText("brix-import: ");
    EXPECT_EQ(exitStatus(), 1);
    const auto has = [this](const std::string& text) { return shown_.find(text) != shown_.npos; };
    const std::string cleared = '\r' + std::string(79, ' ') + '\r';
    EXPECT_TRUE(has("\rimporting part.step: writing faces, 40 %")) << shown_;
    EXPECT_FALSE(has("progress")) << shown_;
    EXPECT_TRUE(has(cleared + "a word\r\n")) << shown_;
    EXPECT_TRUE(has(cleared + "brix-import: ")) << shown_;
}

} // namespace
