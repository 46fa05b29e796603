// SPDX-License-Identifier: Apache-2.0
// What the string classes are compared with: the standard library's strings, random texts and
// places for both, and the operations that the standard library lacks, in plain words.
#pragma once

#include <algorithm>
#include <climits>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace textmodel {

/// A terminated copy without a byte to spare, so that a sanitizer sees a step outside.
template <class Unit> std::vector<Unit> exactCopy(const std::basic_string<Unit>& text) {
    return {text.c_str(), text.c_str() + text.size() + 1};
}

/// The places in and around a text of `size` units that deserve a look.
inline std::vector<std::int32_t> placesAround(std::size_t size) {
    const auto end = static_cast<std::int32_t>(size);
    return {INT_MIN, -1, 0, 1, end / 2, end - 1, end, end + 1, INT_MAX};
}

/// Few different units make overlaps and repeats likely; the lengths straddle whole registers.
template <class Unit> class Source {
public:
    explicit Source(unsigned seed) : random(seed) {}

    int below(int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); }
    Unit unit() { return "aabbcdX "[below(8)]; }
    std::basic_string<Unit> text(int maxLength) {
        std::basic_string<Unit> result(static_cast<std::size_t>(below(maxLength + 1)), Unit());
        for (Unit& u : result) u = unit();
        return result;
    }
    /// Mostly short, now and then longer than a few registers.
    std::basic_string<Unit> piece() { return text(below(4) ? 3 : 70); }
    /// A position or length, one in three at or over the edge of a text of `size` units.
    std::int32_t place(std::size_t size) {
        const std::vector<std::int32_t> special = placesAround(size);
        if (below(3) == 0) return special[static_cast<std::size_t>(below(9))];
        return below(static_cast<int>(size) + 1);
    }

private:
    std::mt19937 random;
};

/// A negative count or limit means all.
inline std::size_t asCount(std::int32_t n) {
    return n < 0 ? std::string::npos : static_cast<std::size_t>(n);
}

inline std::int32_t asPlace(std::size_t hit) {
    return hit == std::string::npos ? -1 : static_cast<std::int32_t>(hit);
}

template <class Text> std::int32_t find(const Text& text, const Text& part, std::int32_t start) {
    if (part.empty()) return 0;
    return start < 0 ? -1 : asPlace(text.find(part, static_cast<std::size_t>(start)));
}

template <class Text> std::int32_t rfind(const Text& text, const Text& part, std::int32_t limit) {
    return asPlace(text.rfind(part, asCount(limit)));
}

template <class Text> Text left(const Text& text, std::int32_t n) {
    return text.substr(0, asCount(n));
}

template <class Text> Text mid(const Text& text, std::int32_t start, std::int32_t n) {
    const auto from = static_cast<std::size_t>(std::max(start, 0));
    return from >= text.size() ? Text() : text.substr(from, asCount(n));
}

template <class Text>
Text replaced(const Text& text, std::int32_t start, std::int32_t end, const Text& with) {
    return left(text, std::max(start, 0)) + with + (end < 0 ? Text() : mid(text, end, -1));
}

/// Nothing when `at` lies outside the text.
template <class Text>
Text replacedRange(Text text, std::int32_t at, std::int32_t n, const Text& with) {
    if (at >= 0 && static_cast<std::size_t>(at) <= text.size())
        text.replace(static_cast<std::size_t>(at), asCount(n), with);
    return text;
}

template <class Text> Text replacedAll(Text text, const Text& from, const Text& to) {
    if (from.empty()) return text;
    for (std::size_t at = 0; (at = text.find(from, at)) != Text::npos; at += to.size())
        text.replace(at, from.size(), to);
    return text;
}

template <class Text>
Text fitted(const Text& text, std::int32_t width, std::int32_t mode, std::int32_t dots) {
    using Unit = typename Text::value_type;
    dots = std::max(dots, 0);
    if (width <= dots) return Text(static_cast<std::size_t>(std::max(width, 0)), Unit('.'));
    if (text.size() <= static_cast<std::size_t>(width)) return text;
    const Text stops(static_cast<std::size_t>(dots), Unit('.'));
    const auto kept = static_cast<std::size_t>(width - dots);
    if (mode == 0) return text.substr(0, kept) + stops;
    if (mode == 1) return stops + text.substr(text.size() - kept);
    return text.substr(0, kept / 2) + stops + text.substr(text.size() - (kept - kept / 2));
}

template <class Text> Text trimmed(const Text& text) {
    const std::size_t first = text.find_first_not_of(' '), last = text.find_last_not_of(' ');
    return first == Text::npos ? Text() : text.substr(first, last + 1 - first);
}

/// For texts whose only white space are blanks.
template <class Text> Text simplified(Text text, typename Text::value_type separator) {
    text = trimmed(text);
    const auto pair = [](auto a, auto b) { return a == ' ' && b == ' '; };
    text.erase(std::unique(text.begin(), text.end(), pair), text.end());
    std::replace(text.begin(), text.end(), typename Text::value_type(' '), separator);
    return text;
}

/// Turns the case of the 26 letters from `first` on.
template <class Text> Text turnedCase(Text text, char first) {
    for (auto& unit : text)
        if (unit >= first && unit < first + 26)
            unit = static_cast<typename Text::value_type>(unit ^ 0x20);
    return text;
}

} // namespace textmodel
