// SPDX-License-Identifier: Apache-2.0
// Sequences byte by byte.
#include "platform/posix/utf8bytes.h"

namespace platform {
namespace {

unsigned byteAt(std::string_view s, std::size_t i) { return static_cast<unsigned char>(s[i]); }

std::size_t lengthByLead(unsigned lead) {
    if (lead < 0x80) return 1;
    if (lead < 0xC2 || lead > 0xF4) return 0;
    return lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
}

bool areTails(std::string_view s, std::size_t from, std::size_t to) {
    for (std::size_t k = from; k < to; ++k) {
        if ((byteAt(s, k) & 0xC0) != 0x80) return false;
    }
    return true;
}

/// Overlong, a surrogate, or past the last code point.
bool isBadStart(unsigned lead, unsigned second) {
    return (lead == 0xE0 && second < 0xA0) || (lead == 0xED && second >= 0xA0) ||
           (lead == 0xF0 && second < 0x90) || (lead == 0xF4 && second >= 0x90);
}

} // namespace

std::size_t utf8Length(std::string_view bytes, std::size_t i) {
    const unsigned lead = byteAt(bytes, i);
    const std::size_t length = lengthByLead(lead);
    if (length < 2) return length;
    if (i + length > bytes.size() || !areTails(bytes, i + 1, i + length)) return 0;
    return isBadStart(lead, byteAt(bytes, i + 1)) ? 0 : length;
}

char32_t utf8Decode(std::string_view bytes, std::size_t i, std::size_t length) {
    if (length == 1) return byteAt(bytes, i);
    char32_t c = byteAt(bytes, i) & (0xFFu >> (length + 1));
    for (std::size_t k = 1; k < length; ++k) c = (c << 6) | (byteAt(bytes, i + k) & 0x3F);
    return c;
}

char32_t surrogateForm(std::string_view bytes, std::size_t i) {
    if (i + 3 > bytes.size() || byteAt(bytes, i) != 0xED || byteAt(bytes, i + 1) < 0xA0) return 0;
    return areTails(bytes, i + 1, i + 3) ? utf8Decode(bytes, i, 3) : 0;
}

void utf8Append(std::string& out, char32_t c) {
    const auto put = [&out](char32_t byte) { out += static_cast<char>(byte); };
    const auto tail = [&put, c](int shift) { put(0x80 | ((c >> shift) & 0x3F)); };
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

} // namespace platform
