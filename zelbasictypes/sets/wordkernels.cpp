// SPDX-License-Identifier: Apache-2.0
// The kernels for any machine, in 64-bit words, and the choice between the sets.
#include "zelbasictypes/sets/wordkernels.h"

#include <bit>
#include <cstring>
#include <functional>

namespace zelsets {

namespace {

std::uint64_t pairAt(const std::uint32_t* words) {
    std::uint64_t pair;
    std::memcpy(&pair, words, sizeof pair);
    return pair;
}

struct Minus {
    template <class Word> Word operator()(Word a, Word b) const { return a & ~b; }
};

template <class Operation>
void combine(std::uint32_t* to, const std::uint32_t* from, std::size_t count, NextWords) {
    constexpr Operation result;
    std::size_t i = 0;
    for (; i + 2 <= count; i += 2) {
        const std::uint64_t pair = result(pairAt(to + i), pairAt(from + i));
        std::memcpy(to + i, &pair, sizeof pair);
    }
    if (i < count) to[i] = result(to[i], from[i]);
}

void invert(std::uint32_t* to, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) to[i] = ~to[i];
}

std::int64_t countAll(const std::uint32_t* words, std::size_t count) {
    std::int64_t bits = 0;
    std::size_t i = 0;
    for (; i + 2 <= count; i += 2) bits += std::popcount(pairAt(words + i));
    return i < count ? bits + std::popcount(words[i]) : bits;
}

/// Whether the operation finds no bit in any pair of words.
template <class Stray>
bool hasNone(const std::uint32_t* a, const std::uint32_t* b, std::size_t count) {
    constexpr Stray stray;
    std::size_t i = 0;
    for (; i + 2 <= count; i += 2)
        if (stray(pairAt(a + i), pairAt(b + i))) return false;
    return i == count || !stray(a[i], b[i]);
}

bool isZero(const std::uint32_t* words, std::size_t count) {
    return hasNone<std::bit_or<>>(words, words, count);
}

const WordKernels& bestKernels() {
    if (const WordKernels* kernels = avx512Kernels()) return *kernels;
    if (const WordKernels* kernels = avx2Kernels()) return *kernels;
    return plainKernels;
}

const WordKernels& bestKernelsAcross() {
    const WordKernels* kernels = avx2Kernels();
    return kernels ? *kernels : bestKernels();
}

} // namespace

constinit const WordKernels plainKernels = {combine<std::bit_and<>>,
                                            combine<std::bit_or<>>,
                                            combine<std::bit_xor<>>,
                                            combine<Minus>,
                                            invert,
                                            countAll,
                                            hasNone<std::bit_xor<>>,
                                            hasNone<Minus>,
                                            hasNone<std::bit_and<>>,
                                            isZero};

constinit const WordKernels* wordKernels = &plainKernels;
constinit const WordKernels* wordKernelsAcross = &plainKernels;

namespace {

[[maybe_unused]] const bool isChosen =
    (wordKernels = &bestKernels(), wordKernelsAcross = &bestKernelsAcross(), true);

} // namespace

} // namespace zelsets
