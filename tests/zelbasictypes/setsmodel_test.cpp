// SPDX-License-Identifier: Apache-2.0
// Long random sequences of operations on a bit vector, a block vector and a plain set, which must
// hold the same after every step. Sizes stand around words, blocks, chunks and the limits between
// the two layouts.
#include "component/objects/services/izelrandom.h"
#include "tests/support/service.h"
#include "tests/zelbasictypes/settest.h"
#include "zelbasictypes/memory/memorymanager.h"
#include "zelbasictypes/sets/blockbitvector.h"
#include "zelbasictypes/sets/indexarray.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <numeric>
#include <random>
#include <set>
#include <utility>
#include <vector>

namespace {

using settest::combine;
using Model = std::set<std::int32_t>;

/// Any numbers, but the same for the same seed.
class Draws : public testsupport::Service<IZelRandom> {
public:
    explicit Draws(std::uint32_t start) : random_(start) {}
    void seed(std::int32_t value) override { random_.seed(static_cast<std::uint32_t>(value)); }
    std::int32_t below(std::int32_t limit) override {
        return static_cast<std::int32_t>(random_() % static_cast<std::uint32_t>(limit));
    }

private:
    std::mt19937 random_;
};

/// The same set three times over.
struct Triple {
    BitVector bits;
    BlockBitVector blocks;
    Model model;
};

template <class Set> testing::AssertionResult holds(const Set& set, const Model& model) {
    std::vector<std::int32_t> found;
    set.forEachSet([&](std::int32_t i) { found.push_back(i); });
    if (!std::ranges::equal(found, model))
        return testing::AssertionFailure() << found.size() << " bits, not " << model.size();
    if (set.count() != static_cast<std::int32_t>(model.size()))
        return testing::AssertionFailure() << "count " << set.count() << ", not " << model.size();
    if (set.recount() != static_cast<std::int32_t>(model.size()))
        return testing::AssertionFailure() << "recount differs";
    return testing::AssertionSuccess();
}

void combine(Model& to, const Model& other, char operation) {
    Model result;
    const auto by = [&](const auto& algorithm) {
        algorithm(to, other, std::inserter(result, result.end()));
    };
    if (operation == '&') by(std::ranges::set_intersection);
    if (operation == '|') by(std::ranges::set_union);
    if (operation == '^') by(std::ranges::set_symmetric_difference);
    if (operation == '-') by(std::ranges::set_difference);
    to.swap(result);
}

/// The room of two sets; they differ where the one is to be large and the other one not.
struct Sizes {
    std::int32_t one, two;
};

/// A pair of triples and the steps that are taken on them.
class Play {
public:
    explicit Play(const Sizes& sizes)
        : size_(sizes.one), random_(static_cast<std::uint32_t>(size_) + 7),
          triples_{{BitVector(sizes.one), BlockBitVector(sizes.one), {}},
                   {BitVector(sizes.two), BlockBitVector(sizes.two), {}}} {}

    void step() {
        Triple& one = triples_[below(2)];
        Triple& two = triples_[&one == &triples_[0] ? 1 : 0];
        const auto chosen = below(29);
        SCOPED_TRACE(testing::Message() << "size " << size_ << ", operation " << chosen);
        if (chosen < 5) {
            changeBits(one);
        } else if (chosen < 9) {
            changeRange(one);
        } else if (chosen < 15) {
            combineBoth(one, two);
        } else {
            static constexpr Transform transforms[] = {
                &Play::resize, &Play::complement,       &Play::shift,    &Play::thin,
                &Play::gather, &Play::removePositions,  &Play::renumber, &Play::permute,
                &Play::mapped, &Play::travel,           &Play::fillUp,   &Play::thinRandomly,
                &Play::copy,   &Play::combineWithItself};
            (this->*transforms[chosen - 15])(one, two);
        }
        check(one, two);
    }

private:
    using Transform = void (Play::*)(Triple& one, const Triple& two);

