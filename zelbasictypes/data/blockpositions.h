// SPDX-License-Identifier: Apache-2.0
/// @file
/// The positions of open blocks.
#pragma once

#include "zelbasictypes/memory/korrealloc.h"

#include <algorithm>
#include <cstdint>
#include <limits>

/// Positions by depth, the outermost block first at depth 1; depth 0 has the position 0. It grows
/// by doubling and ends the process when memory runs out.
class BlockPositions {
public:
    /// Makes room for depths below `room`.
    explicit BlockPositions(std::int32_t room) { grow(room, room); }
    BlockPositions(const BlockPositions&) = delete;
    BlockPositions& operator=(const BlockPositions&) = delete;
    ~BlockPositions() { zelFreeBlock(items_); }

    /// The position at a depth that was set before.
    std::int64_t at(std::int32_t depth) const { return items_[depth]; }
    /// Sets the position at a depth.
    void set(std::int32_t depth, std::int64_t position) {
        if (depth >= capacity_) grow(zelGrowCount(capacity_, depth + 1), -1);
        items_[depth] = position;
    }
    /// Makes room for at least `min` open blocks, and for `max` if memory allows.
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
