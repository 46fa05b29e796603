// SPDX-License-Identifier: Apache-2.0
// Whether the user asks the running work to stop.
#pragma once

#include "component/objects/izelunknown.h"

class IGuiBusyState : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IGuiBusyState";

    virtual bool isCancelled() = 0;
};
