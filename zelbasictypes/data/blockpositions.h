// SPDX-License-Identifier: Apache-2.0
/// @file
/// Positions of the blocks that are open, outermost first.
#pragma once

#include "zelbasictypes/memory/korrealloc.h"

#include <algorithm>
#include <cstdint>
#include <limits>

/// Entries count from 1; entry 0 is 0. Doubles as it grows.
class BlockPositions {
public:
    explicit BlockPositions(std::int32_t room) { grow(room, room); }
    BlockPositions(const BlockPositions&) = delete;
    BlockPositions& operator=(const BlockPositions&) = delete;
    ~BlockPositions() { zelFreeBlock(items_); }

    std::int64_t at(std::int32_t depth) const { return items_[depth]; }
    void set(std::int32_t depth, std::int64_t position) {
        if (depth >= capacity_) grow(zelGrowCount(capacity_, depth + 1), -1);
        items_[depth] = position;
    }
    /// Room for at least `min` open blocks, and for `max` when memory allows.
    void reserve(std::int32_t min, std::int32_t max) {
        constexpr std::int32_t most = std::numeric_limits<std::int32_t>::max() - 1;
        if (min >= capacity_) grow(std::min(min, most) + 1, std::clamp(max, min, most) + 1);
    }

private:
    void grow(std::int32_t min, std::int32_t max) {
        void* block = items_;
        capacity_ = korRealloc(&block, sizeof(std::int64_t), capacity_, min, max);
        items_ = static_cast<std::int64_t*>(block);
        items_[0] = 0;
    }

    std::int32_t capacity_ = 0;
    std::int64_t* items_ = nullptr;
};
