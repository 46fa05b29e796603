// SPDX-License-Identifier: Apache-2.0
// Signals that ask the process to stop, passed through a pipe to a thread that may do anything.
#include "platform/process.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <mutex>
#include <thread>
#include <unistd.h>
#include <utility>

namespace platform {
namespace {

struct InterruptWatch {
    int pipeEnds[2] = {-1, -1};
    std::mutex lock;
    std::function<void()> callback;
};

/// Never destroyed: its thread runs to the end of the process.
InterruptWatch& interruptWatch() {
    static auto* const watch = new InterruptWatch;
    return *watch;
}

void passInterruptOn(int) {
    const int saved = errno;
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = ::write(interruptWatch().pipeEnds[1], &byte, 1);
    errno = saved;
}

void runCallback() {
    std::function<void()> callback;
    {
        const std::lock_guard hold(interruptWatch().lock);
        callback = interruptWatch().callback;
    }
    if (callback) callback();
}

void watchPipe() {
    char byte = 0;
    for (;;) {
        const ssize_t got = ::read(interruptWatch().pipeEnds[0], &byte, 1);
        if (got == 1) runCallback();
        if (got == 0 || (got < 0 && errno != EINTR)) return;
    }
}

/// As a program is that runs on without its terminal.
bool isIgnored(int signal) {
    struct sigaction inherited {};
    return ::sigaction(signal, nullptr, &inherited) == 0 && inherited.sa_handler == SIG_IGN;
}

void installHandlers() {
    struct sigaction action {};
    action.sa_handler = passInterruptOn;
    action.sa_flags = SA_RESTART;
    for (const int signal : {SIGINT, SIGTERM, SIGHUP})
        if (!isIgnored(signal)) ::sigaction(signal, &action, nullptr);
}

} // namespace

void onInterrupt(std::function<void()> callback) {
    InterruptWatch& watch = interruptWatch();
    const std::lock_guard hold(watch.lock);
    watch.callback = std::move(callback);
    if (watch.pipeEnds[0] >= 0 || ::pipe2(watch.pipeEnds, O_CLOEXEC) != 0) return;
    // A flood of signals must not block the handler.
    ::fcntl(watch.pipeEnds[1], F_SETFL, O_NONBLOCK);
    std::thread(watchPipe).detach();
    installHandlers();
}

} // namespace platform
