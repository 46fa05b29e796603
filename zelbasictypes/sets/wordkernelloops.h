// SPDX-License-Identifier: Apache-2.0
/// @file
/// The loops that all kernels in vectors share, for a source that makes them for one machine.
///
/// Before it includes this the source defines ZEL_KERNEL, the target that each function carries, so
/// that the rest of the library runs on any machine. `V` is that machine's vector: `words` in it,
/// `load` and `store` of a whole one at any address, `loadSome` and `storeSome` of its first words,
/// as many as are left of a run, with zeros for the others, `isAnySet`, and `countBits` for a run.
/// Vectors stay in registers: no stack of the target system is aligned for them.
#pragma once

#include "zelbasictypes/sets/wordkernels.h"

#include <algorithm>

namespace zelsets {

namespace {

struct And {
    template <class Bits> ZEL_KERNEL static Bits of(Bits a, Bits b) { return a & b; }
};

struct Or {
    template <class Bits> ZEL_KERNEL static Bits of(Bits a, Bits b) { return a | b; }
};

struct Xor {
    template <class Bits> ZEL_KERNEL static Bits of(Bits a, Bits b) { return a ^ b; }
};

struct Minus {
    template <class Bits> ZEL_KERNEL static Bits of(Bits a, Bits b) { return a & ~b; }
};

/// The words in front of the first vector that doesn't lie across two lines of the cache.
template <class V> std::size_t headOf(const std::uint32_t* words, std::size_t count) {
    const std::size_t passed = reinterpret_cast<std::uintptr_t>(words) / sizeof *words % V::words;
    return std::min(count, (V::words - passed) % V::words);
}

/// What is left of a run, a vector at most.
template <class V> std::size_t upToVector(std::size_t left) { return std::min(left, V::words); }

/// Asks for as many words as a step of the loops takes.
template <class V> inline void fetch(const std::uint32_t* words) {
    constexpr std::size_t lineWords = 16;
    for (std::size_t i = 0; i < 4 * V::words; i += lineWords) __builtin_prefetch(words + i);
}

template <class V, class Operation>
ZEL_KERNEL inline void combineVector(std::uint32_t* to, const std::uint32_t* from) {
    V::store(to, Operation::of(V::load(to), V::load(from)));
}

template <class V, class Operation>
ZEL_KERNEL inline void combineSome(std::uint32_t* to, const std::uint32_t* from,
                                   std::size_t count) {
    V::storeSome(to, Operation::of(V::loadSome(to, count), V::loadSome(from, count)), count);
}

template <class V, class Operation, bool goesOn>
ZEL_KERNEL inline void combineRun(std::uint32_t* to, const std::uint32_t* from, std::size_t count,
                                  const NextWords& next) {
    std::size_t i = headOf<V>(to, count);
    if (i > 0) combineSome<V, Operation>(to, from, i);
    for (; i + 4 * V::words <= count; i += 4 * V::words) {
        if constexpr (goesOn) {
            fetch<V>(next.to + i);
            fetch<V>(next.from + i);
        }
        combineVector<V, Operation>(to + i, from + i);
        combineVector<V, Operation>(to + i + V::words, from + i + V::words);
        combineVector<V, Operation>(to + i + 2 * V::words, from + i + 2 * V::words);
        combineVector<V, Operation>(to + i + 3 * V::words, from + i + 3 * V::words);
    }
    for (; i + V::words <= count; i += V::words) combineVector<V, Operation>(to + i, from + i);
    if (i < count) combineSome<V, Operation>(to + i, from + i, count - i);
}

template <class V, class Operation>
ZEL_KERNEL void combine(std::uint32_t* to, const std::uint32_t* from, std::size_t count,
                        NextWords next) {
    if (next.to) {
        combineRun<V, Operation, true>(to, from, count, next);
    } else {
        combineRun<V, Operation, false>(to, from, count, next);
    }
}

template <class V> ZEL_KERNEL void invert(std::uint32_t* to, std::size_t count) {
    std::size_t i = 0;
    for (; i + V::words <= count; i += V::words) V::store(to + i, ~V::load(to + i));
    if (i < count) V::storeSome(to + i, ~V::loadSome(to + i, count - i), count - i);
}

template <class V, class Stray>
ZEL_KERNEL inline auto strayBits(const std::uint32_t* a, const std::uint32_t* b) {
    return Stray::of(V::load(a), V::load(b));
}

/// Whether the operation finds no bit in the first `count` words of a vector.
template <class V, class Stray>
ZEL_KERNEL inline bool hasNoneInSome(const std::uint32_t* a, const std::uint32_t* b,
                                     std::size_t count) {
    return !V::isAnySet(Stray::of(V::loadSome(a, count), V::loadSome(b, count)));
}

/// Whether the operation finds no bit in any pair of words.
template <class V, class Stray>
ZEL_KERNEL bool hasNone(const std::uint32_t* a, const std::uint32_t* b, std::size_t count) {
    std::size_t i = headOf<V>(a, count);
    if (i > 0 && !hasNoneInSome<V, Stray>(a, b, i)) return false;
    for (; i + 4 * V::words <= count; i += 4 * V::words) {
        const auto low = strayBits<V, Stray>(a + i, b + i) |
                         strayBits<V, Stray>(a + i + V::words, b + i + V::words);
        const auto high = strayBits<V, Stray>(a + i + 2 * V::words, b + i + 2 * V::words) |
                          strayBits<V, Stray>(a + i + 3 * V::words, b + i + 3 * V::words);
        if (V::isAnySet(low | high)) return false;
    }
    for (; i + V::words <= count; i += V::words)
        if (V::isAnySet(strayBits<V, Stray>(a + i, b + i))) return false;
    return i == count || hasNoneInSome<V, Stray>(a + i, b + i, count - i);
}

template <class V> ZEL_KERNEL bool isZero(const std::uint32_t* words, std::size_t count) {
    return hasNone<V, Or>(words, words, count);
}

template <class V>
constexpr WordKernels kernelsOf = {
    combine<V, And>, combine<V, Or>,  combine<V, Xor>,   combine<V, Minus>, invert<V>,
    V::countBits,    hasNone<V, Xor>, hasNone<V, Minus>, hasNone<V, And>,   isZero<V>};

} // namespace

} // namespace zelsets
