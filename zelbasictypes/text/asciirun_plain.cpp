// SPDX-License-Identifier: Apache-2.0
// Copying runs of ASCII unit by unit, on processors that we don't know better.
#include "zelbasictypes/text/asciirun.h"

namespace zeltext {

std::size_t copyAsciiRun(const char* from, std::size_t count, char16_t* to) {
    std::size_t i = 0;
    for (; i < count && static_cast<unsigned char>(from[i]) < 0x80; ++i)
        to[i] = static_cast<unsigned char>(from[i]);
    return i;
}

std::size_t copyAsciiRun(const char16_t* from, std::size_t count, char* to) {
    std::size_t i = 0;
    for (; i < count && from[i] < 0x80; ++i) to[i] = static_cast<char>(from[i]);
    return i;
}

std::size_t asciiRun(const char16_t* text, std::size_t count) {
    std::size_t i = 0;
    while (i < count && text[i] < 0x80) ++i;
    return i;
}

std::size_t utf8Length(const char16_t* text, std::size_t count) {
    std::size_t length = count;
    for (std::size_t i = 0; i < count; ++i) length += (text[i] >= 0x80) + (text[i] >= 0x800);
    return length;
}

void widenSigned(const char* from, std::size_t count, char16_t* to) {
    for (std::size_t i = 0; i < count; ++i)
        to[i] = static_cast<char16_t>(static_cast<signed char>(from[i]));
}

} // namespace zeltext
