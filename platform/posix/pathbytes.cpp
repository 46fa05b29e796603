// SPDX-License-Identifier: Apache-2.0
// The reversible mapping between names of this system and UTF-16, and the mapping of drives.
#include "platform/posix/pathbytes.h"

#include "platform/file.h"

#include <algorithm>
#include <cstdlib>

namespace platform {
namespace {

bool isHigh(char32_t c) { return c >= 0xD800 && c < 0xDC00; }
bool isLow(char32_t c) { return c >= 0xDC00 && c < 0xE000; }
bool isByteUnit(char32_t c) { return c >= 0xDC80 && c <= 0xDCFF; }

void appendUtf8(std::string& out, char32_t c) {
    const auto put = [&out](char32_t byte) { out += static_cast<char>(byte); };
    const auto tail = [&](int shift) { put(0x80 | ((c >> shift) & 0x3F)); };
    if (c < 0x80) return put(c);
    if (c < 0x800) {
        put(0xC0 | (c >> 6));
    } else if (c < 0x10000) {
        put(0xE0 | (c >> 12));
        tail(6);
    } else {
        put(0xF0 | (c >> 18));
        tail(12);
        tail(6);
    }
    tail(0);
}

unsigned byteAt(std::string_view s, std::size_t i) { return static_cast<unsigned char>(s[i]); }

/// The length of the valid sequence at `i`, or 0. Surrogates and overlong forms are not valid.
std::size_t sequenceLength(std::string_view s, std::size_t i) {
    const unsigned lead = byteAt(s, i);
    if (lead < 0x80) return 1;
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || i + length > s.size()) return 0;
    for (std::size_t k = 1; k < length; ++k) {
        if ((byteAt(s, i + k) & 0xC0) != 0x80) return 0;
    }
    const unsigned second = byteAt(s, i + 1);
    const bool bad = (lead == 0xE0 && second < 0xA0) || (lead == 0xED && second >= 0xA0) ||
                     (lead == 0xF0 && second < 0x90) || (lead == 0xF4 && second >= 0x90);
    return bad ? 0 : length;
}

char32_t decode(std::string_view s, std::size_t i, std::size_t length) {
    if (length == 1) return byteAt(s, i);
    char32_t c = byteAt(s, i) & (0xFFu >> (length + 1));
    for (std::size_t k = 1; k < length; ++k) c = (c << 6) | (byteAt(s, i + k) & 0x3F);
    return c;
}

/// The lone surrogate that stands at `i` in its three-byte form, or 0.
char32_t loneSurrogate(std::string_view s, std::size_t i) {
    if (i + 3 > s.size() || byteAt(s, i) != 0xED || byteAt(s, i + 1) < 0xA0) return 0;
    if (byteAt(s, i + 1) > 0xBF || (byteAt(s, i + 2) & 0xC0) != 0x80) return 0;
    return decode(s, i, 3);
}

/// Whether the form at `i` is to be read as a surrogate. One that stands for a byte never is, and a
/// high one not where the unit behind it would make a pair of the two.
bool isSurrogateForm(std::string_view s, std::size_t i) {
    const char32_t c = loneSurrogate(s, i);
    if (!isHigh(c)) return c && !isByteUnit(c);
    while (isHigh(loneSurrogate(s, i))) i += 3;
    return i == s.size() || sequenceLength(s, i);
}

void appendUnits(std::u16string& out, char32_t c) {
    if (c >= 0x10000) {
        out += static_cast<char16_t>(0xD7C0 + (c >> 10));
        out += static_cast<char16_t>(0xDC00 | (c & 0x3FF));
    } else {
        out += static_cast<char16_t>(c);
    }
}

bool isLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

std::string driveDirectory(char letter) {
    const char upper = static_cast<char>(letter & ~0x20);
    const char* directory = std::getenv((std::string("ZEL_DRIVE_") + upper).c_str());
    return directory ? directory : "";
}

/// Slashes, and the directory of a drive in front; "c:name" means "name" below that directory.
std::string toSystem(std::string path) {
    std::replace(path.begin(), path.end(), '\\', '/');
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
            appendUtf8(out, c);
        }
    }
    return out;
}

std::u16string unitsOf(std::string_view bytes) {
    std::u16string out;
    out.reserve(bytes.size());
    for (std::size_t i = 0; i < bytes.size();) {
        std::size_t length = sequenceLength(bytes, i);
        if (!length && isSurrogateForm(bytes, i)) length = 3;
        if (length) {
            appendUnits(out, decode(bytes, i, length));
            i += length;
        } else {
            out += static_cast<char16_t>(0xDC00 | byteAt(bytes, i++));
        }
    }
    return out;
}

std::string systemPath(const char16_t* path) { return toSystem(bytesOf(path)); }
std::string systemPath(const char* path) { return toSystem(path); }

std::u16string nativePath(std::u16string_view path) { return unitsOf(toSystem(bytesOf(path))); }

std::u16string libraryPath(std::u16string_view path) {
    std::u16string result(path);
    std::replace(result.begin(), result.end(), u'/', u'\\');
    return result;
}

} // namespace platform
