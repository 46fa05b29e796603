// SPDX-License-Identifier: Apache-2.0
// A fork whose bytes come through a pipe. The end of the pipe is the end of the copy.
#include "platform/processcopy.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <ctime>
#include <fcntl.h>
#include <initializer_list>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace platform {
namespace {

constexpr int lookMilliseconds = 100;
constexpr int mostIdleLooks = 30'000 / lookMilliseconds;

/// Handlers of this process have no business in the copy: they would report its crash as ours.
void forgetHandlers() {
    for (const int signal :
         {SIGSEGV, SIGFPE, SIGBUS, SIGILL, SIGABRT, SIGXCPU, SIGINT, SIGTERM, SIGHUP}) {
        ::signal(signal, SIG_DFL);
    }
    const rlimit noCore{};
    ::setrlimit(RLIMIT_CORE, &noCore);
}

/// A reader that has gone ends the copy.
void sendAll(int pipeEnd, const char* bytes, std::size_t length) {
    while (length > 0) {
        const ssize_t sent = ::write(pipeEnd, bytes, length);
        if (sent < 0 && errno != EINTR) ::_exit(1);
        if (sent <= 0) continue;
        bytes += sent;
        length -= static_cast<std::size_t>(sent);
    }
}

[[noreturn]] void runAsCopy(const std::function<void(const TakeBytes&)>& work, int pipeEnd,
                            pid_t original) {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (::getppid() != original) ::_exit(1);
    forgetHandlers();
    try {
        work([pipeEnd](const char* bytes, std::size_t length) { sendAll(pipeEnd, bytes, length); });
    } catch (...) {
        ::_exit(1);
    }
    ::_exit(0);
}

double processorSecondsOf(pid_t process) {
    clockid_t clock{};
    timespec used{};
    if (::clock_getcpuclockid(process, &clock) != 0 || ::clock_gettime(clock, &used) != 0) return 0;
    return static_cast<double>(used.tv_sec) + 1e-9 * static_cast<double>(used.tv_nsec);
}

/// Reads to the end of the pipe. False when the copy went past its limit first.
class Reader {
public:
    Reader(pid_t copy, int pipeEnd, double limit) : copy_(copy), pipeEnd_(pipeEnd), limit_(limit) {}

    /// Whether the pipe broke before its end.
    bool hasFailed() const { return hasFailed_; }

    bool readAll(const TakeBytes& receive) {
        for (;;) {
            pollfd input{pipeEnd_, POLLIN, 0};
            const int ready = ::poll(&input, 1, lookMilliseconds);
            if (ready <= 0 && isPastLimit()) return false;
            if (ready <= 0) continue;
            if (!readSome(receive)) return true;
            atLastSending_ = processorSecondsOf(copy_);
        }
    }

private:
    bool readSome(const TakeBytes& receive) {
        std::array<char, 65536> bytes;
        const ssize_t got = ::read(pipeEnd_, bytes.data(), bytes.size());
        if (got > 0) receive(bytes.data(), static_cast<std::size_t>(got));
        hasFailed_ = got < 0 && errno != EINTR;
        return got != 0 && !hasFailed_;
    }

    bool isPastLimit() {
        const double used = processorSecondsOf(copy_);
        idleLooks_ = used > used_ ? 0 : idleLooks_ + 1;
        used_ = used;
        return (limit_ > 0 && used - atLastSending_ > limit_) || idleLooks_ > mostIdleLooks;
    }

    pid_t copy_;
    int pipeEnd_;
    double limit_, used_ = 0, atLastSending_ = 0;
    int idleLooks_ = 0;
    bool hasFailed_ = false;
};

CopyEnd endOf(pid_t copy, bool isWithinLimit) {
    if (!isWithinLimit) ::kill(copy, SIGKILL);
    int status = 0;
    while (::waitpid(copy, &status, 0) < 0 && errno == EINTR) {
    }
    if (!isWithinLimit) return CopyEnd::limit;
    return WIFEXITED(status) && WEXITSTATUS(status) == 0 ? CopyEnd::done : CopyEnd::failed;
}

} // namespace

CopyEnd runInCopy(const std::function<void(const TakeBytes&)>& work, const TakeBytes& receive,
                  double processorSeconds) {
    int ends[2] = {-1, -1};
    if (::pipe2(ends, O_CLOEXEC) != 0) return CopyEnd::notOffered;
    const pid_t original = ::getpid();
    const pid_t copy = ::fork();
    if (copy == 0) runAsCopy(work, ends[1], original);
    ::close(ends[1]);
    Reader reader(copy, ends[0], processorSeconds);
    const bool isWithinLimit = copy < 0 || reader.readAll(receive);
    ::close(ends[0]); // who still writes ends by that
    if (copy < 0) return CopyEnd::notOffered;
    const CopyEnd end = endOf(copy, isWithinLimit);
    return reader.hasFailed() ? CopyEnd::failed : end;
}

} // namespace platform
