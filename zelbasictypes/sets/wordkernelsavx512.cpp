// SPDX-License-Identifier: Apache-2.0
// The kernels in AVX-512, for machines that also count the bits of whole vectors. As in AVX2 each
// function carries its own target, and vectors stay in registers. What is left at the end of a run
// is a vector of which only some words are touched.
#include "zelbasictypes/sets/wordkernels.h"

#if defined(__x86_64__)

#include <algorithm>
#include <immintrin.h>
#include <iterator>
#include <numeric>

#define ZEL_AVX512 __attribute__((target("avx512f,avx512vpopcntdq")))

namespace zelsets {

namespace {

constexpr std::size_t vectorWords = 16;

ZEL_AVX512 inline __m512i load(const std::uint32_t* words) { return _mm512_loadu_si512(words); }

/// The first words of a vector, as many as are left of a run.
ZEL_AVX512 inline __mmask16 maskFor(std::size_t left) {
    return static_cast<__mmask16>(left < vectorWords ? (1U << left) - 1 : 0xFFFFU);
}

struct And {
    ZEL_AVX512 static __m512i of(__m512i a, __m512i b) { return a & b; }
};

struct Or {
    ZEL_AVX512 static __m512i of(__m512i a, __m512i b) { return a | b; }
};

struct Xor {
    ZEL_AVX512 static __m512i of(__m512i a, __m512i b) { return a ^ b; }
};

struct Minus {
    ZEL_AVX512 static __m512i of(__m512i a, __m512i b) { return a & ~b; }
};

template <class Operation>
ZEL_AVX512 inline void combineVector(std::uint32_t* to, const std::uint32_t* from) {
    _mm512_storeu_si512(to, Operation::of(load(to), load(from)));
}

/// The first `count` words of a vector, 16 at most.
template <class Operation>
ZEL_AVX512 inline void combineSome(std::uint32_t* to, const std::uint32_t* from,
                                   std::size_t count) {
    const __mmask16 mask = maskFor(count);
    const __m512i result =
        Operation::of(_mm512_maskz_loadu_epi32(mask, to), _mm512_maskz_loadu_epi32(mask, from));
    _mm512_mask_storeu_epi32(to, mask, result);
}

/// The words in front of the first vector that lies in one line of the cache.
std::size_t headOf(const std::uint32_t* words, std::size_t count) {
    const std::size_t passed =
        reinterpret_cast<std::uintptr_t>(words) / sizeof *words % vectorWords;
    return std::min(count, (vectorWords - passed) % vectorWords);
}

template <class Operation>
ZEL_AVX512 void combine(std::uint32_t* to, const std::uint32_t* from, std::size_t count) {
    std::size_t i = headOf(to, count);
    if (i > 0) combineSome<Operation>(to, from, i);
    for (; i + 4 * vectorWords <= count; i += 4 * vectorWords) {
        combineVector<Operation>(to + i, from + i);
        combineVector<Operation>(to + i + vectorWords, from + i + vectorWords);
        combineVector<Operation>(to + i + 2 * vectorWords, from + i + 2 * vectorWords);
        combineVector<Operation>(to + i + 3 * vectorWords, from + i + 3 * vectorWords);
    }
    for (; i + vectorWords <= count; i += vectorWords) combineVector<Operation>(to + i, from + i);
    if (i < count) combineSome<Operation>(to + i, from + i, count - i);
}

ZEL_AVX512 void invert(std::uint32_t* to, std::size_t count) {
    const __m512i ones = _mm512_set1_epi32(-1);
    for (std::size_t i = 0; i < count; i += vectorWords) {
        const __mmask16 mask = maskFor(count - i);
        const __m512i inverse = _mm512_xor_si512(_mm512_maskz_loadu_epi32(mask, to + i), ones);
        _mm512_mask_storeu_epi32(to + i, mask, inverse);
    }
}

ZEL_AVX512 inline bool isAnySet(__m512i vector) {
    return _mm512_test_epi32_mask(vector, vector) != 0;
}

/// Whether the operation finds no bit in the first `count` words of a vector, 16 at most.
template <class Stray>
ZEL_AVX512 inline bool hasNoneInSome(const std::uint32_t* a, const std::uint32_t* b,
                                     std::size_t count) {
    const __mmask16 mask = maskFor(count);
    return !isAnySet(
        Stray::of(_mm512_maskz_loadu_epi32(mask, a), _mm512_maskz_loadu_epi32(mask, b)));
}

/// Whether the operation finds no bit in any pair of words.
template <class Stray>
ZEL_AVX512 bool hasNone(const std::uint32_t* a, const std::uint32_t* b, std::size_t count) {
    std::size_t i = headOf(a, count);
    if (i > 0 && !hasNoneInSome<Stray>(a, b, i)) return false;
    for (; i + 4 * vectorWords <= count; i += 4 * vectorWords) {
        const __m512i low = Stray::of(load(a + i), load(b + i)) |
                            Stray::of(load(a + i + vectorWords), load(b + i + vectorWords));
        const __m512i high =
            Stray::of(load(a + i + 2 * vectorWords), load(b + i + 2 * vectorWords)) |
            Stray::of(load(a + i + 3 * vectorWords), load(b + i + 3 * vectorWords));
        if (isAnySet(low | high)) return false;
    }
    for (; i + vectorWords <= count; i += vectorWords)
        if (isAnySet(Stray::of(load(a + i), load(b + i)))) return false;
    return i == count || hasNoneInSome<Stray>(a + i, b + i, count - i);
}

ZEL_AVX512 bool isZero(const std::uint32_t* words, std::size_t count) {
    return hasNone<Or>(words, words, count);
}

ZEL_AVX512 inline __m512i countsOf(const std::uint32_t* words) {
    return _mm512_popcnt_epi64(load(words));
}

ZEL_AVX512 std::int64_t countAll(const std::uint32_t* words, std::size_t count) {
    __m512i even = _mm512_setzero_si512(), odd = even;
    std::size_t i = 0;
    for (; i + 4 * vectorWords <= count; i += 4 * vectorWords) {
        even = _mm512_add_epi64(even, countsOf(words + i));
        odd = _mm512_add_epi64(odd, countsOf(words + i + vectorWords));
        even = _mm512_add_epi64(even, countsOf(words + i + 2 * vectorWords));
        odd = _mm512_add_epi64(odd, countsOf(words + i + 3 * vectorWords));
    }
    for (; i < count; i += vectorWords) {
        const __m512i rest = _mm512_maskz_loadu_epi32(maskFor(count - i), words + i);
        even = _mm512_add_epi64(even, _mm512_popcnt_epi64(rest));
    }
    std::int64_t parts[8];
    _mm512_storeu_si512(parts, _mm512_add_epi64(even, odd));
    return std::accumulate(std::begin(parts), std::end(parts), std::int64_t{0});
}

constexpr WordKernels kernels = {combine<And>, combine<Or>, combine<Xor>, combine<Minus>,
                                 invert,       countAll,    hasNone<Xor>, hasNone<Minus>,
                                 hasNone<And>, isZero};

} // namespace

const WordKernels* avx512Kernels() {
    __builtin_cpu_init();
    return __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512vpopcntdq") ? &kernels
                                                                                          : nullptr;
}

} // namespace zelsets

#else

const zelsets::WordKernels* zelsets::avx512Kernels() { return nullptr; }

#endif
