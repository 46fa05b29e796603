// SPDX-License-Identifier: Apache-2.0
// Streams of the runtime library, opened as descriptors are, so that share modes hold for them.
#include "platform/posix/openfile.h"
#include "platform/posix/pathbytes.h"
#include "platform/posix/temporaryfiles.h"

#include <cerrno>
#include <fcntl.h>
#include <string_view>
#include <sys/file.h>
#include <unistd.h>

namespace platform {
namespace {

/// The part in front of a comma, behind which the target names an encoding.
std::string_view lettersOf(std::string_view mode) { return mode.substr(0, mode.find(',')); }

bool has(std::string_view mode, char letter) { return lettersOf(mode).find(letter) != mode.npos; }

/// The letters that the target's library knows and this one doesn't.
std::int32_t extraFlags(std::string_view mode) {
    return (has(mode, 'x') ? open_flag::exclusive : 0) |
           (has(mode, 'D') ? open_flag::temporary : 0) |
           (has(mode, 'S') ? open_flag::sequential : 0);
}

/// -1 for a mode that isn't one.
std::int32_t baseFlags(std::string_view mode) {
    const bool both = has(mode, '+');
    const std::int32_t writing = both ? open_flag::readWrite : open_flag::writeOnly;
    switch (mode.empty() ? ' ' : mode[0]) {
    case 'r':
        return both ? open_flag::readWrite : open_flag::readOnly;
    case 'w':
        return writing | open_flag::create | open_flag::truncate;
    case 'a':
        return writing | open_flag::create | open_flag::append;
    default:
        return -1;
    }
}

Descriptor openFor(const std::string& path, const char* mode) {
    const std::int32_t flags = baseFlags(mode);
    if (flags >= 0) {
        return openSystem(path, flags | extraFlags(mode), share::denyNone, readWritePermission);
    }
    errno = EINVAL;
    return -1;
}

/// What the runtime library understands: one letter and perhaps the plus.
std::string systemMode(std::string_view mode) {
    std::string result(mode.substr(0, 1));
    if (has(mode, '+')) result += '+';
    return result + 'e';
}

/// What a descriptor allows, for a mode that asks for more: this system refuses such a stream, the
/// target makes it.
const char* ownMode(Descriptor file) {
    return (::fcntl(file, F_GETFL) & O_ACCMODE) == O_WRONLY ? "we" : "re";
}

std::FILE* openPath(const std::string& path, const char* mode) {
    const Descriptor file = openFor(path, mode);
    if (file < 0) return nullptr;
    std::FILE* stream = streamOf(file, mode);
    if (!stream) close(file);
    return stream;
}

/// A first opening of the new file gets the lock and keeps it until the stream has its own. The
/// stream gives its lock up before: it may be on that very file.
std::FILE* reopenPath(const std::string& path, const char* mode, std::FILE* stream) {
    ::flock(::fileno(stream), LOCK_UN);
    const Descriptor file = openFor(path, mode);
    if (file < 0) {
        const int reason = errno;
        std::fclose(stream);
        errno = reason;
        return nullptr;
    }
    std::FILE* result = std::freopen(path.c_str(), systemMode(mode).c_str(), stream);
    if (result) ::flock(::fileno(result), LOCK_SH | LOCK_NB);
    close(file);
    return result;
}

} // namespace

std::FILE* openStream(const char16_t* path, const char16_t* mode) {
    return openPath(systemPath(path), bytesOf(mode).c_str());
}

std::FILE* openStream(const char* path, const char* mode) {
    return openPath(systemPath(path), mode);
}

std::FILE* reopenStream(const char16_t* path, const char16_t* mode, std::FILE* stream) {
    return reopenPath(systemPath(path), bytesOf(mode).c_str(), stream);
}

std::FILE* streamOf(Descriptor file, const char* mode) {
    std::FILE* stream = ::fdopen(file, systemMode(mode).c_str());
    if (!stream && errno == EINVAL && baseFlags(mode) >= 0) stream = ::fdopen(file, ownMode(file));
    if (stream) unlinkTemporary(file);
    return stream;
}

bool seekStream(std::FILE* stream, std::int64_t offset, std::int32_t origin) {
    return ::fseeko(stream, offset, origin) == 0;
}

std::int64_t tellStream(std::FILE* stream) { return ::ftello(stream); }

bool commitStream(std::FILE* stream) {
    if (std::fflush(stream) != 0) return false;
    int result = 0;
    do {
        result = ::fdatasync(::fileno(stream));
    } while (result != 0 && errno == EINTR);
    return result == 0 || errno == EINVAL || errno == EROFS;
}

std::int64_t nextData(std::FILE* stream, std::int64_t offset) {
    const int file = ::fileno(stream);
    const off_t before = ::lseek(file, 0, SEEK_CUR);
    const off_t found = ::lseek(file, offset, SEEK_DATA);
    const bool onlyHole = found < 0 && errno == ENXIO;
    ::lseek(file, before, SEEK_SET);
    return found >= 0 || onlyHole ? found : offset;
}

} // namespace platform
