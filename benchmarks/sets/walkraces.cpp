// SPDX-License-Identifier: Apache-2.0
// Visits to all set bits, and to single ones.
#include "benchmarks/sets/races.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <random>

using namespace samples;

namespace {

/// The limit: the lowest bit of each 64-bit word.
std::int64_t sumOf(const Words& set) {
    std::int64_t sum = 0;
    for (std::size_t w = 0; w + 2 <= set.size(); w += 2) {
        std::uint64_t left;
        std::memcpy(&left, set.data() + w, sizeof left);
        for (; left != 0; left &= left - 1)
            sum += static_cast<std::int64_t>(w * 32) + std::countr_zero(left);
    }
    if (set.size() % 2)
        for (std::uint32_t left = set.back(); left != 0; left &= left - 1)
            sum += static_cast<std::int64_t>((set.size() - 1) * 32) + std::countr_zero(left);
    return sum;
}

template <class Set> std::int64_t sumOf(const Set& set) {
    std::int64_t sum = 0;
    set.forEachSet([&](std::int32_t i) { sum += i; });
    return sum;
}

template <class Set> std::int64_t sumBySearch(const Set& set) {
    std::int64_t sum = 0;
    for (std::int32_t i = set.nextSet(-1); i >= 0; i = set.nextSet(i)) sum += i;
    return sum;
}

std::int64_t sumOf(const Boost& set) {
    std::int64_t sum = 0;
    for (std::size_t i = set.find_first(); i != Boost::npos; i = set.find_next(i))
        sum += static_cast<std::int64_t>(i);
    return sum;
}

std::int64_t sumOf(const Flags& set) {
    std::int64_t sum = 0;
    for (std::size_t i = 0; i < set.size(); ++i)
        if (set[i]) sum += static_cast<std::int64_t>(i);
    return sum;
}

std::int64_t sumOf(const Roaring& set) {
    std::int64_t sum = 0;
    set.iterate(
        [](std::uint32_t i, void* total) {
            *static_cast<std::int64_t*>(total) += i;
            return true;
        },
        &sum);
    return sum;
}

template <class Set>
void addWalk(const char* peer, const Sample& sample, std::int64_t (*walk)(const Set&)) {
    race::add("walk, " + nameOf(sample.size, sample.shape), peer, [=](benchmark::State& state) {
        const Set& set = setOf<Set>(sample);
        for (auto _ : state) {
            benchmark::DoNotOptimize(walk(set));
            benchmark::ClobberMemory();
        }
    });
}

void addWalks(const Sample& sample) {
    addWalk<Words>("64-bit word loop", sample, sumOf);
    addWalk<BitVector>("BitVector", sample, sumOf<BitVector>);
    addWalk<BitVector>("BitVector, nextSet", sample, sumBySearch<BitVector>);
    if (isLarge(sample.size))
        addWalk<ChunkedBitVector>("BitVector in chunks", sample, sumOf<ChunkedBitVector>);
    addWalk<BlockBitVector>("BlockBitVector", sample, sumOf<BlockBitVector>);
    addWalk<BlockBitVector>("BlockBitVector, nextSet", sample, sumBySearch<BlockBitVector>);
    addWalk<Boost>("boost::dynamic_bitset", sample, sumOf);
    addWalk<Flags>("std::vector<bool>", sample, sumOf);
    addWalk<Roaring>("CRoaring", sample, sumOf);
}

std::vector<std::int32_t> randomBits(std::int32_t size) {
    std::vector<std::int32_t> bits(4096);
    std::mt19937 random(9);
    std::uniform_int_distribution<std::int32_t> any(0, size - 1);
    std::generate(bits.begin(), bits.end(), [&] { return any(random); });
    return bits;
}

std::size_t placeOf(std::int32_t i) { return static_cast<std::size_t>(i); }

bool test(const Words& set, std::int32_t i) { return set[placeOf(i) >> 5] >> (i & 31) & 1; }
template <class Set> bool test(const Set& set, std::int32_t i) { return set.test(i); }
bool test(const Boost& set, std::int32_t i) { return set.test(placeOf(i)); }
bool test(const Flags& set, std::int32_t i) { return set[placeOf(i)]; }
bool test(const Roaring& set, std::int32_t i) { return set.contains(std::uint32_t(i)); }

void set(Words& to, std::int32_t i) { to[placeOf(i) >> 5] |= 1U << (i & 31); }
template <class Set> void set(Set& to, std::int32_t i) { to.set(i); }
void set(Boost& to, std::int32_t i) { to.set(placeOf(i)); }
void set(Flags& to, std::int32_t i) { to[placeOf(i)] = true; }
void set(Roaring& to, std::int32_t i) { to.add(std::uint32_t(i)); }

void clear(Words& to, std::int32_t i) { to[placeOf(i) >> 5] &= ~(1U << (i & 31)); }
template <class Set> void clear(Set& to, std::int32_t i) { to.clear(i); }
void clear(Boost& to, std::int32_t i) { to.reset(placeOf(i)); }
void clear(Flags& to, std::int32_t i) { to[placeOf(i)] = false; }
void clear(Roaring& to, std::int32_t i) { to.remove(std::uint32_t(i)); }

template <class Set> void addTesting(const char* peer, const Sample& sample) {
    race::add("test random bits, " + nameOf(sample.size), peer, [sample](benchmark::State& state) {
        const Set& tested = setOf<Set>(sample);
        const std::vector<std::int32_t> bits = randomBits(sample.size);
        for (auto _ : state) {
            std::int32_t found = 0;
            for (const std::int32_t i : bits) found += test(tested, i);
            benchmark::DoNotOptimize(found);
            benchmark::ClobberMemory();
        }
    });
}

template <class Set>
void addChanging(const char* peer, const Sample& sample, void (*prepare)(Set&) = nullptr) {
    race::add("set and clear random bits, " + nameOf(sample.size), peer,
              [=](benchmark::State& state) {
                  Set changed = setOf<Set>(sample);
                  if (prepare) prepare(changed);
                  const std::vector<std::int32_t> bits = randomBits(sample.size);
                  for (auto _ : state) {
                      for (const std::int32_t i : bits) set(changed, i);
                      for (const std::int32_t i : bits) clear(changed, i);
                      benchmark::ClobberMemory();
                  }
              });
}

template <class Set> void addTouching(const char* peer, const Sample& sample) {
    addTesting<Set>(peer, sample);
    addChanging<Set>(peer, sample);
}

/// As it is behind any algebra, until somebody asks.
void forgetCount(BitVector& set) {
    set.complement();
    set.complement();
}

void addTouchingPeers(const Sample& sample) {
    addTouching<Words>("word loop", sample);
    addTouching<BitVector>("BitVector", sample);
    addChanging<BitVector>("BitVector, count unknown", sample, forgetCount);
    if (isLarge(sample.size)) addTouching<ChunkedBitVector>("BitVector in chunks", sample);
    addTouching<BlockBitVector>("BlockBitVector", sample);
    addTouching<Boost>("boost::dynamic_bitset", sample);
    addTouching<Flags>("std::vector<bool>", sample);
    addTouching<Roaring>("CRoaring", sample);
}

} // namespace

void addWalkRaces() {
    for (const std::int32_t size : sizes) {
        for (const Shape& shape : scattered) addWalks({size, shape});
        if (isLarge(size))
            for (const Shape& shape : clustered) addWalks({size, shape});
        addTouchingPeers({size, halfFull});
    }
}
