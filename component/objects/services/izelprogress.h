// SPDX-License-Identifier: Apache-2.0
/// @file
/// The host service that shows progress.
#pragma once

#include "component/objects/izelunknown.h"

/// The host's progress bar. It is called on the thread that works.
class IZelProgress : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IZelProgress";

    /// Shows the part of the work that is done, from 0.0 to 1.0.
    virtual void setProgress(double fraction) = 0;
};
