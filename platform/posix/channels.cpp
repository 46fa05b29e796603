// SPDX-License-Identifier: Apache-2.0
// Descriptors 0, 1 and 2.
#include "platform/channels.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <unistd.h>
#include <utility>

namespace platform {
namespace {

constexpr int pauseMs = 50;

bool isOpen(int channel) { return ::fcntl(channel, F_GETFD) != -1; }

bool isReady(int file, short what, int milliseconds) {
    pollfd channel{file, what, 0};
    return ::poll(&channel, 1, milliseconds) > 0;
}

} // namespace

/// The system gives out the lowest number that is free, so going upwards fills the gaps. The
/// programs that are started from here have the usual end by a broken pipe: Qt sees to that.
void prepareChannels() {
    for (int channel = STDIN_FILENO; channel <= STDERR_FILENO; ++channel) {
        if (!isOpen(channel) && ::open("/dev/null", O_RDWR) < 0) break;
    }
    std::signal(SIGPIPE, SIG_IGN);
}

bool isInputTerminal() { return ::isatty(STDIN_FILENO) == 1; }

bool waitForInput(std::uint32_t milliseconds) {
    return isReady(STDIN_FILENO, POLLIN, static_cast<int>(milliseconds));
}

bool isOutputRead() {
    pollfd channel{STDOUT_FILENO, 0, 0};
    return ::poll(&channel, 1, 0) <= 0 || !(channel.revents & POLLERR);
}

bool isErrorTerminal() { return ::isatty(STDERR_FILENO) == 1; }

std::int32_t errorColumns() {
    winsize size{};
    return ::ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : 80;
}

ErrorTap::ErrorTap(std::function<void(std::string_view)> take) : take_(std::move(take)) {
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0) return;
    ::fcntl(ends[0], F_SETFL, O_NONBLOCK);
    original_ = ::fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    if (original_ >= 0 && ::dup2(ends[1], STDERR_FILENO) >= 0) {
        source_ = ends[0];
        thread_ = std::thread([this] { listen(); });
    } else {
        ::close(ends[0]);
    }
    ::close(ends[1]);
}

void ErrorTap::close() {
    if (!thread_.joinable()) return;
    ::dup2(original_, STDERR_FILENO);
    done_ = true;
    thread_.join();
    ::close(source_);
}

ErrorTap::~ErrorTap() {
    close();
    if (original_ >= 0) ::close(original_);
}

void ErrorTap::write(std::string_view text) const {
    const int file = original_ < 0 ? STDERR_FILENO : original_;
    while (!text.empty()) {
        const ssize_t put = ::write(file, text.data(), text.size());
        if (put < 0 && errno == EINTR) continue;
        if (put <= 0) return;
        text.remove_prefix(static_cast<std::size_t>(put));
    }
}

/// To the end of the pipe, or, once the tap is done, of what is in it: a process that stays has the
/// other end for as long as it likes.
void ErrorTap::listen() {
    char piece[4096];
    for (;;) {
        const bool last = done_;
        const bool ready = isReady(source_, POLLIN, last ? 0 : pauseMs);
        const ssize_t got = ready ? ::read(source_, piece, sizeof piece) : 0;
        if (got < 0 && errno == EINTR) continue;
        take_({piece, static_cast<std::size_t>(got > 0 ? got : 0)});
        if (got <= 0 && (last || ready)) return;
    }
}

} // namespace platform