    std::int32_t below(std::int32_t limit) {
        return static_cast<std::int32_t>(random_() % static_cast<std::uint32_t>(limit));
    }
    /// Mostly within the size, at times at a limit of words or blocks, at times beyond.
    std::int32_t place() {
        static constexpr std::int32_t limits[] = {0,     1,     31,    32,    33,
                                                  32767, 32768, 65535, 65536, 131072};
        const std::int32_t kind = below(8);
        if (kind == 0) return std::min(limits[below(std::size(limits))], size_ + 40);
        return below(size_ + (kind == 1 ? 40 : 1));
    }

    void changeBits(Triple& one) {
        for (int i = 0; i < 30; ++i) {
            const std::int32_t bit = place();
            const bool was = one.model.count(bit) != 0;
            if (below(3) > 0) {
                EXPECT_TRUE(one.bits.set(bit));
                EXPECT_EQ(one.blocks.testAndSet(bit), was);
                one.model.insert(bit);
            } else {
                EXPECT_TRUE(one.bits.clear(bit));
                EXPECT_EQ(one.blocks.clear(bit), was);
                one.model.erase(bit);
            }
        }
    }

    void changeRange(Triple& one) {
        std::int32_t first = place(), last = below(4) ? first + below(3000) : place();
        if (first > last) std::swap(first, last);
        if (below(8) == 0) first = -4;
        const std::int32_t room = one.bits.maxBit();
        const std::int32_t end = std::min(last, room);
        if (below(2)) {
            EXPECT_EQ(one.bits.setRange(first, last), first <= room);
            if (first <= end) one.blocks.setRange(first, end);
            for (std::int32_t i = std::max(first, 0); i <= end; ++i)
                one.model.insert(one.model.end(), i);
        } else {
            EXPECT_EQ(one.bits.clearRange(first, last), first <= room);
            one.blocks.clearRange(first, end);
            one.model.erase(one.model.lower_bound(first), one.model.upper_bound(last));
        }
    }

    /// Each kind with either kind of operand.
    void combineBoth(Triple& one, const Triple& two) {
        const char operation = "&|^-"[below(4)];
        if (below(2)) {
            combine(one.bits, two.bits, operation);
            combine(one.blocks, two.blocks, operation);
        } else {
            combine(one.bits, two.blocks, operation);
            combine(one.blocks, two.bits, operation);
        }
        combine(one.model, two.model, operation);
    }

    /// For what only bit vectors do.
    static void follow(Triple& one) {
        one.blocks = one.bits;
        one.blocks.compact();
    }
    static void follow(Triple& one, Model& changed) {
        one.model.swap(changed);
        follow(one);
    }

    void resize(Triple& one, const Triple&) {
        one.bits.resize(place());
        one.model.erase(one.model.upper_bound(one.bits.maxBit()), one.model.end());
        if (one.bits.maxBit() < BitVector::highestIndex)
            one.blocks.clearRange(one.bits.maxBit() + 1, BitVector::highestIndex);
    }

    /// All of a small vector, a part of a great one; else the sets would be full most of the time.
    void complement(Triple& one, const Triple&) {
        Model inverse;
        const std::int32_t n = below(std::min(size_, 3000) + 1);
        const bool isWhole = size_ < 5000 && below(2);
        const std::int32_t first = isWhole ? 0 : 1, last = isWhole ? one.bits.maxBit() : n;
        isWhole ? one.bits.complement() : one.bits.complementTo(n);
        for (std::int32_t i = first; i <= last; ++i)
            if (!one.model.count(i)) inverse.insert(i);
        for (const std::int32_t i : one.model)
            if (i < first || (i > last && i <= one.bits.maxBit())) inverse.insert(i);
        follow(one, inverse);
    }

    void shift(Triple& one, const Triple&) {
        const std::int32_t n = below(100);
        one.bits.shiftUp(n);
        Model shifted;
        for (const std::int32_t i : one.model) shifted.insert(shifted.end(), i + n);
        follow(one, shifted);
    }

