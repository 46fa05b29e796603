// SPDX-License-Identifier: Apache-2.0
/// @file
/// The block that a pool hands out, with a pointer in front of it to the object that can free it.
#pragma once

#include <cstdint>

/// Frees blocks without a pool. A block may reach a module other than the one that made it, so the
/// order of the operations is a contract.
class BucketMemoryAllocator {
public:
    virtual ~BucketMemoryAllocator() = default;
    /// Frees the block whose header begins at `header`.
    virtual void freeBlock(void* header) = 0;
};

/// A new block of `size` usable bytes, aligned to 8 bytes.
void* zelNewBlock(std::int32_t size);

/// Frees a block through its header.
void zelReleaseBlock(void* block);
