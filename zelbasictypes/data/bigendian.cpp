// SPDX-License-Identifier: Apache-2.0
// Runs of words turned around, 32 bytes at a time where the processor can.
#include "zelbasictypes/data/bigendian.h"

#include "zelbasictypes/text/machine.h"

#if defined(__x86_64__)
#include <immintrin.h>
#endif

namespace bigendian {

namespace {

template <class Word>
void swapWords(std::uint8_t* to, const std::uint8_t* from, std::size_t bytes) {
    for (std::size_t i = 0; i < bytes; i += sizeof(Word)) {
        Word word;
        std::memcpy(&word, from + i, sizeof word);
        word = swapped(word);
        std::memcpy(to + i, &word, sizeof word);
    }
}

#if defined(__x86_64__)

/// Works on whole vectors; the number of bytes done. The order of bytes within a vector goes by
/// halves of 16.
__attribute__((target("avx2"))) std::size_t swapVectors(std::uint8_t* to, const std::uint8_t* from,
                                                        unsigned wordBytes, std::size_t bytes) {
    alignas(16) std::uint8_t order[16];
    for (unsigned i = 0; i < 16; ++i) order[i] = static_cast<std::uint8_t>(i ^ (wordBytes - 1));
    const __m128i half = _mm_load_si128(reinterpret_cast<const __m128i*>(order));
    const __m256i turn = _mm256_broadcastsi128_si256(half);
    std::size_t done = 0;
    for (; done + 32 <= bytes; done += 32) {
        const __m256i words = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(from + done));
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(to + done),
                            _mm256_shuffle_epi8(words, turn));
    }
    return done;
}

std::size_t swapFast(std::uint8_t* to, const std::uint8_t* from, unsigned wordBytes,
                     std::size_t bytes) {
    return bytes >= 64 && zeltext::machineHasAvx2() ? swapVectors(to, from, wordBytes, bytes) : 0;
}

#else

std::size_t swapFast(std::uint8_t*, const std::uint8_t*, unsigned, std::size_t) { return 0; }

#endif

} // namespace

void copyRun(void* to, const void* from, unsigned wordBytes, std::size_t count) {
    auto* dest = static_cast<std::uint8_t*>(to);
    const auto* source = static_cast<const std::uint8_t*>(from);
    const std::size_t bytes = count * wordBytes;
    if (wordBytes == 1 || std::endian::native == std::endian::big) {
        if (bytes > 0) std::memcpy(dest, source, bytes);
        return;
    }
    const std::size_t done = swapFast(dest, source, wordBytes, bytes);
    switch (wordBytes) {
    case 2:
        return swapWords<std::uint16_t>(dest + done, source + done, bytes - done);
    case 4:
        return swapWords<std::uint32_t>(dest + done, source + done, bytes - done);
    default:
        return swapWords<std::uint64_t>(dest + done, source + done, bytes - done);
    }
}

} // namespace bigendian
