// SPDX-License-Identifier: Apache-2.0
// The kernels in AVX2.
#include "zelbasictypes/sets/wordkernels.h"

#if defined(__x86_64__)

#include <immintrin.h>

#define ZEL_KERNEL __attribute__((target("avx2")))
#include "zelbasictypes/sets/wordkernelloops.h"

namespace zelsets {

namespace {

struct Avx2 {
    static constexpr std::size_t words = 8;

    ZEL_KERNEL static __m256i load(const std::uint32_t* from) {
        return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(from));
    }
    ZEL_KERNEL static void store(std::uint32_t* to, __m256i value) {
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(to), value);
    }
    ZEL_KERNEL static __m256i loadSome(const std::uint32_t* from, std::size_t count) {
        return _mm256_maskload_epi32(reinterpret_cast<const int*>(from), first(count));
    }
    ZEL_KERNEL static void storeSome(std::uint32_t* to, __m256i value, std::size_t count) {
        _mm256_maskstore_epi32(reinterpret_cast<int*>(to), first(count), value);
    }
    ZEL_KERNEL static bool isAnySet(__m256i vector) { return !_mm256_testz_si256(vector, vector); }
    ZEL_KERNEL static std::int64_t countBits(const std::uint32_t* from, std::size_t count);

private:
    ZEL_KERNEL static __m256i first(std::size_t count) {
        return _mm256_cmpgt_epi32(_mm256_set1_epi32(static_cast<int>(count)),
                                  _mm256_setr_epi32(0, 1, 2, 3, 4, 5, 6, 7));
    }
};

/// Adds three vectors bit by bit: what stays is the sum, what comes out is the carry.
ZEL_KERNEL inline __m256i carry(__m256i& sum, __m256i a, __m256i b) {
    const __m256i half = sum ^ a;
    const __m256i out = (sum & a) | (half & b);
    sum = half ^ b;
    return out;
}

/// The set bits of each quarter of a vector, by a table of half bytes.
ZEL_KERNEL inline __m256i quarterCounts(__m256i vector) {
    const __m256i table =
        _mm256_broadcastsi128_si256(_mm_setr_epi8(0, 1, 1, 2, 1, 2, 2, 3, 1, 2, 2, 3, 2, 3, 3, 4));
    const __m256i half = _mm256_set1_epi8(0x0F);
    const __m256i low = _mm256_shuffle_epi8(table, vector & half);
    const __m256i high = _mm256_shuffle_epi8(table, _mm256_srli_epi16(vector, 4) & half);
    return _mm256_sad_epu8(_mm256_add_epi8(low, high), _mm256_setzero_si256());
}

ZEL_KERNEL inline std::int64_t sumOfQuarters(__m256i vector) {
    const __m128i pair =
        _mm_add_epi64(_mm256_castsi256_si128(vector), _mm256_extracti128_si256(vector, 1));
    return _mm_cvtsi128_si64(pair) + _mm_extract_epi64(pair, 1);
}

/// What four vectors carry into the fours.
ZEL_KERNEL inline __m256i addFour(__m256i& ones, __m256i& twos, const std::uint32_t* from) {
    constexpr std::size_t words = Avx2::words;
    const __m256i first = carry(ones, Avx2::load(from), Avx2::load(from + words));
    const __m256i second = carry(ones, Avx2::load(from + 2 * words), Avx2::load(from + 3 * words));
    return carry(twos, first, second);
}

/// After Harley and Seal: sixteen vectors become one of sixteens by carries, and only that one and
/// what is left at the end are counted.
ZEL_KERNEL std::int64_t Avx2::countBits(const std::uint32_t* from, std::size_t count) {
    __m256i total = _mm256_setzero_si256();
    __m256i ones = total, twos = total, fours = total, eights = total;
    std::size_t i = 0;
    for (; i + 16 * words <= count; i += 16 * words) {
        const std::uint32_t* at = from + i;
        const __m256i first = addFour(ones, twos, at);
        const __m256i second = addFour(ones, twos, at + 4 * words);
        const __m256i low = carry(fours, first, second);
        const __m256i third = addFour(ones, twos, at + 8 * words);
        const __m256i fourth = addFour(ones, twos, at + 12 * words);
        const __m256i high = carry(fours, third, fourth);
        total = _mm256_add_epi64(total, quarterCounts(carry(eights, low, high)));
    }
    total = _mm256_slli_epi64(total, 4);
    total = _mm256_add_epi64(total, _mm256_slli_epi64(quarterCounts(eights), 3));
    total = _mm256_add_epi64(total, _mm256_slli_epi64(quarterCounts(fours), 2));
    total = _mm256_add_epi64(total, _mm256_slli_epi64(quarterCounts(twos), 1));
    total = _mm256_add_epi64(total, quarterCounts(ones));
    for (; i < count; i += words) {
        const __m256i rest = loadSome(from + i, upToVector<Avx2>(count - i));
        total = _mm256_add_epi64(total, quarterCounts(rest));
    }
    return sumOfQuarters(total);
}

} // namespace

const WordKernels* avx2Kernels() {
    __builtin_cpu_init();
    return __builtin_cpu_supports("avx2") ? &kernelsOf<Avx2> : nullptr;
}

} // namespace zelsets

#else

const zelsets::WordKernels* zelsets::avx2Kernels() { return nullptr; }

#endif
