// SPDX-License-Identifier: Apache-2.0
// Numbers to and from narrow text.
#include "zelbasictypes/text/korcstring.h"

#include <cmath>
#include <cstdio>
#include <limits>
#include <string>

namespace {

/// Room for "%f" of the greatest double: 309 digits, sign, point, 6 digits, terminator.
constexpr std::size_t longestNumber = 320;

float readBack(const char* text, float) { return std::stof(text); }
double readBack(const char* text, double) { return std::stod(text); }

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

float KorCString::toFloat() const { return std::stof(buffer.data ? buffer.data : ""); }
