// SPDX-License-Identifier: Apache-2.0
// The loops over words, for any machine and for this one, against single words; and none writes
// behind its run.
#include "zelbasictypes/sets/wordkernels.h"

#include <gtest/gtest.h>

#include <bit>
#include <random>
#include <vector>

namespace {

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

template <class Kernels> class WordKernels : public testing::Test {
protected:
    /// A run in the middle of a larger one, whose ends must stay.
    template <class Combine, class Single>
    void expectCombined(const Samples& samples, Combine combine, Single single) {
        constexpr std::uint32_t fence = 0x5A5A5A5A;
        const std::size_t count = samples.a.size();
        Words to(count + 2, fence);
        std::copy(samples.a.begin(), samples.a.end(), to.begin() + 1);
        combine(to.data() + 1, samples.b.data(), count);
        EXPECT_EQ(to.front(), fence);
        EXPECT_EQ(to.back(), fence);
        for (std::size_t i = 0; i < count; ++i)
            ASSERT_EQ(to[i + 1], single(samples.a[i], samples.b[i])) << i << " of " << count;
    }

    template <class Each> static void forAllSizes(Each each) {
        for (std::size_t count = 0; count < 300; ++count)
            for (std::uint32_t kind = 0; kind < 4; ++kind) each(samplesOf(count, kind));
    }
};

using AllKernels = testing::Types<zelsets::PlainKernels, zelsets::Avx2Kernels>;

} // namespace

TYPED_TEST_SUITE(WordKernels, AllKernels);

#define SKIP_WITHOUT_WIDE_WORDS                                                                    \
    if (std::is_same_v<TypeParam, zelsets::Avx2Kernels> && !zelsets::hasWideWords) GTEST_SKIP()

TYPED_TEST(WordKernels, CombineWordByWord) {
    SKIP_WITHOUT_WIDE_WORDS;
    using U = std::uint32_t;
    this->forAllSizes([&](const Samples& samples) {
        this->expectCombined(samples, TypeParam::andWords, [](U a, U b) { return a & b; });
        this->expectCombined(samples, TypeParam::orWords, [](U a, U b) { return a | b; });
        this->expectCombined(samples, TypeParam::xorWords, [](U a, U b) { return a ^ b; });
        this->expectCombined(samples, TypeParam::minusWords, [](U a, U b) { return a & ~b; });
        this->expectCombined(
            samples, [](U* to, const U*, std::size_t n) { TypeParam::invertWords(to, n); },
            [](U a, U) { return ~a; });
    });
}

TYPED_TEST(WordKernels, CountAllBits) {
    SKIP_WITHOUT_WIDE_WORDS;
    this->forAllSizes([&](const Samples& samples) {
        std::int64_t bits = 0;
        for (const std::uint32_t word : samples.a) bits += std::popcount(word);
        ASSERT_EQ(TypeParam::countBits(samples.a.data(), samples.a.size()), bits);
    });
}

TYPED_TEST(WordKernels, SeeEverySingleBit) {
    SKIP_WITHOUT_WIDE_WORDS;
    for (std::size_t count = 0; count < 100; ++count) {
        Words zeros(count), same(count, 6), other(count, 1);
        EXPECT_TRUE(TypeParam::areZero(zeros.data(), count));
        EXPECT_TRUE(TypeParam::areEqual(same.data(), Words(same).data(), count));
        EXPECT_TRUE(TypeParam::areDisjoint(same.data(), other.data(), count));
        EXPECT_TRUE(TypeParam::isSubset(same.data(), Words(count, 7).data(), count));
        for (std::size_t i = 0; i < count; ++i) {
            Words one = zeros, odd = same;
            one[i] = 1U << (i % 32);
            odd[i] |= 1;
            EXPECT_FALSE(TypeParam::areZero(one.data(), count));
            EXPECT_FALSE(TypeParam::areEqual(same.data(), odd.data(), count));
            EXPECT_FALSE(TypeParam::areDisjoint(odd.data(), other.data(), count));
            EXPECT_FALSE(TypeParam::isSubset(odd.data(), same.data(), count));
        }
    }
}
