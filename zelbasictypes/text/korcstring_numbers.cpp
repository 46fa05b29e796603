// SPDX-License-Identifier: Apache-2.0
// Numbers to and from narrow text.
#include "zelbasictypes/text/korcstring.h"

#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <stdexcept>
#include <string>
#include <utility>

namespace {

/// Room for "%f" of the greatest double: 309 digits, sign, point, 6 digits, terminator.
constexpr std::size_t longestNumber = 320;

float parse(const char* text, char** end, float) { return std::strtof(text, end); }
double parse(const char* text, char** end, double) { return std::strtod(text, end); }

/// As std::stof and std::stod do; their messages are not the same everywhere.
template <class Real> Real readNumber(const char* text, const char* nothing, const char* tooFar) {
    const int before = std::exchange(errno, 0);
    char* end = nullptr;
    const Real value = parse(text, &end, Real());
    const bool outOfRange = errno == ERANGE;
    errno = before;
    if (end == text) throw std::invalid_argument(nothing);
    if (outOfRange) throw std::out_of_range(tooFar);
    return value;
}

float readBack(const char* text, float) {
    return readNumber<float>(text, "invalid stof argument", "stof argument out of range");
}

double readBack(const char* text, double) {
    return readNumber<double>(text, "invalid stod argument", "stod argument out of range");
}

template <class Real> bool isInt32(Real value) {
    return value >= -2147483648.0 && value < 2147483648.0 && value == std::trunc(value);
}

/// Lowers the precision for as long as the text doesn't read back worse, and keeps the last one.
template <class Real> std::string shortestText(Real value, int precision) {
    std::string kept;
    Real best = std::numeric_limits<Real>::max();
    for (; precision >= 0; --precision) {
        char tried[longestNumber];
        std::snprintf(tried, sizeof tried, "%.*g", precision, static_cast<double>(value));
        const Real difference = std::abs(readBack(tried, value) - value);
        if (difference > best) break;
        best = difference;
        kept = tried;
    }
    return kept;
}

template <class Real> std::string compactText(Real value, int precision) {
    if (isInt32(value)) return std::to_string(static_cast<std::int32_t>(value));
    return shortestText(value, precision);
}

std::string plainText(double value) {
    char text[longestNumber];
    std::snprintf(text, sizeof text, "%f", value);
    return text;
}

} // namespace

KorCString::KorCString(std::int32_t value) : KorCString(std::to_string(value).c_str()) {}

KorCString::KorCString(float value, bool compact)
    : KorCString((compact ? compactText(value, 9) : plainText(value)).c_str()) {}

KorCString::KorCString(double value, bool compact)
    : KorCString((compact ? compactText(value, 17) : plainText(value)).c_str()) {}

float KorCString::toFloat() const { return readBack(buffer.data ? buffer.data : "", 0.0f); }
