// SPDX-License-Identifier: Apache-2.0
// Mutexes that processes share by name: a robust pthread mutex in shared memory, so that a holder
// that dies gives it up. The block stays behind under its name, as small as a page.
#include "platform/sync.h"

#include <algorithm>
#include <cerrno>
#include <ctime>
#include <fcntl.h>
#include <pthread.h>
#include <string>
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {
namespace {

struct SharedBlock {
    std::uint32_t ready; ///< set once the mutex is made
    pthread_mutex_t mutex;
};

std::string blockName(const char* name) {
    std::string result = std::string("/zel-mutex-") + name;
    std::replace(result.begin() + 1, result.end(), '/', '_');
    std::replace(result.begin() + 1, result.end(), '\\', '_');
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

class NamedMutex : public Waitable {
public:
    explicit NamedMutex(SharedBlock* mapped) : block(mapped) {}
    ~NamedMutex() override { ::munmap(block, sizeof *block); }

    bool wait(std::uint32_t milliseconds) override {
        const int result = milliseconds == infinite ? pthread_mutex_lock(&block->mutex)
                                                    : lockUntil(deadline(milliseconds));
        if (result != EOWNERDEAD) return result == 0;
        return pthread_mutex_consistent(&block->mutex) == 0;
    }
    bool signal() override { return pthread_mutex_unlock(&block->mutex) == 0; }

private:
    int lockUntil(const timespec& when) {
        return pthread_mutex_clocklock(&block->mutex, CLOCK_MONOTONIC, &when);
    }

    SharedBlock* block;
};

/// Maps the block, and makes the mutex in it when nobody has; the file's lock lets one do so.
SharedBlock* mapBlock(int file) {
    if (::flock(file, LOCK_EX) != 0 || ::ftruncate(file, sizeof(SharedBlock)) != 0) return nullptr;
    void* mapped =
        ::mmap(nullptr, sizeof(SharedBlock), PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
    if (mapped == MAP_FAILED) return nullptr;
    auto* block = static_cast<SharedBlock*>(mapped);
    if (!block->ready && makeShared(block->mutex)) block->ready = 1;
    ::flock(file, LOCK_UN);
    return block;
}

std::unique_ptr<Waitable> openBlock(const char* name, int flags) {
    const int file = ::shm_open(blockName(name).c_str(), O_RDWR | O_CLOEXEC | flags, 0600);
    if (file < 0) return nullptr;
    SharedBlock* block = mapBlock(file);
    ::close(file);
    return block ? std::make_unique<NamedMutex>(block) : nullptr;
}

} // namespace

std::unique_ptr<Waitable> createNamedMutex(const char* name) { return openBlock(name, O_CREAT); }
std::unique_ptr<Waitable> openNamedMutex(const char* name) { return openBlock(name, 0); }

} // namespace platform
