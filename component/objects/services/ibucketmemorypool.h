// SPDX-License-Identifier: Apache-2.0
/// @file
/// The host service for small memory blocks.
#pragma once

#include "component/objects/izelunknown.h"

/// A pool that keeps freed blocks by size class for reuse. All modules of a process may share it,
/// from any thread.
class IBucketMemoryPool : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IBucketMemoryPool";

    /// Gives all cached blocks back to the heap. Always true.
    virtual bool clear() = 0;
    /// A block of at least `size` bytes, owned by the caller. Pass `got`, the size of its class, to
    /// `free`.
    virtual void* allocate(std::int32_t size, unsigned& got) = 0;
    /// Takes a block back and sets `block` to null. False for a null block or a size of 0.
    virtual bool free(std::int32_t size, void*& block) = 0;
    /// Sets whether freed blocks are kept for reuse. Always true.
    virtual bool setCaching(bool on) = 0;
};
