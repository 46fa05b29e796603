// SPDX-License-Identifier: Apache-2.0
// Scanning for ends of texts and for parts, with SSE2 (which every x86-64 has) or AVX2.
#include "zelbasictypes/text/textscan.h"

#include "zelbasictypes/text/machine.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <immintrin.h>

namespace zeltext {

namespace {

template <class Unit> using View = std::basic_string_view<Unit>;

/// A byte mask has one bit for each byte of a register; a unit of two bytes is told by the lower.
template <class Unit>
inline constexpr unsigned lowerBytes = sizeof(Unit) == 1 ? 0xFFFFFFFFu : 0x55555555u;

template <class Unit> bool middleAgrees(const Unit* at, View<Unit> part) {
    return part.size() <= 2 ||
           std::memcmp(at + 1, part.data() + 1, (part.size() - 2) * sizeof(Unit)) == 0;
}

/// The first of the candidates in `mask` (a byte mask for the register at `at`) that is a match.
template <class Unit> std::int64_t firstMatch(const Unit* at, unsigned mask, View<Unit> part) {
    for (mask &= lowerBytes<Unit>; mask; mask &= mask - 1) {
        const auto unit = static_cast<std::size_t>(std::countr_zero(mask)) / sizeof(Unit);
        if (middleAgrees(at + unit, part)) return static_cast<std::int64_t>(unit);
    }
    return -1;
}

template <class Unit>
std::int64_t findPlain(const Unit* text, std::int64_t places, View<Unit> part) {
    const Unit* end = text + places;
    for (const Unit* at = text; (at = std::find(at, end, part.front())) != end; ++at) {
        if (std::memcmp(at, part.data(), part.size() * sizeof(Unit)) == 0) return at - text;
    }
    return -1;
}

template <class Unit> __m128i equal128(__m128i a, __m128i b) {
    return sizeof(Unit) == 1 ? _mm_cmpeq_epi8(a, b) : _mm_cmpeq_epi16(a, b);
}

template <class Unit> __m128i load128(const Unit* at) {
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
}

template <class Unit> __m128i all128(Unit unit) {
    return sizeof(Unit) == 1 ? _mm_set1_epi8(static_cast<char>(unit))
                             : _mm_set1_epi16(static_cast<short>(unit));
}

/// `places` is the number of positions at which a match may start; each reads inside the text.
template <class Unit>
std::int64_t findSse2(const Unit* text, std::int64_t places, View<Unit> part) {
    constexpr std::int64_t step = 16 / sizeof(Unit);
    if (places < step) return findPlain(text, places, part);
    const __m128i first = all128(part.front()), last = all128(part.back());
    const std::size_t reach = part.size() - 1;
    for (std::int64_t i = 0; i < places; i += step) {
        i = std::min(i, places - step);
        const __m128i both = _mm_and_si128(equal128<Unit>(load128(text + i), first),
                                           equal128<Unit>(load128(text + i + reach), last));
        const auto mask = static_cast<unsigned>(_mm_movemask_epi8(both));
        if (mask == 0) continue;
        const std::int64_t hit = firstMatch(text + i, mask, part);
        if (hit >= 0) return i + hit;
    }
    return -1;
}

/// The register of candidates at `at`: first and last unit of the part agree.
template <class Unit>
__attribute__((target("avx2"))) inline __m256i candidates256(const Unit* at, std::size_t reach,
                                                             __m256i first, __m256i last) {
    const __m256i a = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(at));
    const __m256i b = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(at + reach));
    if constexpr (sizeof(Unit) == 1)
        return _mm256_and_si256(_mm256_cmpeq_epi8(a, first), _mm256_cmpeq_epi8(b, last));
    return _mm256_and_si256(_mm256_cmpeq_epi16(a, first), _mm256_cmpeq_epi16(b, last));
}

template <class Unit> __attribute__((target("avx2"))) inline __m256i all256(Unit unit) {
    if constexpr (sizeof(Unit) == 1) return _mm256_set1_epi8(static_cast<char>(unit));
    return _mm256_set1_epi16(static_cast<short>(unit));
}

