// SPDX-License-Identifier: Apache-2.0
/// @file
/// The allocation of counted arrays.
///
/// A caller never sees a failed allocation: these functions ask for less where they may, have the
/// host give memory back, go through a temporary file, and when nothing helps write the memory log,
/// tell the user and end the process with status -1. Sizes are in bytes and a block stays below
/// 2 GiB; what would be greater counts as memory that is not there. No lock is taken.
#pragma once

#include <cstdint>

/// Stores `count` elements of uncleared memory in `*block` and returns `count`. For a size of 0 the
/// block may be null.
std::int32_t korMalloc(void** block, std::int32_t elementSize, std::int32_t count);

/// The same with zeros. Of a large block only the pages that are touched cost memory.
std::int32_t korMallocZeroed(void** block, std::int32_t elementSize, std::int32_t count);

/// Brings a block of `curSize` elements to a count between `minNewSize` and `maxNewSize` (-1: the
/// same as `minNewSize`) and returns that count. Elements added behind existing ones are zero;
/// those of a first allocation are not cleared. A `curSize` equal to `minNewSize` changes nothing.
/// Shrinking to 0 frees the block and leaves a null.
std::int32_t korRealloc(void** block, std::int32_t elementSize, std::int32_t curSize,
                        std::int32_t minNewSize, std::int32_t maxNewSize = -1);

/// The next capacity of a growing array: `current` doubled until `needed` fits, or `needed` itself
/// where the doubling would pass 0x40000000.
std::int32_t zelGrowCount(std::int32_t current, std::int32_t needed);

/// Frees what korMalloc and korRealloc gave; null is fine.
void zelFreeBlock(void* block);
