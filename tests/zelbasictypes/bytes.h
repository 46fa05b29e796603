// SPDX-License-Identifier: Apache-2.0
// Bytes as tests write them down.
#pragma once

#include <cctype>
#include <cstdint>
#include <string>
#include <vector>

using Bytes = std::vector<std::uint8_t>;

/// From pairs of hexadecimal digits; blanks and line ends count for nothing, and what stands behind
/// a "#" in a line is a remark.
inline Bytes bytes(const std::string& text) {
    Bytes result;
    std::string digits;
    bool remark = false;
    for (const char c : text) {
        remark = (remark || c == '#') && c != '\n';
        if (remark || std::isspace(static_cast<unsigned char>(c))) continue;
        digits += c;
        if (digits.size() < 2) continue;
        result.push_back(static_cast<std::uint8_t>(std::stoi(digits, nullptr, 16)));
        digits.clear();
    }
    return result;
}
