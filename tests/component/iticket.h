// SPDX-License-Identifier: Apache-2.0
// The interface of the one class of the test module.
#pragma once

#include "component/objects/izelunknown.h"
#include "zelbasictypes/data/zelguid.h"

inline constexpr ZelGuid ticketClassId{0x71C4E700, 1, 2, {3, 4, 5, 6, 7, 8, 9, 10}};

class ITicket : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "ITicket";

    /// `*flag` is set when the ticket is destroyed.
    virtual void flagWhenGone(bool* flag) = 0;
    /// A count of the host's service "IZelRandom" up to 7, or -1 without that service.
    virtual std::int32_t draw() = 0;
};
