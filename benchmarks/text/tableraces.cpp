// SPDX-License-Identifier: Apache-2.0
// Finding 16-byte keys in hash tables: 100,000 of them, all asked for in random order, so that most
// steps leave the nearer caches; and as many that aren't there. Both tables use the same hash and
// grew entry by entry.
#include "benchmarks/support/race.h"
#include "benchmarks/text/races.h"
#include "component/zelhashtable.h"
#include "zelbasictypes/data/zelguid.h"

#include <algorithm>
#include <memory>
#include <random>
#include <unordered_map>
#include <vector>

namespace {

constexpr std::size_t keyCount = 100000;

std::vector<ZelGuid> randomKeys(std::uint64_t seed) {
    std::mt19937_64 random(seed);
    std::vector<ZelGuid> keys(keyCount);
    for (ZelGuid& key : keys) {
        const std::uint64_t bits = random();
        key.data1 = static_cast<std::uint32_t>(bits);
        key.data2 = static_cast<std::uint16_t>(bits >> 32);
        key.data3 = static_cast<std::uint16_t>(bits >> 48);
        std::generate(std::begin(key.data4), std::end(key.data4),
                      [&random] { return static_cast<std::uint8_t>(random()); });
    }
    return keys;
}

/// One step is one key looked for.
template <class Find>
void addFinding(const char* job, const char* peer, std::vector<ZelGuid> keys, Find find) {
    std::shuffle(keys.begin(), keys.end(), std::mt19937(17));
    race::add(job, peer, [keys = std::move(keys), find](benchmark::State& state) {
        std::size_t next = 0;
        for (auto _ : state) {
            benchmark::DoNotOptimize(find(keys[next]));
            if (++next == keyCount) next = 0;
        }
    });
}

} // namespace

void addTableRaces() {
    const std::vector<ZelGuid> keys = randomKeys(1), others = randomKeys(2);
    const auto table = std::make_shared<ZelHashTable<ZelGuid, const void*, ZelGuidHash>>();
    const auto map = std::make_shared<std::unordered_map<ZelGuid, const void*, ZelGuidHash>>();
    for (const ZelGuid& key : keys) table->findOrInsert(key) = (*map)[key] = &key;

    const auto inTable = [table](const ZelGuid& key) { return table->find(key); };
    const auto inMap = [map](const ZelGuid& key) { return map->find(key) != map->end(); };
    const char* const present = "find among 100,000 keys";
    addFinding(present, "ZelHashTable", keys, inTable);
    addFinding(present, "std::unordered_map", keys, inMap);
    const char* const absent = "miss among 100,000 keys";
    addFinding(absent, "ZelHashTable", others, inTable);
    addFinding(absent, "std::unordered_map", others, inMap);
}
