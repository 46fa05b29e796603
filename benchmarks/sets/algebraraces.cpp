// SPDX-License-Identifier: Apache-2.0
// Algebra, comparison and count of sets in plain words.
#include "benchmarks/sets/races.h"
#include "benchmarks/sets/wordloops.h"

#include <algorithm>
#include <functional>

using namespace samples;

namespace {

/// A name and what it does to a set; to do it again changes nothing but in the exclusive union,
/// where it restores the set.
struct And {
    static constexpr const char* name = "and";
    static void apply(Words& to, const Words& from) { wordloops::andWords(to, from); }
    template <class Set> static void apply(Set& to, const Set& from) { to &= from; }
};

struct Or {
    static constexpr const char* name = "or";
    static void apply(Words& to, const Words& from) { wordloops::orWords(to, from); }
    template <class Set> static void apply(Set& to, const Set& from) { to |= from; }
};

struct Xor {
    static constexpr const char* name = "xor";
    static void apply(Words& to, const Words& from) { wordloops::xorWords(to, from); }
    template <class Set> static void apply(Set& to, const Set& from) { to ^= from; }
};

struct Minus {
    static constexpr const char* name = "minus";
    static void apply(Words& to, const Words& from) { wordloops::minusWords(to, from); }
    template <class Set> static void apply(Set& to, const Set& from) { to -= from; }
};

template <class Operation, class Set> void addCombining(const char* peer, const Sample& one) {
    race::add(std::string(Operation::name) + ", " + nameOf(one.size), peer,
              [one](benchmark::State& state) {
                  Set target = setOf<Set>(one);
                  const Set& other = setOf<Set>({one.size, one.shape, 2});
                  for (auto _ : state) {
                      Operation::apply(target, other);
                      benchmark::ClobberMemory();
                  }
              });
}

template <class Operation> void addCombiningPeers(const Sample& one) {
    addCombining<Operation, Words>("word loop", one);
    addCombining<Operation, BitVector>("BitVector", one);
    if (isLarge(one.size)) addCombining<Operation, ChunkedBitVector>("BitVector in chunks", one);
    addCombining<Operation, BlockBitVector>("BlockBitVector", one);
    addCombining<Operation, Boost>("boost::dynamic_bitset", one);
    addCombining<Operation, Roaring>("CRoaring", one);
}

template <class Set, class Compare>
void addComparing(const char* peer, const Sample& one, Compare compare) {
    race::add("equality, " + nameOf(one.size), peer, [one, compare](benchmark::State& state) {
        const Set& set = setOf<Set>(one);
        const Set same = set;
        for (auto _ : state) benchmark::DoNotOptimize(compare(set, same));
    });
}

void addComparingPeers(const Sample& one) {
    addComparing<Words>("word loop", one, wordloops::areEqual);
    addComparing<BitVector>("BitVector", one, std::equal_to<>());
    if (isLarge(one.size))
        addComparing<ChunkedBitVector>("BitVector in chunks", one, std::equal_to<BitVector>());
    addComparing<BlockBitVector>("BlockBitVector", one, std::equal_to<>());
    addComparing<Boost>("boost::dynamic_bitset", one, std::equal_to<>());
    addComparing<Flags>("std::vector<bool>", one, std::equal_to<>());
    addComparing<Roaring>("CRoaring", one, std::equal_to<>());
}

template <class Set, class Count>
void addCounting(const char* peer, const Sample& one, Count count) {
    race::add("count, " + nameOf(one.size), peer, [one, count](benchmark::State& state) {
        const Set& set = setOf<Set>(one);
        for (auto _ : state) {
            benchmark::DoNotOptimize(count(set));
            benchmark::ClobberMemory();
        }
    });
}

void addCountingPeers(const Sample& one) {
    addCounting<Words>("word loop", one, wordloops::countBits);
    addCounting<BitVector>("BitVector", one, std::mem_fn(&BitVector::recount));
    if (isLarge(one.size))
        addCounting<ChunkedBitVector>("BitVector in chunks", one, std::mem_fn(&BitVector::recount));
    addCounting<Boost>("boost::dynamic_bitset", one, std::mem_fn(&Boost::count));
    addCounting<Flags>("std::vector<bool>", one,
                       [](const Flags& set) { return std::count(set.begin(), set.end(), true); });
}

} // namespace

void addAlgebraRaces() {
    for (const std::int32_t size : sizes) {
        const Sample sample{size, halfFull};
        addCombiningPeers<And>(sample);
        addCombiningPeers<Or>(sample);
        addCombiningPeers<Xor>(sample);
        addCombiningPeers<Minus>(sample);
        addComparingPeers(sample);
        addCountingPeers(sample);
    }
}
