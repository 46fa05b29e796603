// SPDX-License-Identifier: Apache-2.0
// Limits, the end of the process, and what it is.
#include "platform/process.h"

#include "platform/posix/pathbytes.h"

#include <sys/resource.h>
#include <unistd.h>

// The address sanitizer keeps terabytes of addresses for itself, so that a limit would leave none.
#if defined(__SANITIZE_ADDRESS__)
#define ADDRESS_SPACE_IS_TAKEN
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define ADDRESS_SPACE_IS_TAKEN
#endif
#endif

namespace platform {
namespace {

bool setLimit(int resource, rlim_t value) {
    rlimit limit{};
    const auto which = static_cast<__rlimit_resource>(resource);
    if (::getrlimit(which, &limit) != 0) return false;
    limit.rlim_cur = value;
    return ::setrlimit(which, &limit) == 0;
}

} // namespace

#ifdef ADDRESS_SPACE_IS_TAKEN
bool limitMemory(std::uint64_t) { return true; }
#else
bool limitMemory(std::uint64_t bytes) { return !bytes || setLimit(RLIMIT_AS, bytes); }
#endif
bool limitProcessorTime(std::uint32_t seconds) { return !seconds || setLimit(RLIMIT_CPU, seconds); }

void exitNow(std::int32_t exitCode) { ::_exit(exitCode); }

std::u16string executablePath() {
    std::string path(4096, '\0');
    const ssize_t length = ::readlink("/proc/self/exe", path.data(), path.size());
    if (length <= 0) return {};
    path.resize(static_cast<std::size_t>(length));
    return unitsOfPath(path);
}

std::vector<std::string> commandLine(int count, char** words) { return {words, words + count}; }

} // namespace platform
