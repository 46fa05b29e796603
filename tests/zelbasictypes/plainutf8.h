// SPDX-License-Identifier: Apache-2.0
// UTF-8 decoding of single units byte by byte, as slow and as plain as can be: what the library's
// decoder is compared with.
#pragma once

#include <optional>
#include <string>

namespace plain {

/// Takes one sequence off the front of `bytes`; nothing when it is bad.
inline std::optional<char16_t> takeUnit(std::string& bytes) {
    const auto byte = [&bytes](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
    const unsigned lead = byte(0);
    const std::size_t length = lead < 0xC0 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    if (length > 3 || bytes.size() < length) return std::nullopt;
    unsigned value = length == 1 ? lead & 0x7F : length == 2 ? lead & 0x1F : lead & 0x0F;
    for (std::size_t i = 1; i < length; ++i) value = value << 6 | (byte(i) & 0x3F);
    if ((length == 2 && value < 0x80) || (length == 3 && value < 0x800)) return std::nullopt;
    bytes.erase(0, length);
    return static_cast<char16_t>(value);
}

/// What lies in front of the first terminator, of the bytes and of what they become; the empty text
/// when any sequence is bad.
inline std::u16string fromUtf8(std::string bytes) {
    bytes = bytes.c_str();
    std::u16string text;
    while (!bytes.empty()) {
        const std::optional<char16_t> unit = takeUnit(bytes);
        if (!unit) return {};
        text += *unit;
    }
    return text.c_str();
}

inline std::string toUtf8(const std::u16string& text) {
    std::string bytes;
    const auto add = [&bytes](unsigned value) { bytes += static_cast<char>(value); };
    for (const unsigned unit : text) {
        if (unit < 0x80) {
            add(unit);
        } else if (unit < 0x800) {
            add(0xC0 + unit / 64), add(0x80 + unit % 64);
        } else {
            add(0xE0 + unit / 4096), add(0x80 + unit / 64 % 64), add(0x80 + unit % 64);
        }
    }
    return bytes;
}

} // namespace plain