    void thin(Triple& one, const Triple&) {
        const std::int32_t n = below(200);
        const auto total = static_cast<std::int64_t>(one.model.size());
        one.bits.thin(n);
        if (total > n && !one.model.count(0)) {
            std::int64_t sum = total / 2;
            std::erase_if(one.model, [&](std::int32_t) {
                sum += n;
                const bool goes = sum < total;
                if (!goes) sum -= total;
                return goes;
            });
        }
        follow(one);
    }

    void thinRandomly(Triple& one, const Triple&) {
        Draws draws(3), same(3);
        const double fraction = below(5) / 4.0;
        auto remaining = static_cast<std::int32_t>(one.model.size());
        auto keep = static_cast<std::int32_t>(remaining * fraction + 0.5);
        one.bits.thinRandomly(fraction, &draws);
        std::erase_if(one.model, [&](std::int32_t) {
            const bool stays = same.below(remaining--) < keep;
            keep -= stays;
            return !stays;
        });
        follow(one);
    }

    void fillUp(Triple& one, const Triple&) {
        const bool isWhole = size_ < 5000 && below(2);
        const std::int32_t n = below(std::min(size_, 3000) + 1) - 1;
        isWhole ? one.bits.setAll() : one.bits.setFirst(n);
        one.model.clear();
        for (std::int32_t i = 1; i <= (isWhole ? one.bits.maxBit() : n); ++i)
            one.model.insert(one.model.end(), i);
        follow(one);
    }

    void combineWithItself(Triple& one, const Triple&) {
        const char operation = "&|^-"[below(4)];
        combine(one.bits, one.bits, operation);
        combine(one.blocks, one.blocks, operation);
        combine(one.model, Model(one.model), operation);
        one.bits.copyBits(one.bits);
    }

    void gather(Triple& one, const Triple& two) {
        Model gathered;
        if (one.model.count(0)) gathered.insert(0);
        std::int32_t next = 1;
        for (const std::int32_t i : two.model) {
            if (one.model.count(i)) gathered.insert(next);
            ++next;
        }
        one.bits.gather(two.bits);
        EXPECT_GE(one.bits.maxBit(), next);
        follow(one, gathered);
    }

    void removePositions(Triple& one, const Triple& two) {
        const std::int32_t old = one.bits.maxBit();
        one.bits.removePositions(two.bits);
        EXPECT_LE(one.bits.maxBit(), old);
        Model kept;
        for (const std::int32_t i : one.model) {
            if (two.model.count(i)) continue;
            const auto before = std::distance(two.model.begin(), two.model.lower_bound(i));
            kept.insert(kept.end(), i - static_cast<std::int32_t>(before));
        }
        follow(one, kept);
    }

    /// Closes gaps, as after a removal of elements.
    void fill(IndexArray& map) {
        std::uint32_t next = 1;
        for (std::uint32_t i = 1; i < map.size(); ++i)
            if (below(3) > 0) map.set(i, next++);
    }

    void renumber(Triple& one, const Triple&) {
        IndexArray map(static_cast<std::uint32_t>(one.bits.maxBit()) + 1);
        fill(map);
        std::int32_t last = 1;
        Model moved;
        for (const std::int32_t i : one.model) {
            const auto j = static_cast<std::int32_t>(map.at(static_cast<std::uint32_t>(i)));
            if (j == 0) continue;
            moved.insert(j);
            last = j;
        }
        one.bits.renumber(map);
        one.blocks.renumber(map);
        EXPECT_GE(one.bits.maxBit(), last);
        one.model.swap(moved);
    }

    void permute(Triple& one, const Triple&) {
        const std::int32_t size = std::max(below(size_ + 1), 2);
        std::vector<std::int32_t> order(static_cast<std::size_t>(size));
        std::iota(order.begin(), order.end(), 0);
        std::shuffle(order.begin() + 1, order.end(), random_);
        IndexArray map(static_cast<std::uint32_t>(size));
        for (std::int32_t i = 0; i < size; ++i)
            map.set(static_cast<std::uint32_t>(i), static_cast<std::uint32_t>(order[i]));
        one.bits.permute(map);
        Model permuted;
        for (std::int32_t i = 0; i < size; ++i)
            if (one.model.count(order[static_cast<std::size_t>(i)])) permuted.insert(i);
        permuted.insert(one.model.lower_bound(size), one.model.end());
        follow(one, permuted);
    }

