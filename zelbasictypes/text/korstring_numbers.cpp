// SPDX-License-Identifier: Apache-2.0
// Numbers to and from wide text.
#include "zelbasictypes/text/asciirun.h"
#include "zelbasictypes/text/korstring.h"

#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

namespace {

/// Prints with a format made at run time, in a room that doubles until the text fits.
template <class Number> KorString printed(const std::string& format, Number value) {
    std::vector<char> room(40);
    for (;;) {
        const int needed = std::snprintf(room.data(), room.size(), format.c_str(), value);
        if (needed < 0) return KorString();
        if (static_cast<std::size_t>(needed) < room.size()) return KorString(room.data());
        room.resize(room.size() * 2);
    }
}

std::string formatFor(const KorFloatFormat& format, const char* letters) {
    return std::string("%") + (format.spec ? format.spec : "") + letters;
}

const char* letterOf(const KorFloatFormat& format) {
    return !format.general ? "f" : format.exponent ? "e" : "g";
}

/// The ASCII units in front of any other; a number ends there at the latest.
std::string leadingAscii(const KorString& text) {
    const std::u16string_view units = text.view();
    const std::size_t run = zeltext::asciiRun(units.data(), units.size());
    std::string result(run, 0);
    zeltext::copyAsciiRun(units.data(), run, result.data());
    return result;
}

} // namespace

KorString::KorString(int value) : KorString(std::to_string(value).c_str()) {}
KorString::KorString(long value) : KorString(std::to_string(value).c_str()) {}
KorString::KorString(long long value) : KorString(std::to_string(value).c_str()) {}
KorString::KorString(unsigned value) : KorString(std::to_string(value).c_str()) {}
KorString::KorString(unsigned long value) : KorString(std::to_string(value).c_str()) {}
KorString::KorString(unsigned long long value) : KorString(std::to_string(value).c_str()) {}

KorString::KorString(float value) : KorString(static_cast<double>(value)) {}
KorString::KorString(double value)
    : KorString(printed(std::abs(value) > 1e10 ? "%e" : "%f", value)) {}

KorString::KorString(int value, const KorFloatFormat& format)
    : KorString(printed(formatFor(format, "d"), value)) {}
KorString::KorString(long value, const KorFloatFormat& format)
    : KorString(printed(formatFor(format, "ld"), value)) {}
KorString::KorString(long long value, const KorFloatFormat& format)
    : KorString(printed(formatFor(format, "lld"), value)) {}
KorString::KorString(double value, const KorFloatFormat& format)
    : KorString(printed(formatFor(format, letterOf(format)), value)) {}

std::int32_t KorString::toInt(bool* ok) const {
    std::int32_t value = 0;
    const bool read = std::sscanf(leadingAscii(*this).c_str(), "%i", &value) == 1;
    if (ok) *ok = read;
    return read ? value : 0;
}

double KorString::toDouble(bool* ok) const {
    double value = 0;
    const bool read = std::sscanf(leadingAscii(*this).c_str(), "%lf", &value) == 1;
    if (ok) *ok = read;
    return read ? value : 0;
}
