// SPDX-License-Identifier: Apache-2.0
// Reading words of a chunked array, against a plain vector: one at a time by its place, in order
// and in random order, and run by run. What is read one at a time is used one at a time, since a
// compiler adds up a plain vector by vectors, as it does a chunk. A million words, all there.
#include "benchmarks/memory/races.h"
#include "benchmarks/support/race.h"
#include "zelbasictypes/memory/array.h"
#include "zelbasictypes/memory/bitvectorsplitter.h"

#include <algorithm>
#include <memory>
#include <numeric>
#include <random>
#include <vector>

namespace {

using Words = ZelMM::Array<unsigned int, BitVectorSplitter>;
constexpr std::uint32_t wordCount = 1'000'000;

template <class Array>
unsigned sumAt(const Array& words, const std::vector<std::uint32_t>& places) {
    unsigned result = 0;
    for (const std::uint32_t place : places) result += words[place];
    return result;
}

unsigned sum(const unsigned* words, std::uint32_t count) {
    return std::accumulate(words, words + count, 0u);
}

unsigned sumOfAll(const std::vector<unsigned>& words) { return sum(words.data(), wordCount); }

unsigned sumOfAll(const Words& words) {
    unsigned result = 0;
    for (std::uint32_t i = 0; i < words.chunkCount(); ++i) {
        const unsigned* chunk = words.chunkAt(i);
        if (chunk) result += sum(chunk, words.chunkElements());
    }
    return result;
}

template <class Array> void addPeer(const char* peer, std::shared_ptr<const Array> words) {
    std::vector<std::uint32_t> places(100'000);
    std::iota(places.begin(), places.end(), 0u);
    race::add("100,000 words one by one, in order", peer, [=](benchmark::State& state) {
        for (auto _ : state) benchmark::DoNotOptimize(sumAt(*words, places));
    });
    std::mt19937 random(8);
    for (std::uint32_t& place : places) place = static_cast<std::uint32_t>(random() % wordCount);
    race::add("100,000 words one by one, at random", peer, [=](benchmark::State& state) {
        for (auto _ : state) benchmark::DoNotOptimize(sumAt(*words, places));
    });
    race::add("1,000,000 words run by run", peer, [words](benchmark::State& state) {
        for (auto _ : state) benchmark::DoNotOptimize(sumOfAll(*words));
    });
}

} // namespace

void addArrayRaces() {
    std::vector<unsigned> plain(wordCount);
    std::iota(plain.begin(), plain.end(), 1u);
    auto chunked = std::make_shared<Words>(wordCount);
    for (std::uint32_t i = 0; i < wordCount; ++i) chunked->set(i, plain[i]);
    addPeer<std::vector<unsigned>>("std::vector",
                                   std::make_shared<std::vector<unsigned>>(std::move(plain)));
    addPeer<Words>("ZelMM::Array", chunked);
}