    void mapped(Triple& one, const Triple& two) {
        IndexArray map(4096);
        const std::int32_t operation = below(6);
        for (int k = 0; k < 200; ++k) {
            const auto i = static_cast<std::uint32_t>(below(4096));
            map.set(i, static_cast<std::uint32_t>(below(size_ + 1)));
        }
        using Combination = void (BitVector::*)(const BitVector&, const BitVector::IndexMap&);
        static constexpr Combination combinations[] = {
            &BitVector::assignMapped, &BitVector::andMapped, &BitVector::orMapped,
            &BitVector::xorMapped, &BitVector::minusMapped};
        if (operation < 5) {
            (one.bits.*combinations[operation])(two.bits, map);
        } else {
            one.bits.complementMapped(map);
        }
        for (IndexArrayIter i(map); !i.atEnd(); i.next()) {
            const bool other = two.model.count(i.index()) != 0;
            const auto j = static_cast<std::int32_t>(i.value());
            const bool old = one.model.count(j) != 0;
            const bool results[] = {other,        old && other,  old || other,
                                    old != other, old && !other, !old};
            results[operation] ? void(one.model.insert(j)) : void(one.model.erase(j));
        }
        follow(one);
    }

    /// Out to a stream, and back as the other kind.
    void travel(Triple& one, const Triple&) {
        const std::uint32_t version = below(2) ? 0 : 12;
        const Bytes fromBits = settest::written(one.bits, version);
        BitVector again(8);
        EXPECT_TRUE(settest::readInto(again, fromBits));
        EXPECT_GE(again.maxBit(), one.bits.maxBit()); // one that grew dense may come back large
        EXPECT_TRUE(settest::readInto(one.bits, settest::written(one.blocks, version)));
        EXPECT_TRUE(settest::readInto(one.blocks, fromBits));
    }

    void copy(Triple& one, const Triple& two) {
        switch (below(5)) {
        case 0: {
            const bool keepsRoom = !one.bits.isLarge() && one.bits.maxBit() > two.bits.maxBit();
            const std::int32_t room = (keepsRoom ? one : two).bits.maxBit();
            one.bits = two.bits;
            EXPECT_EQ(one.bits.maxBit(), room);
            one.blocks = two.blocks;
            break;
        }
        case 1:
            one.bits.copyBits(two.bits);
            one.blocks = BlockBitVector(two.bits);
            break;
        case 2:
            one.bits.assign(two.blocks);
            one.blocks = two.bits;
            break;
        case 3: {
            BitVector bits(two.bits);
            BlockBitVector blocks(two.blocks);
            BitVector moved(std::move(bits));
            one.bits.swap(moved);
            one.blocks = BlockBitVector(std::move(blocks));
            break;
        }
        default:
            one.bits.clearAll();
            one.blocks.clearAll();
            one.model.clear();
            return;
        }
        one.model = two.model;
    }

    void check(const Triple& one, const Triple& two) {
        ASSERT_TRUE(holds(one.bits, one.model));
        ASSERT_TRUE(holds(one.blocks, one.model));
        if (below(4) == 0) triples_[0].blocks.compact();
        EXPECT_EQ(one.bits == two.bits, one.model == two.model);
        EXPECT_EQ(one.blocks == two.blocks, one.model == two.model);
        Model common = one.model;
        combine(common, two.model, '&');
        EXPECT_EQ(one.bits.isDisjointFrom(two.bits), common.empty());
        EXPECT_EQ(one.bits.isSubsetOf(two.bits), common.size() == one.model.size());
        for (int i = 0; i < 5; ++i) checkAround(one, place());
        checkSplit(one, below(7) + 1);
    }

