// SPDX-License-Identifier: Apache-2.0
// Numbers to and from narrow text.
#include "zelbasictypes/text/korcstring.h"

#include "platform/locale.h"

#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <stdexcept>
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

/// A number as text, with a point whatever the locale.
class NumberText {
public:
    template <class... Form> explicit NumberText(Form... form) {
        *std::to_chars(text_, text_ + sizeof text_ - 1, form...).ptr = '\0';
    }
    const char* c_str() const { return text_; }

private:
    char text_[longestNumber];
};

/// Lowers the precision for as long as the text doesn't read back worse, and keeps the last one.
template <class Real> NumberText shortestText(Real value, int precision) {
    const platform::PlainNumbers plain;
    NumberText kept(0);
    Real best = std::numeric_limits<Real>::max();
    for (; precision >= 0; --precision) {
        const NumberText tried(value, std::chars_format::general, precision);
        const Real difference = std::abs(readBack(tried.c_str(), value) - value);
        if (difference > best) break;
        best = difference;
        kept = tried;
    }
    return kept;
}

template <class Real> NumberText compactText(Real value, int precision) {
    if (isInt32(value)) return NumberText(static_cast<std::int32_t>(value));
    return shortestText(value, precision);
}

NumberText plainText(double value) { return NumberText(value, std::chars_format::fixed, 6); }

} // namespace

KorCString::KorCString(std::int32_t value) : KorCString(NumberText(value).c_str()) {}

KorCString::KorCString(float value, bool compact)
    : KorCString((compact ? compactText(value, 9) : plainText(value)).c_str()) {}

KorCString::KorCString(double value, bool compact)
    : KorCString((compact ? compactText(value, 17) : plainText(value)).c_str()) {}

float KorCString::toFloat() const {
    const platform::PlainNumbers plain;
    return readBack(buffer.data ? buffer.data : "", 0.0f);
}
