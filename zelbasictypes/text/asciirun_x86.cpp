// SPDX-License-Identifier: Apache-2.0
// Copying runs of ASCII with SSE2, which every x86-64 has, or AVX2.
#include "zelbasictypes/text/asciirun.h"

#include "zelbasictypes/text/machine.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <immintrin.h>
#include <type_traits>

namespace zeltext {

namespace {

__m128i load(const void* from) { return _mm_loadu_si128(static_cast<const __m128i*>(from)); }

void keep(void* to, __m128i value) { _mm_storeu_si128(static_cast<__m128i*>(to), value); }

/// All ones in each unit that is ASCII.
__m128i asciiUnits(__m128i units) {
    const __m128i high = _mm_and_si128(units, _mm_set1_epi16(static_cast<short>(0xFF80)));
    return _mm_cmpeq_epi16(high, _mm_setzero_si128());
}

/// One bit for each of 16 units that isn't ASCII.
unsigned foreignUnits(__m128i low, __m128i high) {
    const __m128i ascii = _mm_packs_epi16(asciiUnits(low), asciiUnits(high));
    return static_cast<unsigned>(_mm_movemask_epi8(ascii)) ^ 0xFFFF;
}

void widenAscii(__m128i bytes, char16_t* to) {
    keep(to, _mm_unpacklo_epi8(bytes, _mm_setzero_si128()));
    keep(to + 8, _mm_unpackhi_epi8(bytes, _mm_setzero_si128()));
}

std::size_t sumOfUnits(__m128i units) {
    const __m128i pairs = _mm_madd_epi16(units, _mm_set1_epi16(1));
    alignas(16) std::uint32_t sums[4];
    _mm_store_si128(reinterpret_cast<__m128i*>(sums), pairs);
    return std::size_t{sums[0]} + sums[1] + sums[2] + sums[3];
}

/// Copies whole blocks of 64 ASCII units; the result is how many units that were.
__attribute__((target("avx2"))) std::size_t copyBlocksAvx2(const char* from, std::size_t count,
                                                           char16_t* to) {
    std::size_t i = 0;
    for (; i + 64 <= count; i += 64) {
        const auto* bytes = reinterpret_cast<const __m256i*>(from + i);
        if (_mm256_movemask_epi8(
                _mm256_or_si256(_mm256_loadu_si256(bytes), _mm256_loadu_si256(bytes + 1))))
            break;
        for (std::size_t k = i; k < i + 64; k += 16)
            _mm256_storeu_si256(reinterpret_cast<__m256i*>(to + k),
                                _mm256_cvtepu8_epi16(load(from + k)));
    }
    return i;
}

/// The same back, for whole blocks of 32 units.
__attribute__((target("avx2"))) std::size_t copyBlocksAvx2(const char16_t* from, std::size_t count,
                                                           char* to) {
    const __m256i foreign = _mm256_set1_epi16(static_cast<short>(0xFF80));
    std::size_t i = 0;
    for (; i + 32 <= count; i += 32) {
        const auto* units = reinterpret_cast<const __m256i*>(from + i);
        const __m256i low = _mm256_loadu_si256(units), high = _mm256_loadu_si256(units + 1);
        if (!_mm256_testz_si256(_mm256_or_si256(low, high), foreign)) break;
        const __m256i bytes = _mm256_permute4x64_epi64(_mm256_packus_epi16(low, high), 0xD8);
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(to + i), bytes);
    }
    return i;
}

// Each step writes its whole register, foreign units and all, and counts what lies in front of
// them. What is left of a text of at least one register is done with the last whole one, which
// begins among units that are known to be ASCII.

/// Copies 16; the result has a bit for each that isn't ASCII.
unsigned copyRegister(const char* from, char16_t* to) {
    const __m128i bytes = load(from);
    widenAscii(bytes, to);
    return static_cast<unsigned>(_mm_movemask_epi8(bytes));
}

unsigned copyRegister(const char16_t* from, char* to) {
    const __m128i low = load(from), high = load(from + 8);
    keep(to, _mm_packus_epi16(low, high));
    return foreignUnits(low, high);
}

std::size_t inFront(unsigned foreign) {
    return static_cast<std::size_t>(std::countr_zero(foreign));
}

template <class From, class To> std::size_t copySse2(const From* from, std::size_t count, To* to) {
    constexpr std::size_t width = 16;
    std::size_t i = 0;
    for (; i + width <= count; i += width)
        if (const unsigned foreign = copyRegister(from + i, to + i)) return i + inFront(foreign);
    if (i == count) return i;
    if (i > 0) {
        const std::size_t last = count - width;
        return last + inFront(copyRegister(from + last, to + last) | 1u << width);
    }
    using Bits = std::make_unsigned_t<From>;
    for (; i < count && static_cast<Bits>(from[i]) < 0x80; ++i)
        to[i] = static_cast<To>(static_cast<Bits>(from[i]));
    return i;
}

/// Begins with the smaller registers, since most runs are short.
template <class From, class To>
[[gnu::noinline]] std::size_t copyLongRun(const From* from, std::size_t count, To* to) {
    constexpr std::size_t beginning = 64;
    std::size_t i = copySse2(from, std::min(count, beginning), to);
    if (i < beginning || i == count) return i;
    if (machineHasAvx2()) i += copyBlocksAvx2(from + i, count - i, to + i);
    return i + copySse2(from + i, count - i, to + i);
}

/// Most of them end in the first register, which is looked at before all else.
template <class From, class To> std::size_t copyRun(const From* from, std::size_t count, To* to) {
    if (count >= 16)
        if (const unsigned foreign = copyRegister(from, to)) return inFront(foreign);
    return copyLongRun(from, count, to);
}

} // namespace

