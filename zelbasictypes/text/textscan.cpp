// SPDX-License-Identifier: Apache-2.0
// Searching terminated texts, whatever the processor.
#include "zelbasictypes/text/textscan.h"

#include <cstring>

namespace zeltext {

namespace {

template <class Unit> using View = std::basic_string_view<Unit>;

/// Measures and searches the text by stretches, which overlap by the part less one unit, so that
/// an early match is cheap and a late one finds its text in the cache.
template <class Unit>
std::int32_t findByStretches(const Unit* text, View<Unit> part, std::int32_t start) {
    constexpr std::int64_t stretch = 8192 / sizeof(Unit);
    if (start > 0 && boundedLength(text, start) < start) return -1;
    const auto overlap = static_cast<std::int64_t>(part.size()) - 1;
    for (std::int64_t at = start;; at += stretch) {
        const std::int64_t length = boundedLength(text + at, stretch + overlap);
        const std::int64_t hit =
            findIn(View<Unit>(text + at, static_cast<std::size_t>(length)), part);
        if (hit >= 0) return static_cast<std::int32_t>(at + hit);
        if (length < stretch + overlap) return -1;
    }
}

} // namespace

std::int64_t boundedLength(const char* text, std::int64_t limit) {
    if (!text) return 0;
    if (limit == INT64_MAX) return static_cast<std::int64_t>(std::strlen(text));
    const void* end = std::memchr(text, 0, static_cast<std::size_t>(limit));
    return end ? static_cast<const char*>(end) - text : limit;
}

std::int64_t boundedLength(const char16_t* text, std::int64_t limit) {
    return text ? unitsBefore(text, 0, limit) : 0;
}

std::int32_t findFrom(const char* text, std::string_view part, std::int32_t start) {
    return text ? findByStretches(text, part, start) : -1;
}

std::int32_t findFrom(const char16_t* text, std::u16string_view part, std::int32_t start) {
    return text ? findByStretches(text, part, start) : -1;
}

} // namespace zeltext