    /// Each run begins where the one in front of it has ended, and all are of a length.
    static void checkSplit(const Triple& one, std::int32_t parts) {
        std::vector<std::int32_t> firsts(static_cast<std::size_t>(parts) + 1, -7), offsets = firsts;
        one.bits.split(parts, firsts.data(), offsets.data());
        const auto total = static_cast<std::int32_t>(one.model.size());
        EXPECT_EQ(offsets.back(), total);
        EXPECT_EQ(firsts.back(), -1);
        for (std::int32_t k = 0; k < parts; ++k) {
            const auto at = static_cast<std::size_t>(k);
            EXPECT_EQ(offsets[at],
                      static_cast<std::int32_t>(static_cast<double>(k) / parts * total));
            const auto first = std::next(one.model.begin(), offsets[at]);
            EXPECT_EQ(firsts[at], first == one.model.end() ? -1 : *first);
        }
    }

    static void checkAround(const Triple& one, std::int32_t i) {
        const bool isIn = one.model.count(i) != 0;
        EXPECT_EQ(one.bits.test(i), isIn);
        EXPECT_EQ(one.blocks.test(i), isIn);
        const auto above = one.model.upper_bound(i), from = one.model.lower_bound(i);
        const std::int32_t next = above == one.model.end() ? -1 : *above;
        const std::int32_t before = from == one.model.begin() ? -1 : *std::prev(from);
        EXPECT_EQ(one.bits.nextSet(i), next);
        EXPECT_EQ(one.blocks.nextSet(i), next);
        EXPECT_EQ(one.bits.prevSet(i), before);
        EXPECT_EQ(one.blocks.prevSet(i), before);
        EXPECT_EQ(one.bits.countAfter(i), std::distance(above, one.model.end()));
        const bool hasZero = one.model.count(0) != 0;
        EXPECT_EQ(one.bits.countBelow(i), hasZero ? 0 : std::distance(one.model.begin(), from));
        std::int32_t clear = i + 1;
        while (one.model.count(clear)) ++clear;
        EXPECT_EQ(one.bits.nextClear(i), clear <= one.bits.maxBit() ? clear : -1);
        clear = i - 1;
        while (clear >= 0 && one.model.count(clear)) --clear;
        EXPECT_EQ(one.bits.prevClear(i), clear);
    }

    const std::int32_t size_;
    std::mt19937 random_;
    Triple triples_[2];
};

constexpr std::int32_t words(std::int32_t count) { return count * 32; }

class SetsOfSize : public testing::TestWithParam<Sizes> {};

std::vector<Sizes> sizesAroundLimits() {
    std::vector<Sizes> sizes;
    for (const std::int32_t size :
         {0, 31, 32, 1024, 32767, 32768, words(1535), words(1536), 65535, 65536, words(4095),
          131072, words(4096) + 5, words(6144), words(6145) + 1})
        sizes.push_back({size, size});
    for (const Sizes unlike : {Sizes{words(4096), 40}, {words(1100), words(5000)}, {100, 300000}})
        sizes.push_back(unlike);
    return sizes;
}

} // namespace

TEST_P(SetsOfSize, HoldTheSameAfterEveryOperation) {
    Play play(GetParam());
    for (int i = 0; i < 150 && !testing::Test::HasFailure(); ++i) play.step();
}

INSTANTIATE_TEST_SUITE_P(AroundLimits, SetsOfSize, testing::ValuesIn(sizesAroundLimits()));

TEST(Sets, HaveTheLayoutThatTheHostAllows) {
    const bool canBeLarge = zelMemoryManager() != nullptr;
    EXPECT_FALSE(BitVector(words(4096) - 1 - 32).isLarge());
    EXPECT_EQ(BitVector(words(4096) - 1).isLarge(), canBeLarge);
    BitVector vector(words(4095) - 1);
    vector.set(3);
    vector.resize(words(4096) - 1);
    EXPECT_FALSE(vector.isLarge());
    vector.resize(words(7000) - 1);
    EXPECT_EQ(vector.isLarge(), canBeLarge);
    EXPECT_NE(vector.allChunksPresent(), canBeLarge);
    vector.resize(words(1536) - 1);
    EXPECT_EQ(vector.isLarge(), canBeLarge);
    vector.resize(words(1535) - 1);
    EXPECT_FALSE(vector.isLarge());
    EXPECT_EQ(vector.count(), 1);
}
