// SPDX-License-Identifier: Apache-2.0
/// @file
/// The host service for large chunks of memory.
#pragma once

#include "component/objects/izelunknown.h"

/// The host's manager of memory chunks. It is called on the allocating thread, whichever that is.
class IZelMManager : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IZelMManager";

    /// A chunk of `bytes` bytes, filled with zeros on request; null when there is none. The caller
    /// gives it back by freeChunk().
    virtual void* allocateChunk(std::int32_t bytes, bool zeroFill) = 0;
    /// Takes a chunk back; null is allowed.
    virtual void freeChunk(void* chunk) = 0;
    /// Gives cached memory back. True when that freed some, so that a failed allocation is worth
    /// another try.
    virtual bool reclaim() = 0;
    /// A figure of the memory log, in units of 24 kB: the limits on memory and swap, and their use
    /// now.
    /// @{
    virtual std::int32_t coreLimit() = 0;
    virtual std::int32_t swapLimit() = 0;
    virtual std::int32_t swapNow() = 0;
    virtual std::int32_t coreNow() = 0;
    /// @}
};
