// SPDX-License-Identifier: Apache-2.0
// Mutexes that processes share by name: a robust pthread mutex in shared memory, so that a holder
// that dies gives it up. Everybody who has the name open holds a shared lock on the block for as
// long; it dies with its process. Who can lock the block exclusively is therefore alone: a newcomer
// then makes the mutex afresh, whatever was left behind, and a leaver takes the name away.
#include "platform/sync.h"

#include <atomic>
#include <cctype>
#include <cerrno>
#include <cstdio>
#include <ctime>
#include <fcntl.h>
#include <pthread.h>
#include <string>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {
namespace {

/// One name a user; what a file name can't hold is written as numbers.
std::string blockName(const char* name) {
    std::string result = "/zel-mutex-" + std::to_string(::getuid()) + '-';
    for (; *name; ++name) {
        const auto c = static_cast<unsigned char>(*name);
        if (std::isalnum(c) || c == '-' || c == '.') {
            result += *name;
        } else {
            char text[8];
            std::snprintf(text, sizeof text, "_%02x", c);
            result += text;
        }
    }
    return result;
}

bool makeShared(pthread_mutex_t& mutex) {
    pthread_mutexattr_t attributes;
    pthread_mutexattr_init(&attributes);
    pthread_mutexattr_settype(&attributes, PTHREAD_MUTEX_RECURSIVE);
    pthread_mutexattr_setpshared(&attributes, PTHREAD_PROCESS_SHARED);
    pthread_mutexattr_setrobust(&attributes, PTHREAD_MUTEX_ROBUST);
    const bool made = pthread_mutex_init(&mutex, &attributes) == 0;
    pthread_mutexattr_destroy(&attributes);
    return made;
}

timespec deadline(std::uint32_t milliseconds) {
    timespec when{};
    ::clock_gettime(CLOCK_MONOTONIC, &when);
    const std::int64_t nanoseconds = when.tv_nsec + std::int64_t{milliseconds} * 1'000'000;
    when.tv_sec += static_cast<std::time_t>(nanoseconds / 1'000'000'000);
    when.tv_nsec = static_cast<long>(nanoseconds % 1'000'000'000);
    return when;
}

/// A lock of the file as a whole that belongs to its opening and not to the process, and whose kind
/// changes in one step. Closing the file ends it.
bool lockBlock(int file, short kind, bool wait) {
    struct flock lock {};
    lock.l_type = kind;
    lock.l_whence = SEEK_SET;
    const int command = wait ? F_OFD_SETLKW : F_OFD_SETLK;
    int result = 0;
    do {
        result = ::fcntl(file, command, &lock);
    } while (result != 0 && errno == EINTR);
    return result == 0;
}

/// The file under a name, with its lock and the mutex that is mapped from it.
class Block {
public:
    explicit Block(const std::string& blockName) : name(blockName) {}
    Block(const Block&) = delete;
    Block& operator=(const Block&) = delete;
    ~Block() {
        unmap();
        leave();
    }

    /// False when it can't be had, or is not there and `create` is false.
    bool enter(bool create) {
        while (openFile(create)) {
            const bool alone = lockBlock(file, F_WRLCK, false);
            if (alone ? makeFresh(create) : join()) return true;
            const bool goneMeanwhile = isNameGone();
            leave();
            if (!goneMeanwhile) return false;
        }
        return false;
    }
    pthread_mutex_t* mutex() const { return shared; }
    /// Leaves the mutex mapped for good.
    void keepMapped() { shared = nullptr; }

private:
    bool openFile(bool create) {
        file = ::shm_open(name.c_str(), O_RDWR | O_CLOEXEC | (create ? O_CREAT : 0), 0600);
        return file >= 0;
    }
    /// The lock passes from exclusive to shared in the end, which lets the waiting ones in.
    bool makeFresh(bool create) {
        if (!create || isNameGone()) return false;
        return ::ftruncate(file, sizeof(pthread_mutex_t)) == 0 && map() && makeShared(*shared) &&
               lockBlock(file, F_RDLCK, true);
    }
    bool join() { return lockBlock(file, F_RDLCK, true) && !isNameGone() && map(); }

    /// The last one may have left between our opening of the file and our lock on it.
    bool isNameGone() const {
        struct stat record {};
        return ::fstat(file, &record) != 0 || record.st_nlink == 0;
    }
    bool map() {
        constexpr int access = PROT_READ | PROT_WRITE;
        void* memory = ::mmap(nullptr, sizeof *shared, access, MAP_SHARED, file, 0);
        shared = memory == MAP_FAILED ? nullptr : static_cast<pthread_mutex_t*>(memory);
        return shared;
    }
    void unmap() {
        if (shared) ::munmap(shared, sizeof *shared);
        shared = nullptr;
    }
    void leave() {
        if (file < 0) return;
        unmap();
        if (lockBlock(file, F_WRLCK, false) && !isNameGone()) ::shm_unlink(name.c_str());
        ::close(file);
        file = -1;
    }

    const std::string name;
    int file = -1;
    pthread_mutex_t* shared = nullptr;
};

class NamedMutex : public Waitable {
public:
    explicit NamedMutex(const std::string& name) : block(name) {}
    ~NamedMutex() override {
        // The system keeps a list of what a thread holds, so the memory stays if that isn't us.
        while (held > 0 && signal()) {
        }
        if (held > 0) block.keepMapped();
    }
    bool enter(bool create) { return block.enter(create); }

    bool wait(std::uint32_t milliseconds) override {
        int result = lock(milliseconds);
        if (result == EOWNERDEAD) result = pthread_mutex_consistent(block.mutex());
        if (result == 0) ++held;
        return result == 0;
    }
    bool signal() override {
        if (pthread_mutex_unlock(block.mutex()) != 0) return false;
        --held;
        return true;
    }

private:
    int lock(std::uint32_t milliseconds) {
        if (milliseconds == infinite) return pthread_mutex_lock(block.mutex());
        if (milliseconds == 0) return pthread_mutex_trylock(block.mutex());
        const timespec when = deadline(milliseconds);
        return pthread_mutex_clocklock(block.mutex(), CLOCK_MONOTONIC, &when);
    }

    Block block;
    std::atomic<int> held = 0; ///< how often it was taken through this object
};

std::unique_ptr<Waitable> enterNamed(const char* name, bool create) {
    auto mutex = std::make_unique<NamedMutex>(blockName(name));
    if (!mutex->enter(create)) return nullptr;
    return mutex;
}

} // namespace

std::unique_ptr<Waitable> createNamedMutex(const char* name) { return enterNamed(name, true); }
std::unique_ptr<Waitable> openNamedMutex(const char* name) { return enterNamed(name, false); }

} // namespace platform
