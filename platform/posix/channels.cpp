// SPDX-License-Identifier: Apache-2.0
// Descriptors 0, 1 and 2.
#include "platform/channels.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <new>
#include <poll.h>
#include <sys/ioctl.h>
#include <system_error>
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

/// The process's own `stderr` stays with the original.
struct ErrorTap::System {
    int source = -1;
    std::FILE* original = nullptr;
    std::FILE* before = stderr;

    ~System() {
        if (source >= 0) ::close(source);
        if (original) std::fclose(original);
    }
    bool open() {
        int ends[2];
        if (::pipe2(ends, O_CLOEXEC) != 0) return false;
        source = ends[0];
        ::fcntl(source, F_SETFL, O_NONBLOCK);
        const bool stands = keepOriginal() && ::dup2(ends[1], STDERR_FILENO) >= 0;
        ::close(ends[1]);
        if (stands) stderr = original;
        return stands;
    }
    void restore() const {
        ::dup2(::fileno(original), STDERR_FILENO);
        stderr = before;
    }

private:
    bool keepOriginal() {
        const int copy = ::fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
        original = copy >= 0 ? ::fdopen(copy, "w") : nullptr;
        return original && std::setvbuf(original, nullptr, _IONBF, 0) == 0;
    }
};

ErrorTap::ErrorTap(std::function<void(std::string_view)> take)
    : take_(std::move(take)), system_(std::make_unique<System>()) {
    if (!system_->open() || !startListening()) system_ = nullptr;
}

/// Without a thread that listens everybody's words go where they went before.
bool ErrorTap::startListening() {
    try {
        thread_ = std::thread([this] { listen(); });
        return true;
    } catch (const std::system_error&) {
        system_->restore();
        return false;
    }
}

ErrorTap::~ErrorTap() { close(); }

void ErrorTap::close() {
    if (!thread_.joinable()) return;
    system_->restore();
    done_ = true;
    thread_.join();
}

void ErrorTap::write(std::string_view text) const {
    const int file = system_ ? ::fileno(system_->original) : STDERR_FILENO;
    while (!text.empty()) {
        const ssize_t put = ::write(file, text.data(), text.size());
        if (put < 0 && errno == EINTR) continue;
        if (put <= 0) return;
        text.remove_prefix(static_cast<std::size_t>(put));
    }
}

void ErrorTap::pass(std::string_view piece) const {
    try {
        take_(piece);
    } catch (const std::bad_alloc&) {
        write(piece);
    }
}

/// To the end of the pipe, or, once the tap is done, of what is in it: a process that stays has the
/// other end for as long as it likes.
void ErrorTap::listen() {
    char piece[4096];
    for (;;) {
        const bool last = done_;
        const bool ready = isReady(system_->source, POLLIN, last ? 0 : pauseMs);
        const ssize_t got = ready ? ::read(system_->source, piece, sizeof piece) : 0;
        if (got < 0 && errno == EINTR) continue;
        pass({piece, static_cast<std::size_t>(got > 0 ? got : 0)});
        if (got <= 0 && (last || ready)) return;
    }
}

} // namespace platform
