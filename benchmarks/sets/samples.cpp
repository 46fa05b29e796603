// SPDX-License-Identifier: Apache-2.0
// Random words, and sets of all kinds made of them.
#include "benchmarks/sets/samples.h"

#include <bit>
#include <random>

namespace samples {

namespace {

template <class Visit> void visitBits(const Words& words, Visit visit) {
    for (std::size_t w = 0; w < words.size(); ++w)
        for (std::uint32_t left = words[w]; left != 0; left &= left - 1)
            visit(static_cast<std::int32_t>(w) * 32 + std::countr_zero(left));
}

void addBit(Words& words, std::int32_t bit) {
    words[static_cast<std::size_t>(bit) >> 5] |= 1U << (bit & 31);
}

/// Gaps between bits of the right mean length, which costs less than a draw for each bit.
void scatter(Words& words, std::int32_t size, std::int32_t perMille, std::mt19937& random) {
    std::geometric_distribution<std::int32_t> gap(perMille / 1000.0);
    for (std::int64_t bit = gap(random); bit < size; bit += 1 + gap(random))
        addBit(words, static_cast<std::int32_t>(bit));
}

/// Runs and gaps are up to a tenth longer or shorter, so that the runs of two sets drift apart.
void cluster(Words& words, std::int32_t size, std::int32_t run, std::mt19937& random) {
    std::uniform_int_distribution<std::int32_t> length(run - run / 10, run + run / 10);
    for (std::int64_t bit = length(random) / 2; bit < size; bit += length(random))
        for (const std::int64_t end = bit + length(random); bit < end && bit < size; ++bit)
            addBit(words, static_cast<std::int32_t>(bit));
}

} // namespace

std::string nameOf(std::int32_t size) {
    return size == 10'000 ? "1e4 bits" : size == 1'000'000 ? "1e6 bits" : "1e8 bits";
}

std::string nameOf(std::int32_t size, const Shape& shape) {
    if (shape.run != 0) return nameOf(size) + ", runs of " + std::to_string(shape.run);
    const std::string percent = shape.perMille == 1 ? "0.1" : std::to_string(shape.perMille / 10);
    return nameOf(size) + ", " + percent + " % set";
}

const Words& wordsOf(const Sample& sample) {
    static std::map<Sample, Words> made;
    const auto [entry, isNew] = made.try_emplace(sample);
    Words& words = entry->second;
    if (!isNew) return words;
    words.resize(static_cast<std::size_t>(sample.size + 31) / 32);
    std::mt19937 random(sample.seed);
    if (sample.shape.run != 0) {
        cluster(words, sample.size, sample.shape.run, random);
    } else {
        scatter(words, sample.size, sample.shape.perMille, random);
    }
    return words;
}

void fill(const Words& words, Words& set) { set = words; }

void fill(const Words& words, ChunkedBitVector& set) {
    set = ChunkedBitVector(static_cast<std::int32_t>(words.size()) * 32 - 1);
    visitBits(words, [&](std::int32_t bit) { set.set(bit); });
}

/// By a copy, which keeps the layout of the small vector that `set` is.
void fill(const Words& words, BitVector& set) {
    ChunkedBitVector chunked;
    fill(words, chunked);
    set.copyBits(chunked);
}

void fill(const Words& words, BlockBitVector& set) {
    visitBits(words, [&](std::int32_t bit) { set.set(bit); });
    set.compact();
}

void fill(const Words& words, Boost& set) {
    set.resize(words.size() * 32);
    visitBits(words, [&](std::int32_t bit) { set.set(static_cast<std::size_t>(bit)); });
}

void fill(const Words& words, Flags& set) {
    set.resize(words.size() * 32);
    visitBits(words, [&](std::int32_t bit) { set[static_cast<std::size_t>(bit)] = true; });
}

void fill(const Words& words, Roaring& set) {
    std::vector<std::uint32_t> batch;
    const auto add = [&] {
        set.addMany(batch.size(), batch.data());
        batch.clear();
    };
    visitBits(words, [&](std::int32_t bit) {
        batch.push_back(static_cast<std::uint32_t>(bit));
        if (batch.size() == 0x10000) add();
    });
    add();
    set.runOptimize();
    set.shrinkToFit();
}

} // namespace samples
