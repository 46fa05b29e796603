// SPDX-License-Identifier: Apache-2.0
// A pool that keeps freed blocks by size class for reuse.
#pragma once

#include "component/objects/izelunknown.h"

class IBucketMemoryPool : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IBucketMemoryPool";

    /// Frees every cached block; true.
    virtual bool clear() = 0;
    /// A block of at least `size` bytes. `got` is the size to hand back to `free`.
    virtual void* allocate(std::int32_t size, unsigned& got) = 0;
    /// Takes a block back and sets `block` to null; false for a null block or a size of 0.
    virtual bool free(std::int32_t size, void*& block) = 0;
    /// Whether freed blocks are kept for reuse; true.
    virtual bool setCaching(bool on) = 0;
};
