// SPDX-License-Identifier: Apache-2.0
// Descriptors and streams of the runtime library. The flags and share modes are its own numbers.
#include "platform/file.h"

#include "platform/boundedread.h"
#include "platform/windows/widetext.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <io.h>
#include <memory>
#include <share.h>
#include <sys/stat.h>
#include <windows.h>

namespace platform {
namespace {

static_assert(open_flag::append == _O_APPEND && open_flag::sequential == _O_SEQUENTIAL &&
              open_flag::temporary == _O_TEMPORARY && open_flag::create == _O_CREAT &&
              open_flag::truncate == _O_TRUNC && open_flag::exclusive == _O_EXCL &&
              open_flag::text == _O_TEXT && open_flag::binary == _O_BINARY);
static_assert(share::denyReadWrite == _SH_DENYRW && share::denyNone == _SH_DENYNO);
static_assert(readWritePermission == (_S_IREAD | _S_IWRITE));

constexpr std::uint64_t transferLimit = 0x7FFFFFFF;
constexpr unsigned moveBytes = 0x40000;

unsigned cut(std::uint64_t lengthBytes) {
    return static_cast<unsigned>(std::min(lengthBytes, transferLimit));
}

/// -1 for what has no size.
std::int64_t leftBytes(Descriptor file) {
    const std::int64_t position = ::_telli64(file), size = ::_filelengthi64(file);
    return position < 0 || size < position ? -1 : size - position;
}

/// The library ends the process over a mode that isn't one.
template <class Unit> bool isMode(const Unit* mode) {
    if (*mode == 'r' || *mode == 'w' || *mode == 'a') return true;
    errno = EINVAL;
    return false;
}

/// The part in front of a comma, behind which an encoding stands.
template <class Unit> bool has(std::basic_string_view<Unit> mode, char letter) {
    return mode.substr(0, mode.find(Unit(','))).find(Unit(letter)) != mode.npos;
}

/// Not every version of the library knows the letter x.
template <class Unit> bool mustBeNew(const Unit* mode) {
    return *mode != 'r' && has<Unit>(mode, 'x');
}

template <class Unit> std::FILE* openNew(const Unit* path, std::basic_string_view<Unit> mode) {
    const bool appends = mode[0] == 'a', both = has(mode, '+'), binary = has(mode, 'b');
    const Descriptor file =
        open(path, open_flag::create | open_flag::exclusive | (appends ? open_flag::append : 0) |
                       (both ? open_flag::readWrite : open_flag::writeOnly) |
                       (binary ? open_flag::binary : open_flag::text) |
                       (has(mode, 'D') ? open_flag::temporary : 0));
    if (file < 0) return nullptr;
    const std::string plain =
        std::string(appends ? "a" : "w") + (both ? "+" : "") + (binary ? "b" : "t");
    std::FILE* stream = streamOf(file, plain.c_str());
    if (!stream) close(file);
    return stream;
}

/// The letters end at the first comma; an encoding may follow.
template <class Unit> std::basic_string<Unit> withoutInheritance(const Unit* mode) {
    std::basic_string<Unit> result(mode);
    return result.insert(std::min(result.find(Unit(',')), result.size()), 1, Unit('N'));
}

} // namespace

Descriptor open(const char16_t* path, std::int32_t flags, std::int32_t sharing,
                std::int32_t permission) {
    int file = -1;
    const int plain = flags | _O_NOINHERIT;
    return ::_wsopen_s(&file, wide(path), plain, sharing, permission) == 0 ? file : -1;
}

Descriptor open(const char* path, std::int32_t flags, std::int32_t sharing,
                std::int32_t permission) {
    int file = -1;
    const int plain = flags | _O_NOINHERIT;
    return ::_sopen_s(&file, given(path), plain, sharing, permission) == 0 ? file : -1;
}

std::int64_t read(Descriptor file, void* buffer, std::uint64_t lengthBytes) {
    return ::_read(file, buffer, cut(boundedRead(lengthBytes, [file] { return leftBytes(file); })));
}

std::int64_t write(Descriptor file, const void* buffer, std::uint64_t lengthBytes) {
    return ::_write(file, buffer, cut(lengthBytes));
}

std::int64_t seek(Descriptor file, std::int64_t offset, std::int32_t origin) {
    return ::_lseeki64(file, offset, origin);
}

/// The system has no such call; what comes from a disk goes in large blocks.
std::int64_t moveRange(Descriptor from, Descriptor to) {
    const auto handle = reinterpret_cast<HANDLE>(::_get_osfhandle(from));
    if (::GetFileType(handle) != FILE_TYPE_DISK) return 0;
    const auto block = std::make_unique_for_overwrite<char[]>(moveBytes);
    std::int64_t moved = 0;
    for (int got = 0; (got = ::_read(from, block.get(), moveBytes)) > 0; moved += got) {
        if (::_write(to, block.get(), static_cast<unsigned>(got)) != got) break;
    }
    return moved;
}

bool close(Descriptor file) { return ::_close(file) == 0; }

std::FILE* openStream(const char16_t* path, const char16_t* mode) {
    if (!isMode(mode)) return nullptr;
    if (mustBeNew(mode)) return openNew<char16_t>(path, mode);
    return ::_wfopen(wide(path), wide(withoutInheritance(mode).c_str()));
}

std::FILE* openStream(const char* path, const char* mode) {
    if (!isMode(mode)) return nullptr;
    if (mustBeNew(mode)) return openNew<char>(given(path), mode);
    return std::fopen(given(path), withoutInheritance(mode).c_str());
}

std::FILE* reopenStream(const char16_t* path, const char16_t* mode, std::FILE* stream) {
    if (!isMode(mode)) {
        std::fclose(stream);
        return nullptr;
    }
    return ::_wfreopen(wide(path), wide(withoutInheritance(mode).c_str()), stream);
}

std::FILE* streamOf(Descriptor file, const char* mode) {
    return isMode(mode) ? ::_fdopen(file, mode) : nullptr;
}

bool seekStream(std::FILE* stream, std::int64_t offset, std::int32_t origin) {
    return ::_fseeki64(stream, offset, origin) == 0;
}

std::int64_t tellStream(std::FILE* stream) { return ::_ftelli64(stream); }

/// The library minds the letter.
bool commitStream(std::FILE* stream) { return std::fflush(stream) == 0; }

std::int64_t nextData(std::FILE*, std::int64_t offset) { return offset; }

} // namespace platform
