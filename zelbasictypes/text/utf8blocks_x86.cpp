// SPDX-License-Identifier: Apache-2.0
// Encoding UTF-8 eight units at a time with AVX2: each unit becomes its bytes in a lane of four,
// and a shuffle from a table closes the gaps.
#include "zelbasictypes/text/utf8blocks.h"

#include "zelbasictypes/text/machine.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <immintrin.h>

#define ZEL_AVX2 __attribute__((target("avx2,popcnt")))

namespace zeltext {

namespace {

/// Where the bytes of four lanes go. The index has a bit for each unit of more than one byte, and
/// above these a bit for each of more than two.
struct alignas(16) Shuffle {
    std::uint8_t from[16];
};

constexpr Shuffle shuffleFor(unsigned index) {
    Shuffle shuffle{};
    unsigned to = 0;
    for (unsigned lane = 0; lane < 4; ++lane) {
        const unsigned length = 1 + (index >> lane & 1) + (index >> (lane + 4) & 1);
        for (unsigned i = 0; i < length; ++i)
            shuffle.from[to++] = static_cast<std::uint8_t>(4 * lane + i);
    }
    return shuffle;
}

constexpr std::array<Shuffle, 256> makeShuffles() {
    std::array<Shuffle, 256> all{};
    for (unsigned index = 0; index < all.size(); ++index) all[index] = shuffleFor(index);
    return all;
}

constexpr std::array<Shuffle, 256> shuffles = makeShuffles();

/// The bytes of eight units, in a lane each, with the first byte lowest; bits as of Shuffle.
struct Lanes {
    __m256i bytes;
    unsigned overOne, overTwo;
};

ZEL_AVX2 inline __m256i all(int value) { return _mm256_set1_epi32(value); }

ZEL_AVX2 inline Lanes lanesOf(__m128i eight) {
    const __m256i unit = _mm256_cvtepu16_epi32(eight), high = _mm256_srli_epi32(unit, 6);
    const __m256i last = _mm256_or_si256(_mm256_and_si256(unit, all(0x3F)), all(0x80));
    const __m256i two =
        _mm256_or_si256(_mm256_or_si256(high, all(0xC0)), _mm256_slli_epi32(last, 8));
    const __m256i middle = _mm256_slli_epi32(_mm256_and_si256(high, all(0x3F)), 8);
    const __m256i outer = _mm256_or_si256(_mm256_srli_epi32(unit, 12), _mm256_slli_epi32(last, 16));
    const __m256i three = _mm256_or_si256(_mm256_or_si256(outer, middle), all(0x80E0));
    const __m256i overOne = _mm256_cmpgt_epi32(unit, all(0x7F));
    const __m256i overTwo = _mm256_cmpgt_epi32(unit, all(0x7FF));
    const __m256i upToTwo = _mm256_blendv_epi8(unit, two, overOne);
    return {_mm256_blendv_epi8(upToTwo, three, overTwo),
            static_cast<unsigned>(_mm256_movemask_ps(_mm256_castsi256_ps(overOne))),
            static_cast<unsigned>(_mm256_movemask_ps(_mm256_castsi256_ps(overTwo)))};
}

ZEL_AVX2 inline char* storeLanes(__m128i bytes, unsigned index, char* to) {
    const auto* shuffle = reinterpret_cast<const __m128i*>(&shuffles[index]);
    _mm_storeu_si128(reinterpret_cast<__m128i*>(to),
                     _mm_shuffle_epi8(bytes, _mm_load_si128(shuffle)));
    return to + 4 + __builtin_popcount(index);
}

ZEL_AVX2 inline char* encodeEight(__m128i units, char* to) {
    const Lanes lanes = lanesOf(units);
    to = storeLanes(_mm256_castsi256_si128(lanes.bytes),
                    (lanes.overOne & 0x0F) | (lanes.overTwo & 0x0F) << 4, to);
    return storeLanes(_mm256_extracti128_si256(lanes.bytes, 1),
                      lanes.overOne >> 4 | (lanes.overTwo & 0xF0), to);
}

/// Each store of a register is covered by the units that follow, of one byte at least.
ZEL_AVX2 char* encodeAvx2(const char16_t*& at, const char16_t* end, char* to) {
    const __m128i foreign = _mm_set1_epi16(static_cast<short>(0xFF80));
    for (; end - at >= 32; at += 16) {
        const auto* units = reinterpret_cast<const __m128i*>(at);
        const __m128i low = _mm_loadu_si128(units), high = _mm_loadu_si128(units + 1);
        if (_mm_testz_si128(_mm_or_si128(low, high), foreign)) {
            _mm_storeu_si128(reinterpret_cast<__m128i*>(to), _mm_packus_epi16(low, high));
            to += 16;
        } else {
            to = encodeEight(high, encodeEight(low, to));
        }
    }
    return to;
}

/// Up to seven units in front of `end`, zeros behind them; `start` is where their text begins.
ZEL_AVX2 __m128i lastUnits(const char16_t* start, const char16_t* end, std::size_t count) {
    alignas(16) char16_t units[8] = {};
    if (end - start < 8) {
        std::memcpy(units, end - count, count * sizeof *end);
        return _mm_load_si128(reinterpret_cast<const __m128i*>(units));
    }
    static constexpr std::uint8_t order[32] = {0,    1,    2,    3,    4,    5,    6,    7,
                                               8,    9,    10,   11,   12,   13,   14,   15,
                                               0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80,
                                               0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80};
    const auto* eight = reinterpret_cast<const __m128i*>(end - 8);
    const auto* shift = reinterpret_cast<const __m128i*>(order + 2 * (8 - count));
    return _mm_shuffle_epi8(_mm_loadu_si128(eight), _mm_loadu_si128(shift));
}

/// Fewer than 32 units, by way of room that whole registers may be stored to.
ZEL_AVX2 char* encodeRestAvx2(std::u16string_view text, std::size_t done, char* to) {
    char bytes[3 * 32 + 16];
    char* behind = bytes;
    for (; text.size() - done >= 8; done += 8)
        behind = encodeEight(_mm_loadu_si128(reinterpret_cast<const __m128i*>(text.data() + done)),
                             behind);
    if (const std::size_t left = text.size() - done; left > 0) {
        const char16_t* end = text.data() + text.size();
        // A zero becomes a byte.
        behind = encodeEight(lastUnits(text.data(), end, left), behind) - (8 - left);
    }
    const auto length = static_cast<std::size_t>(behind - bytes);
    std::memcpy(to, bytes, length);
    return to + length;
}

} // namespace

char* encodeWhole(std::u16string_view text, char* to) {
    if (!machineHasAvx2()) return nullptr;
    const char16_t* at = text.data();
    to = encodeAvx2(at, at + text.size(), to);
    return encodeRestAvx2(text, static_cast<std::size_t>(at - text.data()), to);
}

} // namespace zeltext