std::size_t copyAsciiRun(const char* from, std::size_t count, char16_t* to) {
    return copyRun(from, count, to);
}

std::size_t copyAsciiRun(const char16_t* from, std::size_t count, char* to) {
    return copyRun(from, count, to);
}

std::size_t asciiRun(const char16_t* text, std::size_t count) {
    std::size_t i = 0;
    for (; i + 16 <= count; i += 16) {
        const unsigned foreign = foreignUnits(load(text + i), load(text + i + 8));
        if (foreign) return i + static_cast<std::size_t>(std::countr_zero(foreign));
    }
    while (i < count && text[i] < 0x80) ++i;
    return i;
}

std::size_t utf8Length(const char16_t* text, std::size_t count) {
    constexpr std::size_t stretch = 8 * 8192; // so that 16 bits hold what a lane counts
    const __m128i zero = _mm_setzero_si128(), two = _mm_set1_epi16(2);
    const __m128i aboveOne = _mm_set1_epi16(static_cast<short>(0xFF80));
    const __m128i aboveTwo = _mm_set1_epi16(static_cast<short>(0xF800));
    std::size_t length = count, i = 0;
    while (i + 8 <= count) {
        const std::size_t end = std::min(count - 8, i + stretch - 8);
        __m128i extra = zero;
        for (; i <= end; i += 8) {
            const __m128i units = load(text + i);
            const __m128i isOne = _mm_cmpeq_epi16(_mm_and_si128(units, aboveOne), zero);
            const __m128i isTwo = _mm_cmpeq_epi16(_mm_and_si128(units, aboveTwo), zero);
            extra = _mm_add_epi16(extra, _mm_add_epi16(two, _mm_add_epi16(isOne, isTwo)));
        }
        length += sumOfUnits(extra);
    }
    for (; i < count; ++i) length += (text[i] >= 0x80) + (text[i] >= 0x800);
    return length;
}

void widenSigned(const char* from, std::size_t count, char16_t* to) {
    std::size_t i = 0;
    for (; i + 16 <= count; i += 16) {
        const __m128i bytes = load(from + i);
        keep(to + i, _mm_srai_epi16(_mm_unpacklo_epi8(bytes, bytes), 8));
        keep(to + i + 8, _mm_srai_epi16(_mm_unpackhi_epi8(bytes, bytes), 8));
    }
    for (; i < count; ++i) to[i] = static_cast<char16_t>(static_cast<signed char>(from[i]));
}

} // namespace zeltext
