// SPDX-License-Identifier: Apache-2.0
// Swapping 32 bytes at a time where the processor can, one number at a time where it can't.
#include "cadimport/wordcopy.h"

#include <QtEndian>

#if defined(__x86_64__) && defined(__GNUC__)
#include <immintrin.h>
#define BRIX_SWAPS_WITH_AVX2
#endif

namespace CADImport {
namespace {

#ifdef BRIX_SWAPS_WITH_AVX2

// False until this is initialised, which is right as well.
const bool hasAvx2 = __builtin_cpu_supports("avx2") != 0;

/// Reverses the bytes of each word; returns how many words it got done.
template <class Word>
__attribute__((target("avx2"))) qsizetype copyBlocks(const uchar* from, qsizetype count, Word* to) {
    const __m256i reversed = sizeof(Word) == 8
                                 ? _mm256_set_epi64x(0x08090a0b0c0d0e0f, 0x0001020304050607,
                                                     0x08090a0b0c0d0e0f, 0x0001020304050607)
                                 : _mm256_set_epi64x(0x0c0d0e0f08090a0b, 0x0405060700010203,
                                                     0x0c0d0e0f08090a0b, 0x0405060700010203);
    constexpr auto perBlock = static_cast<qsizetype>(sizeof(__m256i) / sizeof(Word));
    const qsizetype done = count / perBlock * perBlock;
    for (qsizetype i = 0; i < done; i += perBlock) {
        const auto* block = reinterpret_cast<const __m256i*>(from + i * qsizetype(sizeof(Word)));
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(to + i),
                            _mm256_shuffle_epi8(_mm256_loadu_si256(block), reversed));
    }
    return done;
}

#endif

template <class Word> void copy(const uchar* from, qsizetype count, Word* to) {
    qsizetype done = 0;
#ifdef BRIX_SWAPS_WITH_AVX2
    if (hasAvx2) done = copyBlocks(from, count, to);
#endif
    qFromBigEndian<Word>(from + done * qsizetype(sizeof(Word)), count - done, to + done);
}

} // namespace

void copyWords(const uchar* from, qsizetype count, quint64* to) { copy(from, count, to); }
void copyWords(const uchar* from, qsizetype count, quint32* to) { copy(from, count, to); }

} // namespace CADImport
