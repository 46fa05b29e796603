// SPDX-License-Identifier: Apache-2.0
// Copying runs of ASCII with SSE2, which every x86-64 has, or AVX2.
#include "zelbasictypes/text/asciirun.h"

#include "zelbasictypes/text/machine.h"

#include <immintrin.h>

namespace zeltext {

namespace {

__m128i load(const void* from) { return _mm_loadu_si128(static_cast<const __m128i*>(from)); }

void keep(void* to, __m128i value) { _mm_storeu_si128(static_cast<__m128i*>(to), value); }

bool areAscii(__m128i units) {
    const __m128i high = _mm_and_si128(units, _mm_set1_epi16(static_cast<short>(0xFF80)));
    return _mm_movemask_epi8(_mm_cmpeq_epi8(high, _mm_setzero_si128())) == 0xFFFF;
}

void widenAscii(__m128i bytes, char16_t* to) {
    keep(to, _mm_unpacklo_epi8(bytes, _mm_setzero_si128()));
    keep(to + 8, _mm_unpackhi_epi8(bytes, _mm_setzero_si128()));
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

} // namespace

std::size_t copyAsciiRun(const char* from, std::size_t count, char16_t* to) {
    std::size_t i = machineHasAvx2() ? copyBlocksAvx2(from, count, to) : 0;
    for (; i + 32 <= count; i += 32) {
        const __m128i low = load(from + i), high = load(from + i + 16);
        if (_mm_movemask_epi8(_mm_or_si128(low, high))) break;
        widenAscii(low, to + i);
        widenAscii(high, to + i + 16);
    }
    for (; i < count && static_cast<unsigned char>(from[i]) < 0x80; ++i)
        to[i] = static_cast<unsigned char>(from[i]);
    return i;
}

std::size_t copyAsciiRun(const char16_t* from, std::size_t count, char* to) {
    std::size_t i = 0;
    for (; i + 16 <= count; i += 16) {
        const __m128i low = load(from + i), high = load(from + i + 8);
        if (!areAscii(_mm_or_si128(low, high))) break;
        keep(to + i, _mm_packus_epi16(low, high));
    }
    for (; i < count && from[i] < 0x80; ++i) to[i] = static_cast<char>(from[i]);
    return i;
}

std::size_t asciiRun(const char16_t* text, std::size_t count) {
    std::size_t i = 0;
    while (i + 16 <= count && areAscii(_mm_or_si128(load(text + i), load(text + i + 8)))) i += 16;
    while (i < count && text[i] < 0x80) ++i;
    return i;
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
