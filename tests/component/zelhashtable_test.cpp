// SPDX-License-Identifier: Apache-2.0
// The hash table against a plain map, its order, its sizes.
#include "component/zelhashtable.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <vector>

namespace {

struct Same {
    std::uint32_t operator()(std::uint32_t key) const { return key; }
};
using Table = ZelHashTable<std::uint32_t, int, Same>;

std::vector<std::uint32_t> keysOf(const Table& table) {
    std::vector<std::uint32_t> keys;
    for (auto at = table.first(); at; at.advance()) keys.push_back(at.key());
    return keys;
}

TEST(NextPrime, StepsThroughItsTable) {
    const std::pair<std::uint32_t, std::uint32_t> cases[] = {
        {0, 2},    {1, 2},     {2, 3},     {3, 5},         {10, 11},
        {99, 131}, {131, 257}, {257, 521}, {65537, 131101}};
    for (const auto& [n, prime] : cases) EXPECT_EQ(zelNextPrime(n), prime);
    constexpr std::uint32_t last = 2147483659u;
    for (const std::uint32_t n : {1073741827u, last - 1, last, 0xFFFFFFFFu})
        EXPECT_EQ(zelNextPrime(n), last) << n;
}

TEST(PrimeSize, RemaindersAreThoseOfADivision) {
    std::mt19937 random(21);
    for (std::uint32_t prime = 2, last = 0; prime != last; prime = zelNextPrime(last = prime)) {
        const PrimeSize size(prime);
        const std::uint32_t edges[] = {0,     1,         prime - 1,
                                       prime, prime + 1, 0xFFFFFFFFu / prime * prime};
        for (const std::uint32_t edge : edges) {
            EXPECT_EQ(size.remainder(edge), edge % prime) << edge << ' ' << prime;
            EXPECT_EQ(size.remainder(edge - 1), (edge - 1) % prime) << edge << ' ' << prime;
        }
        for (int i = 0; i < 1000; ++i) {
            const auto n = static_cast<std::uint32_t>(random());
            ASSERT_EQ(size.remainder(n), n % prime) << n << ' ' << prime;
        }
    }
}

TEST(ZelHashTable, TakesItsSizeFromWhatIsExpected) {
    struct {
        std::uint32_t expected, buckets;
    } const cases[] = {{0, 17}, {2, 17}, {3, 3}, {4, 5}, {10, 11}, {17, 17}, {18, 37}, {100, 131}};
    for (const auto& c : cases) EXPECT_EQ(Table(c.expected).bucketCount(), c.buckets) << c.expected;
}

TEST(ZelHashTable, WalksBucketsUpwardsAndEachFromTheNewest) {
    Table table; // 17 buckets
    for (std::uint32_t key : {16u, 1u, 18u, 0u, 35u, 34u}) table.findOrInsert(key);
    EXPECT_EQ(keysOf(table), (std::vector<std::uint32_t>{34, 0, 35, 18, 1, 16}));
}

TEST(ZelHashTable, GrowsAtFourFifthsAndTurnsEachBucketAround) {
    Table table(4); // 5 buckets, full at 4 entries
    for (std::uint32_t key : {0u, 55u, 110u}) table.findOrInsert(key);
    EXPECT_EQ(table.bucketCount(), 5u);
    EXPECT_EQ(keysOf(table), (std::vector<std::uint32_t>{110, 55, 0}));
    int& value = table.findOrInsert(1) = 7;
    EXPECT_EQ(table.bucketCount(), 11u);
    EXPECT_EQ(keysOf(table), (std::vector<std::uint32_t>{0, 55, 110, 1}));
    EXPECT_EQ(&table.findOrInsert(1), &value);
}

TEST(ZelHashTable, ClearKeepsTheSize) {
    Table table(4);
    for (std::uint32_t key = 0; key < 4; ++key) table.findOrInsert(key) = 1;
    table.clear();
    EXPECT_EQ(table.count(), 0);
    EXPECT_EQ(table.bucketCount(), 11u);
    EXPECT_EQ(table.find(2), nullptr);
    EXPECT_FALSE(table.first());
    EXPECT_EQ(table.findOrInsert(2), 0);
}

/// Equal by one field only, and counted.
struct Counted {
    explicit Counted(int n) : number(n) { ++alive; }
    Counted(const Counted& other) : number(other.number) { ++alive; }
    ~Counted() { --alive; }
    bool operator==(const Counted& other) const { return number / 10 == other.number / 10; }

    int number;
    static inline int alive = 0;
};
struct HashCounted {
    std::uint32_t operator()(const Counted& key) const {
        return static_cast<std::uint32_t>(key.number / 10);
    }
};

TEST(ZelHashTable, ComparesAndDestroysKeysByTheirOwnRules) {
    {
        ZelHashTable<Counted, std::vector<int>, HashCounted> table;
        for (int n = 0; n < 1000; ++n) table.findOrInsert(Counted(n)).push_back(n);
        EXPECT_EQ(table.count(), 100);
        EXPECT_EQ(Counted::alive, 100);
        EXPECT_EQ(table.find(Counted(55))->size(), 10u);
        table.clear();
        EXPECT_EQ(Counted::alive, 0);
        table.findOrInsert(Counted(1));
    }
    EXPECT_EQ(Counted::alive, 0);
}

TEST(ZelHashTable, AgreesWithAPlainMap) {
    Table table;
    EXPECT_FALSE(table.first());
    EXPECT_EQ(table.find(1), nullptr);
    std::map<std::uint32_t, int> model;
    std::mt19937 random(20);
    for (int step = 0; step < 20000; ++step) {
        const auto key = static_cast<std::uint32_t>(random() % 3000 * 65537);
        if (step % 3 == 0) {
            table.findOrInsert(key) = step;
            model[key] = step;
        }
        const int* found = table.find(key);
        const auto expected = model.find(key);
        ASSERT_EQ(found != nullptr, expected != model.end()) << step;
        if (found) {
            ASSERT_EQ(*found, expected->second) << step;
        }
    }
    EXPECT_EQ(table.count(), static_cast<std::int32_t>(model.size()));
    std::map<std::uint32_t, int> walked;
    for (auto at = table.first(); at; at.advance()) walked[at.key()] = at.value();
    EXPECT_EQ(walked, model);
}

} // namespace
