// SPDX-License-Identifier: Apache-2.0
// The host's random numbers.
#pragma once

#include "component/objects/izelunknown.h"

class IZelRandom : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IZelRandom";

    virtual void seed(std::int32_t value) = 0;
    /// A uniform integer from 0 to `limit` - 1.
    virtual std::int32_t below(std::int32_t limit) = 0;
};
