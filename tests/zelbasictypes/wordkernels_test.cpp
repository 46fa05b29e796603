// SPDX-License-Identifier: Apache-2.0
// The loops over words, in each set of instructions that this machine has, against single words;
// and none writes behind its run.
#include "zelbasictypes/sets/wordkernels.h"

#include <gtest/gtest.h>

#include <bit>
#include <random>
#include <vector>

namespace {

using zelsets::NextWords;
using zelsets::WordKernels;
using Words = std::vector<std::uint32_t>;

struct Samples {
    Words a, b;
};

/// Random words, from all clear to all set, in runs at any alignment of a word.
Samples samplesOf(std::size_t count, std::uint32_t kind) {
    std::mt19937 random(static_cast<std::uint32_t>(count) * 4 + kind);
    Samples samples{Words(count), Words(count)};
    for (std::size_t i = 0; i < count; ++i) {
        const auto any = static_cast<std::uint32_t>(random());
        samples.a[i] = kind == 0 ? 0 : kind == 1 ? ~0U : any;
        samples.b[i] = kind == 2 ? any : static_cast<std::uint32_t>(random());
    }
    return samples;
}

struct Case {
    const char* name;
    const WordKernels* kernels; ///< null where this machine can't run them
};

class WordKernelsFor : public testing::TestWithParam<Case> {
protected:
    void SetUp() override {
        if (!GetParam().kernels) GTEST_SKIP();
        kernels = *GetParam().kernels;
    }

    /// A run in the middle of a larger one, whose ends must stay, whether another one follows or
    /// not.
    template <class Combine, class Single>
    static void expectCombined(const Samples& samples, Combine combine, Single single) {
        constexpr std::uint32_t fence = 0x5A5A5A5A;
        const std::size_t count = samples.a.size();
        const Words following(count);
        for (const NextWords next : {NextWords{}, {following.data(), following.data()}}) {
            Words to(count + 2, fence);
            std::copy(samples.a.begin(), samples.a.end(), to.begin() + 1);
            combine(to.data() + 1, samples.b.data(), count, next);
            EXPECT_EQ(to.front(), fence);
            EXPECT_EQ(to.back(), fence);
            for (std::size_t i = 0; i < count; ++i)
                ASSERT_EQ(to[i + 1], single(samples.a[i], samples.b[i])) << i << " of " << count;
        }
    }

    template <class Each> static void forAllSizes(Each each) {
        for (std::size_t count = 0; count < 300; ++count)
            for (std::uint32_t kind = 0; kind < 4; ++kind) each(samplesOf(count, kind));
    }

    WordKernels kernels{};
};

} // namespace

TEST_P(WordKernelsFor, CombineWordByWord) {
    using U = std::uint32_t;
    forAllSizes([&](const Samples& samples) {
        expectCombined(samples, kernels.andWords, [](U a, U b) { return a & b; });
        expectCombined(samples, kernels.orWords, [](U a, U b) { return a | b; });
        expectCombined(samples, kernels.xorWords, [](U a, U b) { return a ^ b; });
        expectCombined(samples, kernels.minusWords, [](U a, U b) { return a & ~b; });
        expectCombined(
            samples, [&](U* to, const U*, std::size_t n, NextWords) { kernels.invertWords(to, n); },
            [](U a, U) { return ~a; });
    });
}

TEST_P(WordKernelsFor, CountAllBits) {
    forAllSizes([&](const Samples& samples) {
        std::int64_t bits = 0;
        for (const std::uint32_t word : samples.a) bits += std::popcount(word);
        ASSERT_EQ(kernels.countBits(samples.a.data(), samples.a.size()), bits);
    });
}

TEST_P(WordKernelsFor, SeeEverySingleBit) {
    for (std::size_t count = 0; count < 150; ++count) {
        Words zeros(count), same(count, 6), other(count, 1);
        EXPECT_TRUE(kernels.areZero(zeros.data(), count));
        EXPECT_TRUE(kernels.areEqual(same.data(), Words(same).data(), count));
        EXPECT_TRUE(kernels.areDisjoint(same.data(), other.data(), count));
        EXPECT_TRUE(kernels.isSubset(same.data(), Words(count, 7).data(), count));
        for (std::size_t i = 0; i < count; ++i) {
            Words one = zeros, odd = same;
            one[i] = 1U << (i % 32);
            odd[i] |= 1;
            EXPECT_FALSE(kernels.areZero(one.data(), count));
            EXPECT_FALSE(kernels.areEqual(same.data(), odd.data(), count));
            EXPECT_FALSE(kernels.areDisjoint(odd.data(), other.data(), count));
            EXPECT_FALSE(kernels.isSubset(odd.data(), same.data(), count));
        }
    }
}

INSTANTIATE_TEST_SUITE_P(All, WordKernelsFor,
                         testing::Values(Case{"Plain", &zelsets::plainKernels},
                                         Case{"Avx2", zelsets::avx2Kernels()},
                                         Case{"Avx512", zelsets::avx512Kernels()}),
                         [](const auto& each) { return each.param.name; });
