// SPDX-License-Identifier: Apache-2.0
// Streams of the runtime library, and the opening that waits for its turn.
#include "zelbasictypes/files/fileoperations.h"

#include "platform/clock.h"
#include "platform/file.h"
#include "zelbasictypes/text/korcstring.h"

#include <algorithm>
#include <string_view>

namespace {

std::int32_t lonelyFlags(std::string_view mode) {
    namespace flag = platform::open_flag;
    std::int32_t flags = flag::sequential;
    flags |= mode.starts_with('w') ? flag::writeOnly | flag::create : flag::readOnly;
    if (mode.size() > 1 && mode[1] == 'b') flags |= flag::binary;
    return flags;
}

void waitFor(double seconds) {
    constexpr double longest = 4294967294; // a millisecond below what the target takes for ever
    platform::sleep(static_cast<std::uint32_t>(std::min(seconds * 1000 + 0.5, longest)));
}

std::FILE* streamOf(platform::Descriptor file, const char* mode) {
    std::FILE* stream = platform::streamOf(file, mode);
    if (!stream) platform::close(file);
    return stream;
}

template <class Path> std::FILE* openAlone(Path path, const char* mode, double retrySeconds) {
    if (!path || !*path || !mode) return nullptr;
    const bool waits = *mode != 'w' && retrySeconds > 0;
    for (;;) {
        const platform::Descriptor file =
            platform::open(path, lonelyFlags(mode), platform::share::denyReadWrite);
        if (file != -1) return streamOf(file, mode);
        if (!waits) return nullptr;
        waitFor(retrySeconds);
    }
}

} // namespace

std::FILE* zelOpenFile(const KorString& path, const char* mode) {
    if (path.isEmpty() || !mode) return nullptr;
    return platform::openStream(path.c_str(), KorString(mode).c_str());
}

std::FILE* zelReopenFile(const KorString& path, const char* mode, std::FILE* file) {
    return platform::reopenStream(path.c_str(), KorString(mode).c_str(), file);
}

std::FILE* zelOpenFileRetry(const KorString& path, const char* mode, double retrySeconds) {
    return openAlone(path.c_str(), mode, retrySeconds);
}

std::FILE* zelOpenFileRetry(const char* path, const char* mode, double retrySeconds) {
    return openAlone(path, mode, retrySeconds);
}
