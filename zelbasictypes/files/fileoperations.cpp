// SPDX-License-Identifier: Apache-2.0
// Copying and naming files, and the platform's calls on wide paths.
#include "zelbasictypes/files/fileoperations.h"

#include "component/objects/services/idatastore.h"
#include "component/objects/sptr.h"
#include "platform/clock.h"
#include "zelbasictypes/files/filedevice.h"
#include "zelbasictypes/files/pathoperations.h"
#include "zelbasictypes/files/zelopenmode.h"

#include <algorithm>

namespace {

class OpenFile {
public:
    template <class Path>
    OpenFile(const Path& path, std::int32_t mode)
        : fd(zeldevice::open(path, zeldevice::flagsOf(mode))) {}
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;
    ~OpenFile() {
        if (fd != -1) platform::close(fd);
    }
    explicit operator bool() const { return fd != -1; }

    const std::int32_t fd;
};

/// When the copying of one file is over.
enum class Ending { atShortRead, whenNothingMoves };

/// The system moves what it can, and the rest goes through here. A source that has less than a
/// block just now, such as a pipe, ends the one copy and is waited for in the other.
void copyContents(const OpenFile& from, const OpenFile& to, Ending ending) {
    platform::moveRange(from.fd, to.fd);
    char block[2048];
    std::int64_t got = 0;
    std::int64_t put = 0;
    do {
        got = zeldevice::read(from.fd, block, sizeof block);
        if (got > 0) put = zeldevice::write(to.fd, block, got);
    } while (ending == Ending::atShortRead ? got == sizeof block : got > 0 && put > 0);
}

bool isSameFile(const KorString& a, const KorString& b) {
    return platform::isSameFile(a.c_str(), b.c_str());
}

bool isSameFile(const char* a, const char* b) { return platform::isSameFile(a, b); }

template <class Path> bool copyOne(const Path& from, const Path& to, Ending ending) {
    const OpenFile source(from, zelmode::readBinary);
    if (!source) return false;
    if (isSameFile(from, to)) return true;
    const OpenFile target(to, zelmode::writeBinary);
    if (!target) return false;
    copyContents(source, target, ending);
    return true;
}

} // namespace

std::int32_t accessPath(const KorString& path, std::int32_t mode) {
    return platform::access(path.c_str(), mode);
}

std::int32_t statPath(const KorString& path, platform::FileStatus* record) {
    return platform::stat(path.c_str(), record);
}

void unlinkPath(const KorString& path) { platform::unlink(path.c_str()); }

bool makeDirectoryOnce(const KorString& path) { return platform::makeDirectory(path.c_str()) == 0; }

bool makeDirectoryOnce(const char* path) { return platform::makeDirectory(path) == 0; }

bool writeChunked(const void* data, std::FILE* file, std::int64_t total, std::int64_t chunk) {
    const char* from = static_cast<const char*>(data);
    while (total > 0) {
        if (chunk < 1) return false;
        const auto piece = static_cast<std::size_t>(std::min(total, chunk));
        if (std::fwrite(from, 1, piece, file) != piece) return false;
        from += piece;
        total -= static_cast<std::int64_t>(piece);
    }
    return true;
}

bool copyFile(const KorString& from, const KorString& to) {
    return copyOne(from, to, Ending::atShortRead);
}

bool copyFile(const char* from, const char* to) {
    if (!from || !to || !*from || !*to) return false;
    return copyOne(from, to, Ending::whenNothingMoves);
}

bool makeTempName(KorString& out) {
    out = KorString();
    if (const SPtr<IDataStore> settings; settings) {
        const KorString* configured = settings->getString("Directories/Temp Directory", nullptr);
        if (configured) out = *configured;
    }
    if (out.isEmpty()) withDriveRoot(zelDirectory("temp"), out);
    char name[32];
    std::snprintf(name, sizeof name, "\\zel-%08x-%08x-temp", unsigned{platform::processId()},
                  static_cast<unsigned>(platform::performanceCounter()));
    out.append(name);
    return true;
}
