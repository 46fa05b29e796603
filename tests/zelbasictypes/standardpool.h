// SPDX-License-Identifier: Apache-2.0
// A pool as the process makes its own, and work for it.
#pragma once

#include "zelbasictypes/memory/bucketmemorypool.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <random>
#include <utility>
#include <vector>

inline BucketMemoryPool* standardPool() {
    return new BucketMemoryPool(BucketMemoryPool::standardGranularity,
                                BucketMemoryPool::standardLinearMax,
                                BucketMemoryPool::standardBucketMax);
}

/// Takes blocks and gives them back in any order, and looks whether they stay its own meanwhile.
template <class Take, class Give>
void takeAndGive(unsigned seed, int turns, unsigned greatestSize, Take take, Give give) {
    std::mt19937 random(seed);
    std::vector<std::pair<std::int32_t, unsigned char*>> held;
    for (int i = 0; i < turns; ++i) {
        if (held.size() < 5 || (held.size() < 300 && random() % 2)) {
            unsigned got = 0;
            void* block = take(static_cast<std::int32_t>(random() % greatestSize + 1), got);
            std::memset(block, static_cast<int>(seed), got);
            held.emplace_back(got, static_cast<unsigned char*>(block));
        } else {
            std::swap(held[random() % held.size()], held.back());
            const auto [size, block] = held.back();
            held.pop_back();
            ASSERT_EQ(std::count(block, block + size, seed), size);
            give(size, block);
        }
    }
    for (const auto& [size, block] : held) give(size, block);
}

/// The same at the process's pool.
inline void takeAndGive(unsigned seed, int turns, unsigned greatestSize) {
    takeAndGive(seed, turns, greatestSize, bucketAlloc, bucketFree);
}
