// SPDX-License-Identifier: Apache-2.0
/// @file
/// The block that a pool hands out: in front of it stands the one who can free it.
#pragma once

#include <cstdint>

/// Frees blocks without a pool. A block may reach a module other than the one that made it, so the
/// order of the operations is a contract.
class BucketMemoryAllocator {
public:
    virtual ~BucketMemoryAllocator() = default;
    /// `header` is where the block begins on the heap.
    virtual void freeBlock(void* header) = 0;
};

/// A new block of `size` usable bytes, aligned to 8.
void* zelNewBlock(std::int32_t size);

/// Gives a block back through its header.
void zelReleaseBlock(void* block);
