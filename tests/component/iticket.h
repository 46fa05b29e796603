// SPDX-License-Identifier: Apache-2.0
// The interface of the one class of the test module.
#pragma once

#include "component/objects/izelunknown.h"

class ITicket : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "ITicket";

    /// `*flag` is set when the ticket is destroyed.
    virtual void flagWhenGone(bool* flag) = 0;
    /// A count of the host's service "IZelRandom" up to 7, or -1 without that service.
    virtual std::int32_t draw() = 0;
};
