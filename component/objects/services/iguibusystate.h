// SPDX-License-Identifier: Apache-2.0
/// @file
/// The host service that tells whether the user wants to stop.
#pragma once

#include "component/objects/izelunknown.h"

/// The busy state of the host's user interface. It is polled by the thread that works.
class IGuiBusyState : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IGuiBusyState";

    /// True once the user has asked the running work to stop.
    virtual bool isCancelled() = 0;
};
