// SPDX-License-Identifier: Apache-2.0
// Encoding and decoding of UTF-8, runs of ASCII at once and the rest unit by unit.
#include "zelbasictypes/text/utf8.h"

#include "zelbasictypes/text/asciirun.h"
#include "zelbasictypes/text/utf8blocks.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>

namespace zeltext {

namespace {

/// Units that are encoded in one go when not all are ASCII.
constexpr std::size_t group = 16;

static_assert(std::endian::native == std::endian::little);

/// What units become, without a branch: the first byte lowest, so that storing a number puts it in
/// front.
struct Encoded {
    std::uint32_t bytes[group];
    std::uint32_t lengths[group];

    explicit Encoded(const char16_t* units) {
        for (std::size_t i = 0; i < group; ++i) {
            const std::uint32_t unit = units[i], last = (0x80 | (unit & 0x3F));
            const std::uint32_t two = 0xC0 | unit >> 6 | last << 8;
            const std::uint32_t three = 0x80E0 | unit >> 12 | (unit >> 6 & 0x3F) << 8 | last << 16;
            const std::uint32_t more = unit >= 0x800 ? three : two;
            bytes[i] = unit >= 0x80 ? more : unit;
            lengths[i] = 1 + (unit >= 0x80) + (unit >= 0x800);
        }
    }
};

char* encodeGroup(const char16_t* units, char* to) {
    const Encoded encoded(units);
    for (std::size_t i = 0; i < group; ++i) {
        std::memcpy(to, &encoded.bytes[i], sizeof encoded.bytes[i]);
        to += encoded.lengths[i];
    }
    return to;
}

/// The last units, which aren't followed by the room that storing a group takes.
char* encodeTail(const char16_t* at, const char16_t* end, char* to) {
    while (at != end) {
        const auto count = std::min(group, static_cast<std::size_t>(end - at));
        char16_t units[group] = {};
        std::memcpy(units, at, count * sizeof *at);
        char bytes[3 * group + 1];
        const auto unused = group - count;
        const auto length = static_cast<std::size_t>(encodeGroup(units, bytes) - bytes) - unused;
        std::memcpy(to, bytes, length);
        to += length;
        at += count;
    }
    return to;
}

char* encodeByGroups(std::u16string_view text, char* to) {
    constexpr std::ptrdiff_t least = group + 3;
    const char16_t *at = text.data(), *end = at + text.size();
    while (end - at >= least) {
        const std::size_t run = copyAsciiRun(at, static_cast<std::size_t>(end - at), to);
        to += run;
        at += run;
        if (end - at < least) break;
        to = encodeGroup(at, to);
        at += group;
    }
    return encodeTail(at, end, to);
}

/// Decodes from `at` up to the next ASCII byte, which it gives back; null at a bad sequence.
const unsigned char* decodeForeign(const unsigned char* at, const unsigned char* end,
                                   char16_t*& to) {
    while (at != end && *at >= 0x80) {
        const auto bits = [at](int i) { return static_cast<unsigned>(at[i] & 0x3F); };
        if (*at < 0xC0) {
            *to++ = *at++ & 0x7F;
        } else if (*at < 0xE0) {
            if (end - at < 2 || *at < 0xC2) return nullptr;
            *to++ = static_cast<char16_t>((*at & 0x1F) << 6 | bits(1));
            at += 2;
        } else {
            if (end - at < 3 || *at >= 0xF0) return nullptr;
            const unsigned unit = (*at & 0x0Fu) << 12 | bits(1) << 6 | bits(2);
            if (unit < 0x800) return nullptr;
            *to++ = static_cast<char16_t>(unit);
            at += 3;
        }
    }
    return at;
}

} // namespace

std::size_t encodeUtf8(std::u16string_view text, char* to) {
    char* end = encodeWhole(text, to);
    if (!end) end = encodeByGroups(text, to);
    *end = 0;
    return static_cast<std::size_t>(end - to);
}

bool decodeUtf8(std::string_view bytes, char16_t* to) {
    const char* at = bytes.data();
    const auto* end = reinterpret_cast<const unsigned char*>(at + bytes.size());
    const auto* rest = reinterpret_cast<const unsigned char*>(at);
    while (rest != end) {
        at = reinterpret_cast<const char*>(rest);
        const std::size_t run = copyAsciiRun(at, static_cast<std::size_t>(end - rest), to);
        to += run;
        rest = decodeForeign(rest + run, end, to);
        if (!rest) return false;
    }
    *to = 0;
    return true;
}

} // namespace zeltext
