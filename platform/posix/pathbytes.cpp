// SPDX-License-Identifier: Apache-2.0
// The reversible mapping between names of this system and UTF-16, and the mapping of drives.
#include "platform/posix/pathbytes.h"

#include "platform/file.h"
#include "platform/posix/utf8bytes.h"

#include <algorithm>
#include <cstdlib>

namespace platform {
namespace {

constexpr char16_t backslashUnit = 0xDC5C;

bool isHigh(char32_t c) { return c >= 0xD800 && c < 0xDC00; }
bool isLow(char32_t c) { return c >= 0xDC00 && c < 0xE000; }
bool isByteUnit(char32_t c) { return (c >= 0xDC80 && c <= 0xDCFF) || c == backslashUnit; }

/// Writes one or two units and returns the place behind them.
char16_t* putUnits(char16_t* to, char32_t c) {
    if (c >= 0x10000) {
        *to++ = static_cast<char16_t>(0xD7C0 + (c >> 10));
        c = 0xDC00 | (c & 0x3FF);
    }
    *to++ = static_cast<char16_t>(c);
    return to;
}

/// Reads bytes from the back to the front, since a high surrogate may stand only where no low one
/// follows, and what follows is known first that way.
class UnitReader {
public:
    UnitReader(std::string_view source, bool isPath) : bytes(source), path(isPath) {}

    std::u16string read() {
        std::u16string reversed;
        for (std::size_t end = bytes.size(); end > 0;) {
            const std::size_t length = step(end);
            std::u16string units = unitsAt(end - length, length);
            reversed.append(units.rbegin(), units.rend());
            lowFollows = isLow(units.front());
            end -= length;
        }
        return {reversed.rbegin(), reversed.rend()};
    }

private:
    /// The length of the sequence that ends at `end`: a valid one, a surrogate's form, or one byte.
    std::size_t step(std::size_t end) const {
        for (std::size_t length = 2; length <= 4 && length <= end; ++length) {
            if (utf8Length(bytes, end - length) == length) return length;
        }
        return end >= 3 && isSurrogateForm(end - 3) ? 3 : 1;
    }
    bool isSurrogateForm(std::size_t i) const {
        const char32_t c = surrogateForm(bytes, i);
        return c && !isByteUnit(c) && !(isHigh(c) && lowFollows);
    }
    std::u16string unitsAt(std::size_t i, std::size_t length) const {
        if (length == 1) return {unitOf(static_cast<unsigned char>(bytes[i]))};
        char16_t units[2];
        return {units, putUnits(units, utf8Decode(bytes, i, length))};
    }
    char16_t unitOf(unsigned char byte) const {
        if (byte >= 0x80) return static_cast<char16_t>(0xDC00 | byte);
        if (path && byte == '\\') return backslashUnit;
        if (path && byte == '/') return u'\\';
        return byte;
    }

    std::string_view bytes;
    bool path;
    bool lowFollows = false;
};

/// Most names are plain UTF-8, which is read in one run from the front. False, with nothing of use
/// in `units`, for a name that needs the reader above.
bool readPlain(std::string_view path, std::u16string& units) {
    units.resize(path.size()); // never fewer bytes than units
    char16_t* to = units.data();
    for (std::size_t i = 0; i < path.size();) {
        const auto byte = static_cast<unsigned char>(path[i]);
        if (byte < 0x80) {
            if (byte == '\\') return false;
            *to++ = byte == '/' ? u'\\' : byte;
            ++i;
            continue;
        }
        const std::size_t length = utf8Length(path, i);
        if (length == 0) return false;
        to = putUnits(to, utf8Decode(path, i, length));
        i += length;
    }
    units.resize(static_cast<std::size_t>(to - units.data()));
    return true;
}

bool isLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

std::string driveDirectory(char letter) {
    const char upper = static_cast<char>(letter & ~0x20);
    const char* directory = std::getenv((std::string("ZEL_DRIVE_") + upper).c_str());
    return directory ? directory : "";
}

/// Puts the directory of a drive in front; "c:name" means "name" below that directory.
std::string withoutDrive(std::string path) {
    if (path.size() < 2 || path[1] != ':' || !isLetter(path[0])) return path;
    std::string rest = path.substr(2);
    if (rest.empty() || rest[0] != '/') rest.insert(0, 1, '/');
    return driveDirectory(path[0]) + rest;
}

} // namespace

std::string bytesOf(std::u16string_view units) {
    std::string out;
    out.reserve(units.size());
    for (std::size_t i = 0; i < units.size(); ++i) {
        char32_t c = units[i];
        if (isHigh(c) && i + 1 < units.size() && isLow(units[i + 1])) {
            c = 0x10000 + ((c & 0x3FF) << 10) + (units[++i] & 0x3FFu);
        }
        if (isByteUnit(c)) {
            out += static_cast<char>(c & 0xFF);
        } else {
            utf8Append(out, c);
        }
    }
    return out;
}

std::u16string unitsOf(std::string_view bytes) { return UnitReader(bytes, false).read(); }

std::u16string unitsOfPath(std::string_view path) {
    std::u16string units;
    readUnitsOfPath(path, units);
    return units;
}

void readUnitsOfPath(std::string_view path, std::u16string& units) {
    if (!readPlain(path, units)) units = UnitReader(path, true).read();
}

std::u16string widePath(const char* path) { return unitsOf(path); }

std::string systemPath(std::u16string_view path) {
    std::u16string slashed(path);
    std::replace(slashed.begin(), slashed.end(), u'\\', u'/');
    return withoutDrive(bytesOf(slashed));
}

std::string systemPath(const char* path) {
    std::string slashed(path ? path : "");
    std::replace(slashed.begin(), slashed.end(), '\\', '/');
    return withoutDrive(slashed);
}

std::u16string nativePath(std::u16string_view path) { return unitsOf(systemPath(path)); }

std::u16string libraryPath(std::u16string_view path) {
    std::u16string result(path);
    std::replace(result.begin(), result.end(), u'/', u'\\');
    return result;
}

} // namespace platform
