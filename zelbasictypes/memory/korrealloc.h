// SPDX-License-Identifier: Apache-2.0
/// @file
/// Allocation of counted arrays.
///
/// A caller never sees a failed allocation. These functions ask for less where they may, have the
/// host give memory back, and move the block through a temporary file. When nothing helps, they
/// write the memory log, tell the user and end the process with status -1. Sizes are in bytes, and
/// a block stays below 2 GiB; a larger request counts as memory that isn't there. No lock is taken.
#pragma once

#include <cstdint>

/// Stores a block of `count` uninitialised elements in `*block`, which the caller frees by
/// zelFreeBlock(), and returns `count`. For a size of 0 the block may be null.
std::int32_t korMalloc(void** block, std::int32_t elementSize, std::int32_t count);

/// The same with zeros. Of a large block only the pages that are touched use memory.
std::int32_t korMallocZeroed(void** block, std::int32_t elementSize, std::int32_t count);

/// Resizes a block of `curSize` elements to a count between `minNewSize` and `maxNewSize` (-1: the
/// same) and returns that count. Elements added after existing ones are zero; those of a first
/// allocation are uninitialised. Nothing changes when `curSize` equals `minNewSize`. Shrinking to 0
/// frees the block and stores a null.
std::int32_t korRealloc(void** block, std::int32_t elementSize, std::int32_t curSize,
                        std::int32_t minNewSize, std::int32_t maxNewSize = -1);

/// The next capacity of a growing array: `current` doubled until `needed` fits, or `needed` when
/// doubling would exceed 0x40000000.
std::int32_t zelGrowCount(std::int32_t current, std::int32_t needed);

/// Frees a block of these functions; null is allowed.
void zelFreeBlock(void* block);
