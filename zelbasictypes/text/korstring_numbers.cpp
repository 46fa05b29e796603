// SPDX-License-Identifier: Apache-2.0
// Numbers to and from wide text.
#include "platform/locale.h"
#include "zelbasictypes/memory/zelnew.h"
#include "zelbasictypes/text/asciirun.h"
#include "zelbasictypes/text/korstring.h"

#include <charconv>
#include <cmath>
#include <cstdio>

namespace {

/// Room for "%f" of the greatest double, as for any other number without a width.
constexpr std::size_t longestPlain = 320;

/// With a point whatever the locale.
template <class... Form> KorString written(Form... form) {
    char text[longestPlain];
    *std::to_chars(text, text + sizeof text - 1, form...).ptr = '\0';
    return KorString(text);
}

/// Prints with a format made at run time, in a room that doubles until the text fits.
template <class Number> KorString printed(const ZelText<char>& format, Number value) {
    const platform::PlainNumbers plain;
    ZelVector<char> room(40);
    for (;;) {
        const int needed = std::snprintf(room.data(), room.size(), format.c_str(), value);
        if (needed < 0) return KorString();
        if (static_cast<std::size_t>(needed) < room.size()) return KorString(room.data());
        room.resize(room.size() * 2);
    }
}

ZelText<char> formatFor(const KorFloatFormat& format, const char* letters) {
    return ZelText<char>("%") + (format.spec ? format.spec : "") + letters;
}

const char* letterOf(const KorFloatFormat& format) {
    return !format.general ? "f" : format.exponent ? "e" : "g";
}

/// The ASCII units in front of any other; a number ends there at the latest.
ZelText<char> leadingAscii(const KorString& text) {
    const std::u16string_view units = text.view();
    const std::size_t run = zeltext::asciiRun(units.data(), units.size());
    ZelText<char> result(run, 0);
    zeltext::copyAsciiRun(units.data(), run, result.data());
    return result;
}

} // namespace

KorString::KorString(int value) : KorString(written(value)) {}
KorString::KorString(long value) : KorString(written(value)) {}
KorString::KorString(long long value) : KorString(written(value)) {}
KorString::KorString(unsigned value) : KorString(written(value)) {}
KorString::KorString(unsigned long value) : KorString(written(value)) {}
KorString::KorString(unsigned long long value) : KorString(written(value)) {}

KorString::KorString(float value) : KorString(static_cast<double>(value)) {}
KorString::KorString(double value)
    : KorString(written(
          value, std::abs(value) > 1e10 ? std::chars_format::scientific : std::chars_format::fixed,
          6)) {}

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
    const platform::PlainNumbers plain;
    double value = 0;
    const bool read = std::sscanf(leadingAscii(*this).c_str(), "%lf", &value) == 1;
    if (ok) *ok = read;
    return read ? value : 0;
}
