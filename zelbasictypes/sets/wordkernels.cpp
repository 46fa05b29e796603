// SPDX-License-Identifier: Apache-2.0
// The kernels for any machine, in 64-bit words, and the choice between the two sets.
#include "zelbasictypes/sets/wordkernels.h"

#include <bit>
#include <cstring>

namespace zelsets {

namespace {

std::uint64_t pairAt(const std::uint32_t* words) {
    std::uint64_t pair;
    std::memcpy(&pair, words, sizeof pair);
    return pair;
}

template <class Operation>
void combine(std::uint32_t* to, const std::uint32_t* from, std::size_t count, Operation result) {
    std::size_t i = 0;
    for (; i + 2 <= count; i += 2) {
        const std::uint64_t pair = result(pairAt(to + i), pairAt(from + i));
        std::memcpy(to + i, &pair, sizeof pair);
    }
    if (i < count) to[i] = static_cast<std::uint32_t>(result(to[i], from[i]));
}

/// Whether `stray` finds no bit in any pair of words.
template <class Stray>
bool hasNone(const std::uint32_t* a, const std::uint32_t* b, std::size_t count, Stray stray) {
    std::size_t i = 0;
    for (; i + 2 <= count; i += 2)
        if (stray(pairAt(a + i), pairAt(b + i))) return false;
    return i == count || !stray(a[i], b[i]);
}

} // namespace

#if defined(__x86_64__)
const bool hasWideWords = [] {
    __builtin_cpu_init();
    return __builtin_cpu_supports("avx2") && __builtin_cpu_supports("popcnt");
}();
#endif

void PlainKernels::andWords(std::uint32_t* to, const std::uint32_t* from, std::size_t count) {
    combine(to, from, count, [](std::uint64_t a, std::uint64_t b) { return a & b; });
}

void PlainKernels::orWords(std::uint32_t* to, const std::uint32_t* from, std::size_t count) {
    combine(to, from, count, [](std::uint64_t a, std::uint64_t b) { return a | b; });
}

void PlainKernels::xorWords(std::uint32_t* to, const std::uint32_t* from, std::size_t count) {
    combine(to, from, count, [](std::uint64_t a, std::uint64_t b) { return a ^ b; });
}

void PlainKernels::minusWords(std::uint32_t* to, const std::uint32_t* from, std::size_t count) {
    combine(to, from, count, [](std::uint64_t a, std::uint64_t b) { return a & ~b; });
}

void PlainKernels::invertWords(std::uint32_t* to, std::size_t count) {
    combine(to, to, count, [](std::uint64_t a, std::uint64_t) { return ~a; });
}

std::int64_t PlainKernels::countBits(const std::uint32_t* words, std::size_t count) {
    std::int64_t bits = 0;
    std::size_t i = 0;
    for (; i + 2 <= count; i += 2) bits += std::popcount(pairAt(words + i));
    return i < count ? bits + std::popcount(words[i]) : bits;
}

bool PlainKernels::areEqual(const std::uint32_t* a, const std::uint32_t* b, std::size_t count) {
    return count == 0 || std::memcmp(a, b, count * sizeof *a) == 0;
}

bool PlainKernels::isSubset(const std::uint32_t* part, const std::uint32_t* whole,
                            std::size_t count) {
    return hasNone(part, whole, count, [](std::uint64_t a, std::uint64_t b) { return a & ~b; });
}

bool PlainKernels::areDisjoint(const std::uint32_t* a, const std::uint32_t* b, std::size_t count) {
    return hasNone(a, b, count, [](std::uint64_t x, std::uint64_t y) { return x & y; });
}

bool PlainKernels::areZero(const std::uint32_t* words, std::size_t count) {
    return hasNone(words, words, count, [](std::uint64_t a, std::uint64_t) { return a; });
}

} // namespace zelsets