template <class Unit>
__attribute__((target("avx2"))) std::int64_t findAvx2(const Unit* text, std::int64_t places,
                                                      View<Unit> part) {
    constexpr std::int64_t step = 32 / sizeof(Unit);
    const __m256i first = all256(part.front()), last = all256(part.back());
    const std::size_t reach = part.size() - 1;
    std::int64_t i = 0;
    for (; i + 2 * step <= places; i += 2 * step) {
        const __m256i low = candidates256(text + i, reach, first, last);
        const __m256i high = candidates256(text + i + step, reach, first, last);
        const __m256i any = _mm256_or_si256(low, high);
        if (_mm256_testz_si256(any, any)) continue;
        std::int64_t hit =
            firstMatch(text + i, static_cast<unsigned>(_mm256_movemask_epi8(low)), part);
        if (hit >= 0) return i + hit;
        hit = firstMatch(text + i + step, static_cast<unsigned>(_mm256_movemask_epi8(high)), part);
        if (hit >= 0) return i + step + hit;
    }
    const std::int64_t hit = findSse2(text + i, places - i, part);
    return hit < 0 ? -1 : i + hit;
}

template <class Unit> std::int64_t findVector(View<Unit> text, View<Unit> part) {
    const auto places =
        static_cast<std::int64_t>(text.size()) - static_cast<std::int64_t>(part.size()) + 1;
    if (places <= 0) return -1;
    return machineHasAvx2() ? findAvx2(text.data(), places, part)
                            : findSse2(text.data(), places, part);
}

constexpr std::int64_t scanBlock = 128 / sizeof(char16_t);

/// The number of units, in whole blocks, up to which there is neither `stop` nor a terminator.
/// `text` is aligned to a block, so that none crosses into another page.
__attribute__((target("avx2"), no_sanitize("address", "thread"))) std::int64_t
quietBlocks(const char16_t* text, char16_t stop, std::int64_t limit) {
    const __m256i stops = all256(stop), zero = _mm256_setzero_si256();
    std::int64_t at = 0;
    for (; at < limit; at += scanBlock) {
        const auto* block = reinterpret_cast<const __m256i*>(text + at);
        __m256i least = _mm256_set1_epi8(-1);
        for (int i = 0; i < 4; ++i) {
            const __m256i units = _mm256_load_si256(block + i);
            const __m256i ends = _mm256_min_epu16(units, _mm256_xor_si256(units, stops));
            least = _mm256_min_epu16(least, ends);
        }
        if (_mm256_movemask_epi8(_mm256_cmpeq_epi16(least, zero))) break;
    }
    return at;
}

/// Looks at one aligned register after the other from the one that holds `text`, up to `limit`;
/// the result is `limit` or above when nothing was found in front of it.
__attribute__((no_sanitize("address", "thread"))) std::int64_t
scanRegisters(const char16_t* text, char16_t stop, std::int64_t limit) {
    const std::size_t before = reinterpret_cast<std::uintptr_t>(text) % 16;
    const auto* block =
        reinterpret_cast<const __m128i*>(reinterpret_cast<const char*>(text) - before);
    const __m128i stops = all128(stop), zero = _mm_setzero_si128();
    unsigned ignored = ~0u << before;
    for (auto at = -static_cast<std::int64_t>(before / 2); at < limit; at += 8, ignored = ~0u) {
        const __m128i units = _mm_load_si128(block++);
        const __m128i hits =
            _mm_or_si128(_mm_cmpeq_epi16(units, stops), _mm_cmpeq_epi16(units, zero));
        const unsigned mask = static_cast<unsigned>(_mm_movemask_epi8(hits)) & ignored;
        if (mask) return at + std::countr_zero(mask) / 2;
    }
    return limit;
}

} // namespace

std::int64_t unitsBefore(const char16_t* text, char16_t stop, std::int64_t limit) {
    const auto misplaced = static_cast<std::int64_t>(reinterpret_cast<std::uintptr_t>(text) % 128);
    const std::int64_t toBlock = std::min((128 - misplaced) / 2, limit);
    std::int64_t at = scanRegisters(text, stop, toBlock);
    if (at < toBlock || toBlock == limit) return std::min(at, limit);
    if (machineHasAvx2()) at += quietBlocks(text + at, stop, limit - at);
    return at < limit ? std::min(limit, at + scanRegisters(text + at, stop, limit - at)) : limit;
}

std::int64_t findIn(std::string_view text, std::string_view part) { return findVector(text, part); }

std::int64_t findIn(std::u16string_view text, std::u16string_view part) {
    return findVector(text, part);
}

} // namespace zeltext
