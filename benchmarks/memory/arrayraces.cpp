// SPDX-License-Identifier: Apache-2.0
// Reading words of a chunked array by their places, against a plain vector: one after the other,
// and in random order. A million words in 489 chunks, all of them there.
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

template <class Array> unsigned sumInOrder(const Array& words) {
    unsigned sum = 0;
    for (std::uint32_t i = 0; i < wordCount; ++i) sum += words[i];
    return sum;
}

template <class Array>
unsigned sumAt(const Array& words, const std::vector<std::uint32_t>& places) {
    unsigned sum = 0;
    for (const std::uint32_t place : places) sum += words[place];
    return sum;
}

template <class Array> void addPeer(const char* peer, std::shared_ptr<const Array> words) {
    race::add("read 1,000,000 words in order", peer, [words](benchmark::State& state) {
        for (auto _ : state) benchmark::DoNotOptimize(sumInOrder(*words));
    });
    std::vector<std::uint32_t> places(100'000);
    std::mt19937 random(8);
    for (std::uint32_t& place : places) place = static_cast<std::uint32_t>(random() % wordCount);
    race::add("read 100,000 words in random order", peer, [=](benchmark::State& state) {
        for (auto _ : state) benchmark::DoNotOptimize(sumAt(*words, places));
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
