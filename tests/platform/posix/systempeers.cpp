// SPDX-License-Identifier: Apache-2.0
// Bare system calls.
#include "tests/platform/posix/systempeers.h"

#include <cstdio>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace systempeers {

namespace {

template <class Result> Result need(Result result, const char* what) {
    if (result >= 0) return result;
    std::perror(what);
    std::exit(1);
}

int openSource(const std::string& path) {
    return need(::open(path.c_str(), O_RDONLY | O_CLOEXEC), path.c_str());
}

int openTarget(const std::string& path) {
    const int flags = O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC;
    return need(::open(path.c_str(), flags, 0666), path.c_str());
}

} // namespace

std::int64_t walk(const std::string& directory) {
    DIR* handle = ::opendir(directory.c_str());
    need(handle ? 0 : -1, directory.c_str());
    std::int64_t sum = 0;
    while (const dirent* entry = ::readdir(handle)) {
        struct stat status {};
        need(::fstatat(::dirfd(handle), entry->d_name, &status, 0), entry->d_name);
        if (S_ISREG(status.st_mode)) sum += status.st_size;
    }
    ::closedir(handle);
    return sum;
}

File::File(const std::string& path) : fd(need(::open(path.c_str(), O_RDWR | O_CLOEXEC), "open")) {}

File::~File() { ::close(fd); }

void File::read(char* block, std::size_t length) const {
    need(::lseek(fd, 0, SEEK_SET), "seek");
    const ssize_t got = need(::read(fd, block, length), "read");
    need(got == static_cast<ssize_t>(length) ? 0 : -1, "all of it");
}

void File::write(const char* block, std::size_t length) const {
    need(::lseek(fd, 0, SEEK_SET), "seek");
    for (std::size_t done = 0; done < length;) {
        done += static_cast<std::size_t>(need(::write(fd, block + done, length - done), "write"));
    }
}

void copyInSystem(const std::string& from, const std::string& to) {
    const int source = openSource(from), target = openTarget(to);
    while (need(::copy_file_range(source, nullptr, target, nullptr, 0x7FFFFFFF, 0), "copy") > 0) {
    }
    ::close(source);
    ::close(target);
}

void copyInBlocks(const std::string& from, const std::string& to) {
    static std::vector<char> block(256 << 10);
    const int source = openSource(from), target = openTarget(to);
    for (;;) {
        const ssize_t got = need(::read(source, block.data(), block.size()), "read");
        if (got == 0) break;
        need(::write(target, block.data(), static_cast<std::size_t>(got)), "write");
    }
    ::close(source);
    ::close(target);
}

} // namespace systempeers
