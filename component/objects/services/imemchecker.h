// SPDX-License-Identifier: Apache-2.0
/// @file
/// The host service that measures memory.
#pragma once

#include "component/objects/izelunknown.h"

/// The host's own view of the memory. All figures are in units of `unit` bytes.
class IMemChecker : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IMemChecker";

    /// Whether the checker may be asked for figures.
    virtual bool isActive() = 0;
    /// Stores the free and total physical memory and swap; -1 means failure.
    virtual std::int32_t status(std::uint64_t* free, std::uint64_t* total, std::uint64_t* swapFree,
                                std::uint64_t* swapTotal, std::uint32_t unit) = 0;
    /// The memory that this process uses.
    virtual std::uint64_t used(std::uint32_t unit) = 0;
};
