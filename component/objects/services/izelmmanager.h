// SPDX-License-Identifier: Apache-2.0
// The host's manager of memory chunks.
#pragma once

#include "component/objects/izelunknown.h"

class IZelMManager : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IZelMManager";

    /// A chunk of `bytes` bytes, zeroed on request.
    virtual void* allocateChunk(std::int32_t bytes, bool zeroFill) = 0;
    /// Also called with null.
    virtual void freeChunk(void* chunk) = 0;
    /// True when memory was given back and an allocation is worth another try.
    virtual bool reclaim() = 0;
    /// The four figures of the memory log, in units of 24 kB.
    virtual std::int32_t coreLimit() = 0;
    virtual std::int32_t swapLimit() = 0;
    virtual std::int32_t swapNow() = 0;
    virtual std::int32_t coreNow() = 0;
};
