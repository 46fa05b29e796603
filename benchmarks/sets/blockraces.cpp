// SPDX-License-Identifier: Apache-2.0
// The algebra of sets that know which of their parts are empty or full.
#include "benchmarks/sets/races.h"
#include "benchmarks/sets/wordloops.h"

using namespace samples;

namespace {

constexpr const char* operations[] = {"and", "or", "xor", "minus"};
using Operation = std::size_t;

void apply(Operation operation, Words& to, const Words& from) {
    static constexpr decltype(&wordloops::andWords) loops[] = {
        wordloops::andWords, wordloops::orWords, wordloops::xorWords, wordloops::minusWords};
    loops[operation](to, from);
}

template <class Set> void apply(Operation operation, Set& to, const Set& from) {
    if (operation == 0) to &= from;
    if (operation == 1) to |= from;
    if (operation == 2) to ^= from;
    if (operation == 3) to -= from;
}

/// Small sets many at a time, so that stopping the clock costs next to nothing.
std::size_t copiesFor(std::int32_t size) {
    return static_cast<std::size_t>(std::max(1, 16'000'000 / size));
}

template <class Set> void addPeer(const char* peer, Operation operation, const Sample& one) {
    race::add(std::string("blocks ") + operations[operation] + ", " + nameOf(one.size, one.shape),
              peer, [one, operation](benchmark::State& state) {
                  const Set& source = setOf<Set>(one);
                  const Set& other = setOf<Set>({one.size, one.shape, 2});
                  std::vector<Set> targets;
                  for (auto _ : state) {
                      state.PauseTiming();
                      targets.assign(copiesFor(one.size), source);
                      state.ResumeTiming();
                      for (Set& target : targets) apply(operation, target, other);
                      benchmark::ClobberMemory();
                  }
              });
}

void addPeers(const Sample& sample) {
    for (Operation operation = 0; operation < std::size(operations); ++operation) {
        addPeer<Words>("word loop", operation, sample);
        addPeer<BlockBitVector>("BlockBitVector", operation, sample);
        addPeer<Roaring>("CRoaring", operation, sample);
    }
}

} // namespace

void addBlockRaces() {
    for (const std::int32_t size : sizes) {
        for (const Shape& shape : scattered) addPeers({size, shape});
        if (!isLarge(size)) continue;
        for (const Shape& shape : clustered) addPeers({size, shape});
    }
}
