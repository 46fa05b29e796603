// SPDX-License-Identifier: Apache-2.0
// Encoding and decoding of UTF-8, runs of ASCII at once and the rest unit by unit.
#include "zelbasictypes/text/utf8.h"

#include "zelbasictypes/text/asciirun.h"

namespace zeltext {

namespace {

char* encodeUnit(unsigned unit, char* to) {
    const auto follow = [](unsigned bits) { return static_cast<char>(0x80 | (bits & 0x3F)); };
    if (unit < 0x800) {
        *to++ = static_cast<char>(0xC0 | unit >> 6);
    } else {
        *to++ = static_cast<char>(0xE0 | unit >> 12);
        *to++ = follow(unit >> 6);
    }
    *to++ = follow(unit);
    return to;
}

/// The bytes of the sequence that `lead` opens; 0 for those that stand for more than 16 bits.
std::size_t sequenceLength(unsigned char lead) {
    return lead < 0xC0 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 0;
}

/// The value of a sequence of 1 to 3 bytes, or -1 when a shorter one would have done.
int sequenceValue(const char* bytes, std::size_t length) {
    const auto follow = [bytes](std::size_t i) { return bytes[i] & 0x3F; };
    if (length == 1) return bytes[0] & 0x7F;
    const int two = (bytes[0] & 0x1F) << 6 | follow(1);
    if (length == 2) return two < 0x80 ? -1 : two;
    const int three = (bytes[0] & 0x0F) << 12 | follow(1) << 6 | follow(2);
    return three < 0x800 ? -1 : three;
}

} // namespace

std::size_t utf8Length(std::u16string_view text) {
    std::size_t length = text.size();
    for (std::size_t i = 0; i < text.size(); ++i) {
        i += asciiRun(text.data() + i, text.size() - i);
        for (; i < text.size() && text[i] >= 0x80; ++i) length += text[i] < 0x800 ? 1 : 2;
    }
    return length;
}

void encodeUtf8(std::u16string_view text, char* to) {
    while (!text.empty()) {
        const std::size_t run = copyAsciiRun(text.data(), text.size(), to);
        to += run;
        text.remove_prefix(run);
        for (; !text.empty() && text.front() >= 0x80; text.remove_prefix(1))
            to = encodeUnit(text.front(), to);
    }
    *to = 0;
}

bool decodeUtf8(std::string_view bytes, char16_t* to) {
    while (!bytes.empty()) {
        const std::size_t run = copyAsciiRun(bytes.data(), bytes.size(), to);
        to += run;
        bytes.remove_prefix(run);
        while (!bytes.empty() && static_cast<unsigned char>(bytes.front()) >= 0x80) {
            const std::size_t length = sequenceLength(static_cast<unsigned char>(bytes.front()));
            if (length == 0 || length > bytes.size()) return false;
            const int value = sequenceValue(bytes.data(), length);
            if (value < 0) return false;
            *to++ = static_cast<char16_t>(value);
            bytes.remove_prefix(length);
        }
    }
    *to = 0;
    return true;
}

} // namespace zeltext
