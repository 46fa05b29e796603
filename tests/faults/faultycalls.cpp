// SPDX-License-Identifier: Apache-2.0
// Calls of the system that fail on demand, in front of the C library by LD_PRELOAD. Nothing that
// gives back (close, unlink) is among them.
//   FAULTY_CALLS        "PROGRAM KIND N": the Nth call of the kind fails in programs of that name;
//                       KIND is "file", "socket" or "process"
//   FAULTY_CALLS_COUNT  a folder; PROGRAM.KIND in it grows by a byte with each call
#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstdlib>
#include <sstream>
#include <string>

#include <dlfcn.h>
#include <fcntl.h>
#include <poll.h>
#include <pthread.h>
#include <spawn.h>
#include <stdio.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <unistd.h>

namespace {

struct Kind {
    const char* name;
    long refused = 0; ///< the call that fails; 0 for none
    int counter = -1; ///< the file that grows
    std::atomic<long> calls{0};
};
Kind file{"file"}, network{"socket"}, process{"process"};

__attribute__((constructor)) void readWishes() {
    std::istringstream wish(std::getenv("FAULTY_CALLS") ? std::getenv("FAULTY_CALLS") : "");
    std::string program, name;
    long call = 0;
    wish >> program >> name >> call;
    const char* folder = std::getenv("FAULTY_CALLS_COUNT");
    for (Kind* kind : {&file, &network, &process}) {
        if (program == program_invocation_short_name && name == kind->name) kind->refused = call;
        if (!folder) continue;
        const std::string path =
            std::string(folder) + '/' + program_invocation_short_name + '.' + kind->name;
        kind->counter = static_cast<int>(syscall(SYS_openat, AT_FDCWD, path.c_str(),
                                                 O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0666));
    }
}

bool refuses(Kind& kind, int error) {
    if (kind.counter >= 0) syscall(SYS_write, kind.counter, "", 1);
    if (++kind.calls != kind.refused) return false;
    errno = error;
    return true;
}

} // namespace

// One call of the C library: its result when it fails, the error that it then tells.
#define FAULTY(kind, error, failed, result, name, parameters, arguments)                           \
    extern "C" result name parameters {                                                            \
        static const auto real = reinterpret_cast<result(*) parameters>(dlsym(RTLD_NEXT, #name));  \
        return refuses(kind, error) ? failed : real arguments;                                     \
    }
#define FAULTY_OPEN(name, parameters, arguments)                                                   \
    extern "C" int name parameters {                                                               \
        va_list rest;                                                                              \
        va_start(rest, flags);                                                                     \
        const mode_t mode = flags & (O_CREAT | O_TMPFILE) ? va_arg(rest, mode_t) : 0;              \
        va_end(rest);                                                                              \
        static const auto real = reinterpret_cast<int(*) parameters>(dlsym(RTLD_NEXT, #name));     \
        return refuses(file, EMFILE) ? -1 : real arguments;                                        \
    }

FAULTY_OPEN(open, (const char* path, int flags, ...), (path, flags, mode))
FAULTY_OPEN(open64, (const char* path, int flags, ...), (path, flags, mode))
FAULTY_OPEN(openat, (int at, const char* path, int flags, ...), (at, path, flags, mode))
FAULTY(file, EMFILE, nullptr, FILE*, fopen, (const char* path, const char* mode), (path, mode))
FAULTY(file, EMFILE, nullptr, FILE*, fopen64, (const char* path, const char* mode), (path, mode))
FAULTY(file, EIO, -1, ssize_t, read, (int fd, void* to, size_t count), (fd, to, count))
FAULTY(file, ENOSPC, -1, ssize_t, write, (int fd, const void* from, size_t n), (fd, from, n))
FAULTY(file, ENOSPC, -1, ssize_t, writev, (int fd, const iovec* parts, int n), (fd, parts, n))
FAULTY(file, EIO, -1, off64_t, lseek64, (int fd, off64_t to, int how) noexcept, (fd, to, how))
FAULTY(file, EACCES, -1, int, rename, (const char* from, const char* to) noexcept, (from, to))
FAULTY(file, EACCES, -1, int, renameat2,
       (int from, const char* path, int to, const char* name, unsigned flags) noexcept,
       (from, path, to, name, flags))
FAULTY(file, EACCES, -1, int, mkdir, (const char* path, mode_t mode) noexcept, (path, mode))
FAULTY(file, EACCES, -1, int, symlink, (const char* to, const char* path) noexcept, (to, path))
FAULTY(file, EIO, -1, int, fsync, (int fd), (fd))

FAULTY(network, EMFILE, -1, int, socket, (int domain, int type, int how) noexcept,
       (domain, type, how))
FAULTY(network, EADDRINUSE, -1, int, bind, (int fd, const sockaddr* to, socklen_t n) noexcept,
       (fd, to, n))
FAULTY(network, EADDRINUSE, -1, int, listen, (int fd, int queue) noexcept, (fd, queue))
FAULTY(network, ECONNREFUSED, -1, int, connect, (int fd, const sockaddr* to, socklen_t n),
       (fd, to, n))
FAULTY(network, EMFILE, -1, int, accept, (int fd, sockaddr* from, socklen_t* n), (fd, from, n))
FAULTY(network, EMFILE, -1, int, accept4, (int fd, sockaddr* from, socklen_t* n, int flags),
       (fd, from, n, flags))
FAULTY(network, ECONNRESET, -1, ssize_t, send, (int fd, const void* from, size_t n, int flags),
       (fd, from, n, flags))
FAULTY(network, ECONNRESET, -1, ssize_t, recv, (int fd, void* to, size_t n, int flags),
       (fd, to, n, flags))
FAULTY(network, EBADF, -1, int, setsockopt,
       (int fd, int level, int name, const void* value, socklen_t n) noexcept,
       (fd, level, name, value, n))

FAULTY(process, EAGAIN, -1, pid_t, fork, () noexcept, ())
FAULTY(process, EACCES, -1, int, execve,
       (const char* path, char* const* words, char* const* variables) noexcept,
       (path, words, variables))
FAULTY(process, EACCES, -1, int, execv, (const char* path, char* const* words) noexcept,
       (path, words))
FAULTY(process, EMFILE, -1, int, pipe, (int* ends) noexcept, (ends))
FAULTY(process, EMFILE, -1, int, pipe2, (int* ends, int flags) noexcept, (ends, flags))
FAULTY(process, EAGAIN, EAGAIN, int, pthread_create,
       (pthread_t * thread, const pthread_attr_t* how, void* (*start)(void*), void* with) noexcept,
       (thread, how, start, with))
