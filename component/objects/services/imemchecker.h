// SPDX-License-Identifier: Apache-2.0
// The host's own view of the memory, in units of `unit` bytes.
#pragma once

#include "component/objects/izelunknown.h"

class IMemChecker : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IMemChecker";

    /// Only an active checker is asked further.
    virtual bool isActive() = 0;
    /// Fills the four outputs, in units; -1 means failure.
    virtual std::int32_t status(std::uint64_t* free, std::uint64_t* total, std::uint64_t* swapFree,
                                std::uint64_t* swapTotal, std::uint32_t unit) = 0;
    /// Memory of the process, in units.
    virtual std::uint64_t used(std::uint32_t unit) = 0;
};
