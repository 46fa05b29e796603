// SPDX-License-Identifier: Apache-2.0
/// @file
/// The host service for random numbers.
#pragma once

#include "component/objects/izelunknown.h"

/// A random number generator. The same seed gives the same sequence.
class IZelRandom : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IZelRandom";

    /// Starts the sequence that belongs to `value`.
    virtual void seed(std::int32_t value) = 0;
    /// A uniformly distributed integer from 0 to `limit` - 1.
    virtual std::int32_t below(std::int32_t limit) = 0;
};
